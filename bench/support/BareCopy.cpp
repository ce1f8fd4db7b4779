// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/BareCopy.h"

#include <QtCore/QtGlobal>

#include <cstdlib>
#include <cstring>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/composite.h>

namespace lumbrix::bench
{

namespace
{

/// The child of the root that a window manager put the window in.
xcb_window_t frameOf(xcb_connection_t* connection, xcb_window_t window)
{
    for (;;) {
        auto* tree = xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr);
        if (!tree || tree->parent == tree->root) {
            std::free(tree);
            return window;
        }
        window = tree->parent;
        std::free(tree);
    }
}

} // namespace

BareCopy::BareCopy(const QByteArray& display, const std::vector<xcb_window_t>& windows, QSize size)
    : m_size(size)
{
    m_connection = xcb_connect(display.constData(), nullptr);
    if (xcb_connection_has_error(m_connection))
        qFatal("no X server at %s", display.constData());
    std::free(xcb_composite_query_version_reply(
        m_connection, xcb_composite_query_version(m_connection, 0, 4), nullptr));
    for (const xcb_window_t window : windows) {
        m_pixmaps.push_back(xcb_generate_id(m_connection));
        xcb_composite_name_window_pixmap(m_connection, frameOf(m_connection, window),
                                         m_pixmaps.back());
    }
    const auto bytes = static_cast<std::size_t>(size.width()) * size.height() * 4;
    const int id = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    m_memory = shmat(id, nullptr, 0);
    m_segment = xcb_generate_id(m_connection);
    std::free(
        xcb_request_check(m_connection, xcb_shm_attach_checked(m_connection, m_segment,
                                                               static_cast<std::uint32_t>(id), 0)));
    shmctl(id, IPC_RMID, nullptr);
    std::memset(m_memory, 1, bytes); // as warm as a program's would be
}

BareCopy::~BareCopy()
{
    xcb_disconnect(m_connection);
    shmdt(m_memory);
}

std::chrono::nanoseconds BareCopy::copyAll()
{
    const auto start = std::chrono::steady_clock::now();
    for (const xcb_pixmap_t pixmap : m_pixmaps) {
        const auto cookie = xcb_shm_get_image(m_connection, pixmap, 0, 0,
                                              static_cast<std::uint16_t>(m_size.width()),
                                              static_cast<std::uint16_t>(m_size.height()), ~0U,
                                              XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment, 0);
        auto* reply = xcb_shm_get_image_reply(m_connection, cookie, nullptr);
        if (!reply)
            qFatal("a window's picture could not be copied");
        std::free(reply);
    }
    return std::chrono::steady_clock::now() - start;
}

} // namespace lumbrix::bench
