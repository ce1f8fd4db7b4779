// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "platform/Desktop.h"
#include "preview/HelpBubble.h"
#include "preview/OverlayWindow.h"

namespace lumbrix
{

/// Draws the bubble around the row while the setting shouldBubbleWrap is on. Creates the panel on
/// first use.
class BubbleWrapper final : public HelpBubble
{
public:
    /// The ports must outlive it.
    explicit BubbleWrapper(const platform::Desktop& ports) : m_ports(ports) {}

    bool shouldBubbleWrap() const { return m_shouldBubbleWrap; }
    void setShouldBubbleWrap(bool on) override;
    void positionAndShowBubble(const std::vector<ScreenyViewPtr>& row) override;
    void hideBubble() override;
    OverlayWindow* bubble() const { return m_bubble.get(); } ///< null until first needed

private:
    const platform::Desktop& m_ports;
    std::unique_ptr<OverlayWindow> m_bubble;
    bool m_shouldBubbleWrap = false;
};

} // namespace lumbrix
