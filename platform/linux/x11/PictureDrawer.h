// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Draws small pictures of pixmaps onto windows, on the server's side.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>

#include <xcb/render.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdint>

#include "platform/WindowServer.h"

namespace lumbrix::platform::x11
{

class PixelSampler;

/// A burst of drawings, which is sent when this goes. By the RENDER extension, without waiting:
/// what fails, as pixmaps and windows may go at any time, is not heard of. One thread at a time.
class PictureDrawer
{
public:
    /// What is remembered from one burst to the next; all on the same connection.
    struct State {
        bool isPrepared = false; ///< the connection knows the DAMAGE extension
        bool isProven = false;   ///< something was drawn, so the server can
        int ignored = 0;         ///< requests whose failures may still come
    };

    /// All of it outlives this.
    PictureDrawer(const PixelSampler& formats, xcb_connection_t* connection, xcb_window_t root,
                  State& state);
    ~PictureDrawer();
    PictureDrawer(const PictureDrawer&) = delete;
    PictureDrawer& operator=(const PictureDrawer&) = delete;

    xcb_connection_t* connection() const { return m_connection; }
    /// Draws this part of a pixmap, made of so many of its pixels, spread evenly. False: the server
    /// cannot. Until one was drawn that is waited for.
    bool draw(xcb_pixmap_t pixmap, int depth, const QRect& part, QSize samples,
              const PictureSurface& surface);

private:
    /// A picture on the server that is used again and again on the way from one to the other.
    struct Scratch {
        xcb_pixmap_t pixmap = XCB_NONE;
        xcb_render_picture_t picture = XCB_NONE;
        QSize size;
    };

    xcb_render_picture_t scratch(Scratch& scratch, QSize size) const;
    void release(const Scratch& scratch) const;
    /// From the top left corner of one to that of the other, scaled smoothly.
    void shrink(xcb_render_picture_t from, QSize size, xcb_render_picture_t to, QPoint place,
                QSize target) const;
    void ignoreFailure(xcb_void_cookie_t cookie);

    const PixelSampler& m_formats;
    xcb_connection_t* const m_connection;
    const xcb_window_t m_root;
    State& m_state;
    Scratch m_samples;
    Scratch m_halved;
};

} // namespace lumbrix::platform::x11
