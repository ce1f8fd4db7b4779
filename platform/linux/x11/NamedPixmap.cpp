// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/NamedPixmap.h"

#include "platform/linux/x11/Connection.h"

#include <xcb/composite.h>

namespace lumbrix::platform::x11
{

NamedPixmap::~NamedPixmap()
{
    if (m_id)
        xcb_free_pixmap(m_connection.get(), m_id);
    if (m_redirected)
        xcb_composite_unredirect_window(m_connection.get(), m_redirected,
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    m_connection.flush();
}

bool NamedPixmap::redirect(xcb_window_t frame)
{
    if (m_redirected == frame)
        return false;
    if (m_redirected)
        xcb_composite_unredirect_window(m_connection.get(), m_redirected,
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    if (frame)
        xcb_composite_redirect_window(m_connection.get(), frame, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    m_redirected = frame;
    return true;
}

bool NamedPixmap::name(xcb_window_t frame)
{
    xcb_connection_t* c = m_connection.get();
    const xcb_pixmap_t pixmap = m_connection.newId();
    xcb_composite_name_window_pixmap(c, frame, pixmap);
    const auto ofPixmap = xcb_get_geometry(c, pixmap);
    const auto ofFrame = xcb_get_geometry(c, frame);
    const auto geometry = m_connection.reply(xcb_get_geometry_reply, ofPixmap);
    const auto outer = m_connection.reply(xcb_get_geometry_reply, ofFrame);
    if (!geometry)
        return false;
    release();
    m_id = pixmap;
    m_size = QSize(geometry->width, geometry->height);
    m_depth = geometry->depth;
    m_border = outer ? outer->border_width : 0;
    return true;
}

void NamedPixmap::release()
{
    if (m_id)
        xcb_free_pixmap(m_connection.get(), m_id);
    m_id = XCB_NONE;
    m_connection.flush();
}

} // namespace lumbrix::platform::x11
