// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The edges of a screen that a dock can be at.
#pragma once

namespace lumbrix::platform
{

enum class DockEdge { Left, Right, Top, Bottom };

/// Whether the items of a dock at that edge stand side by side, not one below the other.
inline bool isHorizontal(DockEdge edge)
{
    return edge == DockEdge::Top || edge == DockEdge::Bottom;
}

} // namespace lumbrix::platform
