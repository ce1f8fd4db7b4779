// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Takes some of a drawable's pixels, on the server's side.
#pragma once

#include <QtCore/QRect>

#include <xcb/render.h>
#include <xcb/xcb.h>

namespace lumbrix::platform::x11
{

class Connection;

/// By the RENDER extension: one request, however many pixels. Any thread.
class PixelSampler
{
public:
    /// Asks the server, and waits. The connection outlives this.
    explicit PixelSampler(const Connection& connection);

    /// Whether the server can, of drawables of this depth.
    bool canSample(int depth) const { return formatOf(depth) != XCB_NONE; }
    /// Fills the target, which is of this size and of the same depth, with pixels that are spread
    /// evenly over `rect`: the middle ones of as many parts. The cookie is one to check.
    xcb_void_cookie_t sample(xcb_drawable_t drawable, const QRect& rect, int depth,
                             xcb_drawable_t target, QSize size) const;

    /// On the server, for pixels of so many bits; XCB_NONE: it has none, or lacks the extension.
    xcb_render_pictformat_t formatOf(int depth) const;
    /// What has a picture of a drawable show `rect` of it in this size.
    static xcb_render_transform_t transformTo(QSize size, const QRect& rect);

private:
    const Connection& m_connection;
    xcb_render_pictformat_t m_opaque = XCB_NONE;
    xcb_render_pictformat_t m_translucent = XCB_NONE;
};

} // namespace lumbrix::platform::x11
