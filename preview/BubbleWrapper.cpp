// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/BubbleWrapper.h"

#include <algorithm>

#include "model/PreviewLayout.h"
#include "model/UIElementUtilities.h"
#include "platform/WindowServer.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{
namespace
{

struct Edges {
    float left;
    float bottom;
    float right;
    float top;
};

Edges edgesOf(const ScreenyView& preview)
{
    const QRectF frame = preview.window()->frame();
    return {static_cast<float>(frame.x()), static_cast<float>(frame.y()),
            static_cast<float>(frame.x() + frame.width()),
            static_cast<float>(frame.y() + frame.height())};
}

/// The frame around the visible part of the previews, not around their panels: the panels have
/// wider margins on the left and at the top, where the close button sticks out, than on the right.
QRectF frameAround(const ScreenyView& first, const ScreenyView& last)
{
    const Edges a = edgesOf(first);
    const Edges b = edgesOf(last);
    const float left = std::min(a.left, b.left);
    const float bottom = std::min(a.bottom, b.bottom);
    const float width = std::max(a.right, b.right) - left + 8;
    const float height = std::max(a.top, b.top) - bottom + 1;
    return {left + 1, bottom - 2, width, height};
}

/// The part of the frame on the screen that contains most of it: for a row as long as the screen,
/// the rest would be on the next screen.
QRectF onOneScreen(const QRectF& frame, const platform::Desktop& ports)
{
    const UIElementUtilities utilities(ports);
    const QRectF bounds = utilities.flippedScreenBounds(frame);
    const QRectF screen = PreviewLayout::screenOfIcon(bounds, ports.windowServer.screens());
    return bounds.intersects(screen) ? utilities.flippedScreenBounds(bounds & screen) : frame;
}

} // namespace

void BubbleWrapper::setShouldBubbleWrap(bool on)
{
    m_shouldBubbleWrap = on;
    if (!on)
        hideBubble();
}

void BubbleWrapper::positionAndShowBubble(const std::vector<ScreenyViewPtr>& row)
{
    if (!m_shouldBubbleWrap)
        return;
    if (row.empty()) {
        hideBubble();
        return;
    }
    if (!m_bubble)
        m_bubble = OverlayWindow::load(m_ports);
    if (!m_bubble)
        return;
    m_bubble->window().setOverlayColor(row.front()->bubbleColor());
    // The row runs in one direction, so its first and last preview give its extent.
    m_bubble->window().setFrameWithAnimate(
        onOneScreen(frameAround(*row.front(), *row.back()), m_ports));
    m_bubble->orderFront();
}

void BubbleWrapper::hideBubble()
{
    if (m_bubble)
        m_bubble->dismiss();
}

} // namespace lumbrix
