// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The least that any program can do to see windows: copy their pixels through shared memory.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSize>

#include <chrono>
#include <vector>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

/// Names the pixmaps of the windows' frames once and owns one segment that all are copied into,
/// one after the other. A compositor must run. Main thread.
class BareCopy
{
public:
    BareCopy(const QByteArray& display, const std::vector<xcb_window_t>& windows, QSize size);
    ~BareCopy();
    BareCopy(const BareCopy&) = delete;
    BareCopy& operator=(const BareCopy&) = delete;

    /// Copies `size` pixels of each once; how long all took.
    std::chrono::nanoseconds copyAll();

private:
    xcb_connection_t* m_connection = nullptr;
    QSize m_size;
    std::vector<xcb_pixmap_t> m_pixmaps;
    xcb_shm_seg_t m_segment = XCB_NONE;
    void* m_memory = nullptr;
};

} // namespace lumbrix::bench
