// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A private desktop session: an X server, a message bus, a window manager and a home directory that
// nobody else uses.
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtGui/QColor>

#include <memory>
#include <vector>

#include "Display.h"
#include "Process.h"
#include "Server.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

enum class WindowManager { Xfwm4, Openbox, Marco, KWin, Absent };

struct SessionOptions {
    QSize size{1280, 1024};
    WindowManager windowManager = WindowManager::Xfwm4;
    bool compositor = true;     ///< the window manager's own; Openbox has none
    bool accessibility = false; ///< programs tell assistive technology what they show
    int scale = 1;              ///< how much larger the toolkits are told to draw
    bool picom = false;         ///< that compositor, and none of the window manager's own
    /// Instead of one of that size; the first one is the primary one.
    std::vector<Monitor> monitors{};
    QString withoutExtension{}; ///< one that the X server is to do without
};

/// Main thread. Everything started here ends with it, in the reverse order.
class Session
{
public:
    explicit Session(const SessionOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const SessionOptions& options() const { return m_options; }
    Display& display() { return *m_display; }

    QString path(const QString& relative) const; ///< inside the session's home, parent made
    QString configPath(const QString& relative) const { return path(u".config/"_s + relative); }
    QString dataPath(const QString& relative) const { return path(u".local/share/"_s + relative); }
    QString busAddress() const { return m_busAddress; }
    Process& windowManager() { return *m_windowManager; }
    /// Ends it, if it runs, and starts it with its compositor again.
    void restartWindowManager();
    Process& bus() { return *m_bus; }
    /// Ends it, if it runs, and starts it at the same address again.
    void restartBus();
    Process& server() { return *m_server.process; }
    QStringList environment() const { return m_environment; }

    /// Starts a program inside the session; its output goes to the log of the given name.
    std::unique_ptr<Process> start(const QString& logName, const QString& program,
                                   const QStringList& arguments = {}, bool pipes = false);
    void write(const QString& path, const QByteArray& content) const;
    /// Has these monitors on, the first one as the primary one, and all others off; the desktop
    /// begins where the leftmost and the topmost do. Only where the session was given monitors.
    void setMonitors(const std::vector<Monitor>& monitors);
    /// Never empty; the primary one first.
    const std::vector<Monitor>& monitors() const { return m_monitors; }
    /// Of the primary one when there is none of that name.
    QRect monitorArea(const QString& name) const;
    /// Adds to what programs that use GSettings read: groups of keys, as in a key file.
    void addSettings(const QByteArray& groups);
    /// Makes an application known to the desktop: a desktop entry and a plain icon. Returns the
    /// entry's path.
    QString installApplication(const QString& identifier, const QString& name,
                               const QString& windowClass, const QString& command,
                               const QColor& colour);
    /// What every program has written so far, for a failed test.
    QString logs() const;
    QString log(const QString& name) const;

private:
    void startServer();
    void startBus();
    void launchBus();
    void startWindowManager();

    SessionOptions m_options;
    QTemporaryDir m_directory;
    QStringList m_environment;
    QString m_busAddress;
    QByteArray m_settings;
    Server m_server;
    std::vector<Monitor> m_monitors;
    std::unique_ptr<Display> m_display;
    std::unique_ptr<Process> m_bus;
    std::unique_ptr<Process> m_windowManager;
    std::unique_ptr<Process> m_compositor; ///< one that is no window manager
};

} // namespace lumbrix::privatedesk
