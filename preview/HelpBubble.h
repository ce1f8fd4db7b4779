// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

namespace lumbrix
{

class ScreenyView;
using ScreenyViewPtr = std::shared_ptr<ScreenyView>;

/// The translucent shape behind the row of previews. Main thread.
class HelpBubble
{
public:
    virtual ~HelpBubble() = default;
    virtual void setShouldBubbleWrap(bool on) = 0;
    /// Must be called after every arrangement of the row.
    virtual void positionAndShowBubble(const std::vector<ScreenyViewPtr>& row) = 0;
    virtual void hideBubble() = 0;
};

} // namespace lumbrix
