// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A media player that people use, playing two songs that we have made.
#pragma once

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>
#include <QtGui/QImage>

#include <memory>
#include <optional>

#include "Session.h"

namespace lumbrix::privatedesk
{

/// Writes one minute of a tone as a sound file with these names inside.
void writeSong(const QString& path, const QByteArray& artist, const QByteArray& title, int hertz);

/// Main thread. The songs are "Ann - First Song" and "Bob - Second Song"; beside them lies a cover
/// picture, red unless another is given. The player ends with this.
class RealPlayer
{
public:
    /// Null when the program is not installed.
    static std::unique_ptr<RealPlayer> audacious(Session& session, const QImage& cover = {});
    ~RealPlayer();

    /// Its desktop entry.
    QString entry() const;
    /// Its main window, once it is there.
    std::optional<xcb_window_t> window();
    /// As it says itself: "Playing", "Paused", "Stopped", or nothing.
    QString state();
    QString title(); ///< of its track

private:
    RealPlayer(Session& session, const QString& name, const QImage& cover = {});
    QVariant property(const QString& name);

    Session& m_session;
    const QString m_name;
    QTemporaryDir m_folder;
    QDBusConnection m_bus;
    std::unique_ptr<Process> m_process;
};

} // namespace lumbrix::privatedesk
