// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The subsystems beside the engine that it calls into. Each starts as an absent one, which does
// nothing, until the subsystem takes its place.
#pragma once

#include <QtGui/QColor>

#include <cstdint>
#include <memory>

#include "model/SWElement.h"
#include "preview/HelpBubble.h"
#include "preview/HotKeyCenter.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

/// The list of today's events that stands in for a calendar's windows. Main thread.
class CalendarPreview
{
public:
    virtual ~CalendarPreview() = default;
    virtual bool shouldShowCal() const = 0;
    virtual void setShouldShowCal(bool on) = 0;
    virtual void calIconHovered(const SWElementPtr& dockItem) = 0;
};

/// The window counts over the Dock's icons. Main thread.
class WindowCountBadger
{
public:
    virtual ~WindowCountBadger() = default;
    /// Brings the badges in line with the counts and settings of now.
    virtual void badgeDockItems() = 0;
    /// Places every badge anew, for a changed size.
    virtual void updateBadgeSizes() = 0;

    virtual bool shouldBadgeDock() const = 0;
    virtual void setShouldBadgeDock(bool on) = 0;
    /// 1 top left, 2 centre, 3 bottom right, 4 bottom left, anything else top right.
    virtual std::int32_t badgePosition() const = 0;
    virtual void setBadgePosition(std::int32_t position) = 0;
    virtual bool badgeOnlyIfMore() const = 0;
    virtual void setBadgeOnlyIfMore(bool on) = 0;
    virtual void setBadgeSizeExtra(float points) = 0;
    /// The colour chosen, else the default one; invalid without badges.
    virtual QColor getCurrentColor() = 0;
    /// Stores it, and tints every badge.
    virtual void setCurrentColor(const QColor& color) = 0;
};

/// None is ever null.
struct Companions {
    Companions();

    std::shared_ptr<HotKeyCenter> hotKeyCenter;
    std::shared_ptr<CalendarPreview> calendarPreview;
    std::shared_ptr<HelpBubble> helpBubble;
    std::shared_ptr<WindowCountBadger> windowCountBadger;
    std::shared_ptr<PlayerControls> playerControls;
};

} // namespace lumbrix
