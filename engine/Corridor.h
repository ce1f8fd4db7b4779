// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The way from an icon to its row, which may lead over other icons.
#pragma once

#include <functional>

#include "engine/EngineContext.h"

namespace lumbrix
{

/// A row stays while the mouse is on its way to it; icons that are hovered meanwhile have to wait.
/// Main thread.
class Corridor
{
public:
    explicit Corridor(const EngineContext& context) : m(context) {}

    /// Whether a row is up, not the switcher's, and the mouse heads for its previews, resting for a
    /// moment at most. Never where the user does not want it, or the desktop does not tell the
    /// mouse's ways.
    bool leadsToRow() const;
    /// The same of a mouse that is on no icon and so means none: the gap beside the row will do.
    bool leadsNearRow() const;
    /// Does a moment later what is wanted when the mouse is elsewhere; not if anything else is
    /// hovered before.
    void waitAndThen(std::function<void()> action) const;
    /// Does it at once where the mouse is not on its way to the row, else as soon as it is no more.
    void passAndThen(const std::function<void()>& action) const;

private:
    /// Whether it heads for the row grown by so much on each side, points.
    bool heads(double margin) const;

    const EngineContext m;
};

} // namespace lumbrix
