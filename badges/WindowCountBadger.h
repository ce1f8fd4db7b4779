// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the engine asks of the window counts on the Dock's icons, and what they ask of the engine.
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
    /// How many windows of the application the user is to be told of.
    virtual int countForRunningApp(const platform::RunningApplication& application) const = 0;
    virtual void removeAllScreenViews() = 0;
};

/// The window counts over the Dock's icons. Main thread.
class WindowCountBadger
{
public:
    virtual ~WindowCountBadger() = default;
    /// Once, when the engine is ready to be asked. It outlives the badges, or tearDown() comes
    /// before its end.
    virtual void setUp(WindowCounts& counts) = 0;
    /// Takes all badges away, for good.
    virtual void tearDown() = 0;

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

} // namespace lumbrix
