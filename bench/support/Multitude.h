// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hundreds of windows of dozens of applications, opened together, as a person has them who never
// closes anything.
#pragma once

#include <QtCore/QSize>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

#include "Session.h"

namespace lumbrix::bench
{

/// Main thread. The session outlives it.
class Multitude
{
public:
    /// Installs so many applications, each with a desktop entry of its own, and starts none.
    Multitude(privatedesk::Session& session, int applications);

    /// The desktop entries, for a dock to pin.
    QStringList entries() const { return m_entries; }
    /// Starts all applications, a process each, and opens so many windows of all together; waits
    /// until the window manager lists them.
    void open(int windows, QSize size);
    const std::vector<xcb_window_t>& windows() const { return m_windows; }

private:
    privatedesk::Session& m_session;
    QStringList m_names;
    QStringList m_entries;
    std::vector<std::unique_ptr<privatedesk::Process>> m_processes;
    std::vector<xcb_window_t> m_windows;
};

/// Panels of buttons, as many as wanted at the upper and the lower edge of the screen, that tell
/// each window where its button is. Main thread; go with their owner.
class Panels
{
public:
    /// Waits until the window manager has them in their places.
    Panels(privatedesk::Display& display, int count);
    ~Panels();
    Panels(const Panels&) = delete;
    Panels& operator=(const Panels&) = delete;

    static constexpr int buttonsEach = 12;
    /// Gives these windows the button of that number, the first panel's first.
    void place(int button, const std::vector<xcb_window_t>& windows);
    QPoint centreOf(int button) const { return rectOf(button).center(); }

private:
    QRect panelRect(int panel) const;
    QRect rectOf(int button) const;

    privatedesk::Display& m_display;
    int m_perEdge;
    std::vector<xcb_window_t> m_panels;
};

} // namespace lumbrix::bench
