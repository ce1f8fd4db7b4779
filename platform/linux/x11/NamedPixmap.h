// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pixmap that holds what a window looks like, kept by a name of our own.
#pragma once

#include <QtCore/QSize>

#include <xcb/xcb.h>

namespace lumbrix::platform::x11
{

class Connection;

/// A named pixmap outlives the unmapping of its window, and the window. One thread at a time.
class NamedPixmap
{
public:
    /// The connection outlives this and has no event thread.
    explicit NamedPixmap(const Connection& connection) : m_connection(connection) {}
    ~NamedPixmap();
    NamedPixmap(const NamedPixmap&) = delete;
    NamedPixmap& operator=(const NamedPixmap&) = delete;

    /// Has this frame redirected by us (XCB_NONE: none, as a compositor does it). True when that
    /// changed something, so that the window may have another pixmap.
    bool redirect(xcb_window_t frame);
    /// Takes the pixmap that the frame has now, in place of the former one; false, and the former
    /// one stays, when it has none: it is not mapped.
    bool name(xcb_window_t frame);
    void release(); ///< the pixmap; the server frees it unless others hold it

    xcb_pixmap_t id() const { return m_id; } ///< XCB_NONE: none
    QSize size() const { return m_size; }
    int depth() const { return m_depth; }
    int border() const { return m_border; } ///< of the frame; the pixmap begins outside of it

private:
    const Connection& m_connection;
    xcb_window_t m_redirected = XCB_NONE;
    xcb_pixmap_t m_id = XCB_NONE;
    QSize m_size;
    int m_depth = 0;
    int m_border = 0;
};

} // namespace lumbrix::platform::x11
