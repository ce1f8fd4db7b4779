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

    /// Applies all settings as a whole; to be called after each change of one. `senderTitle` is the
    /// title of the control that changed it (SenderTitles.h), as a few ask the user something.
    virtual void updateState(const QString& senderTitle = {}) = 0;

    // What sliders and wells do beside storing their value: its effect is seen while they move.
    virtual void updateWindowSize() = 0;
    virtual void updateDistanceFromDock() = 0;
    virtual void updateDockBadgeSize() = 0;
    virtual void updateColorOfWindowBadges(const QColor& color) = 0;

    // Labels of the preferences window, null until connected; filled at once and kept up to date.
    virtual void setVersionLabel(QLabel* label) = 0;
    virtual void setDelayLabel(QLabel* label) = 0;
    virtual void setExitDelayLabel(QLabel* label) = 0;

    virtual SGHotKeyCenter& hotKeyCenter() = 0;
};

} // namespace lumbrix
