// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program, as its preferences see it.
#pragma once

#include <QtCore/QString>

class QColor;
class QLabel;

namespace lumbrix
{

class SGHotKeyCenter;

/// Main thread; outlives the preferences.
class PreferencesHost
{
public:
    virtual ~PreferencesHost() = default;

    /// Applies all settings; must be called after each change of a setting. `senderTitle` is the
    /// title of the control that changed it (SenderTitles.h): a few of them make the program ask
    /// the user something.
    virtual void updateState(const QString& senderTitle = {}) = 0;

    // Called by sliders and colour wells while the user changes them, to show the effect at once.
    virtual void updateWindowSize() = 0;
    virtual void updateDistanceFromDock() = 0;
    virtual void updateDockBadgeSize() = 0;
    virtual void updateColorOfWindowBadges(const QColor& color) = 0;

    // Labels of the preferences window; null disconnects them. Filled at once and kept up to date.
    virtual void setVersionLabel(QLabel* label) = 0;
    virtual void setDelayLabel(QLabel* label) = 0;
    virtual void setExitDelayLabel(QLabel* label) = 0;

    virtual SGHotKeyCenter& hotKeyCenter() = 0;
};

} // namespace lumbrix
