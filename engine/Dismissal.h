// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When previews go away, and which clicks belong to them while the switcher holds the mouse.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include "model/SWElement.h"
#include "platform/RunLoop.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

class LXHandler;

/// Main thread, but for checkIfDockElementIsHovered.
class Dismissal
{
public:
    explicit Dismissal(LXHandler& handler) : m_handler(handler) {}

    void mouseExited();
    void mouseExitedToOtherIcon();
    void menuOpened();

    // Removal: they differ in what happens to the panels and to the timers.
    /// Panels stay on screen until the next pass of the loop, so that a set built at once from the
    /// same panels replaces them without a flicker.
    void removeAllScreenViews();
    void removeAllScreenViewsNOW();
    void removeAllScreenViewsLeavingTimersAlone();

    void removeAllScreenViewsWithCheck();
    void removeAllScreenViewsWithCheckDelayed();
    void tabExitCheck(const SWElementPtr& entry);
    bool shouldInterceptClick(bool perform, bool isTabExit);
    void closeAllWindows();

    /// Any thread.
    static bool checkIfDockElementIsHovered(const SWElementPtr& element);
    /// Also brings the previews' hover state in step with the mouse, because their own tracking
    /// sees nothing while the switcher or the Dock holds the mouse.
    bool checkIfPreviewsAreHovered(bool includeDockItem);

    void armTabExitTimer(platform::Seconds interval, const SWElementPtr& entry);
    void invalidateExitTimer();
    void invalidateTabExitTimer();
    void invalidateExitDelayTimer();
    /// Exit checks still to skip.
    void setDelayExit(int checks) { m_delayExit = checks; }

private:
    void followSwitcher(const SWElementPtr& entry);
    void stopTimers();
    /// The frame of a preview and the way to it from the Dock, where the icon is now; empty for a
    /// Dock on any other side.
    QRectF bridgedToDock(const QRectF& frame, const QRectF& icon, const QString& orientation) const;

    LXHandler& m_handler;
    platform::TimerPtr m_exitTimer;
    platform::TimerPtr m_exitDelayTimer;
    platform::TimerPtr m_tabExitTimer;
    platform::TimerPtr m_orderOutTimer;
    int m_delayExit = 0;
};

} // namespace lumbrix
