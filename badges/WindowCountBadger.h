// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The interfaces between the engine and the window counts on the Dock's icons.
#pragma once

#include <QtGui/QColor>

#include <cstdint>

#include "platform/Workspace.h"

namespace lumbrix
{

/// The engine, as the badges see it. Main thread.
class WindowCounts
{
public:
    virtual ~WindowCounts() = default;
    /// The number of windows to show for the application.
    virtual int countForRunningApp(const platform::RunningApplication& application) const = 0;
    virtual void removeAllScreenViews() = 0;
};

/// The window counts over the Dock's icons. Main thread.
class WindowCountBadger
{
public:
    virtual ~WindowCountBadger() = default;
    /// Called once, when the engine is ready. `counts` must outlive the badges, or tearDown() must
    /// be called before it is destroyed.
    virtual void setUp(WindowCounts& counts) = 0;
    /// Removes all badges for good.
    virtual void tearDown() = 0;

    /// Updates the badges to the current counts and settings.
    virtual void badgeDockItems() = 0;
    /// Places every badge again, after a change of size.
    virtual void updateBadgeSizes() = 0;

    virtual bool shouldBadgeDock() const = 0;
    virtual void setShouldBadgeDock(bool on) = 0;
    /// 1 top left, 2 centre, 3 bottom right, 4 bottom left, anything else top right.
    virtual std::int32_t badgePosition() const = 0;
    virtual void setBadgePosition(std::int32_t position) = 0;
    virtual bool badgeOnlyIfMore() const = 0;
    virtual void setBadgeOnlyIfMore(bool on) = 0;
    virtual void setBadgeSizeExtra(float points) = 0;
    /// The chosen colour, otherwise the default; invalid if there are no badges.
    virtual QColor getCurrentColor() = 0;
    /// Stores the colour and tints every badge.
    virtual void setCurrentColor(const QColor& color) = 0;
};

} // namespace lumbrix
