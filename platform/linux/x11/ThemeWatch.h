// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The name of the theme that the desktop's settings daemon tells every program.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

#include <functional>
#include <mutex>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"

namespace lumbrix::platform::x11
{

/// The theme in what such a daemon has written, of either byte order; null where none is told, or
/// what it wrote is broken before that.
QString themeNameIn(QByteArrayView settings);

class ThemeWatch final : public EventHandler
{
public:
    /// Before the event thread starts.
    ThemeWatch(const Connection& connection, const Atoms& atoms);

    /// Any thread; null while there is no daemon, or it tells none.
    QString themeName() const;
    /// What to call on the event thread when that changed; nothing to call any more is called once
    /// this has returned.
    void setChanged(std::function<void()> changed);

    void handleEvent(const xcb_generic_event_t& event) override;

private:
    void follow(xcb_window_t daemon);
    void read();

    const Connection& m_connection;
    const xcb_atom_t m_selection;
    const xcb_atom_t m_property;
    xcb_window_t m_daemon = XCB_NONE; ///< event thread
    mutable std::mutex m_mutex;
    QString m_name;                  // guarded by m_mutex
    std::function<void()> m_changed; // guarded by m_mutex
};

} // namespace lumbrix::platform::x11
