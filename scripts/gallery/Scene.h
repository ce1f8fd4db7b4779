// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A private desktop with programs that people use, for the pictures and the film of the README.
#pragma once

#include <QtGui/QImage>

#include <functional>
#include <memory>
#include <vector>

#include "Dock.h"
#include "Lumbrix.h"
#include "RealPlayer.h"
#include "Session.h"

namespace lumbrix::privatedesk
{

/// Hills at dusk, in few colours.
QImage hills(QSize size);

/// Three terminals, a music player that plays, a calculator and a clock above Plank. Main thread.
class Scene
{
public:
    explicit Scene(QSize size);

    Session& session() { return m_session; }
    Display& display() { return m_session.display(); }
    /// Lumbrix with the settings of a user who has changed only these.
    void startLumbrix(const Settings& changed = {});

    QPoint terminalIcon() { return iconOf(m_terminal); }
    QPoint playerIcon() { return iconOf(m_player->entry()); }
    RealPlayer& player() { return *m_player; }
    /// Where the pointer is in nobody's way.
    QPoint rest() { return {display().size().width() / 2, display().size().height() / 2}; }

    /// The middle of the preview with this title; waits for it.
    QPoint preview(const QByteArray& title);
    /// Says on standard error what was waited for in vain.
    void wait(const char* what, const std::function<bool()>& condition);
    bool isZoomed();
    /// The screen with the pointer, which a server's picture of it is without.
    QImage look(const QRect& area);
    QImage look() { return look(QRect(QPoint(), display().size())); }
    /// Until nothing but what is alive by itself has changed for a moment.
    void settle();

private:
    QPoint iconOf(const QString& entry);
    QString install(const QString& identifier, const QByteArray& name, const QByteArray& icon,
                    const QByteArray& windowClass);
    void startPlayer();
    void startTerminal(const QString& title, const QString& place, const QString& background,
                       const QString& script);

    Session m_session;
    QString m_terminal;
    std::unique_ptr<Dock> m_dock;
    std::vector<std::unique_ptr<Process>> m_programs;
    std::unique_ptr<RealPlayer> m_player;
    std::unique_ptr<Process> m_lumbrix;
};

} // namespace lumbrix::privatedesk
