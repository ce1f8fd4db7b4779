// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A desktop with one terminal full of coloured text, and the adapter that captures it.
#pragma once

#include <QtGui/QImage>

#include <memory>

#include "Dock.h"
#include "Session.h"
#include "platform/WindowServer.h"
#include "platform/linux/x11/X11Core.h"
#include "platform/qt/QtRunLoop.h"

namespace lumbrix::bench
{

/// Main thread.
class TerminalDesk
{
public:
    TerminalDesk();
    ~TerminalDesk();

    privatedesk::Display& display() { return m_session.display(); }
    xcb_window_t window() const { return m_window; }
    platform::WindowServer& windowServer();
    std::uint64_t copyCount();
    /// Has a corner of the terminal painted by somebody else, as it is, and waits until that is
    /// done.
    void draw(QSize size);

    /// The terminal as the adapter captures it, once its text is complete.
    QImage capture();
    /// Whether the screen shows the same there, the rounded corners of the frame left out.
    bool isOnScreen(const QImage& picture);
    /// Starts Lumbrix, rests the pointer on the terminal's icon in the dock, and returns what the
    /// screen shows of the panel; null when no panel comes.
    QImage preview();

private:
    privatedesk::Session m_session;
    std::unique_ptr<privatedesk::Dock> m_dock;
    std::unique_ptr<privatedesk::Process> m_terminal;
    std::unique_ptr<privatedesk::Process> m_lumbrix;
    xcb_window_t m_window = XCB_NONE;
    QString m_entry;
    platform::QtRunLoop m_runLoop;
    std::unique_ptr<platform::x11::X11Core> m_core;
};

} // namespace lumbrix::bench
