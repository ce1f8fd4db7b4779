// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What runs beside the crowd and is asked over buses: a media player and a calendar, each with a
// window and a service, and the accessibility bus.
#pragma once

#include <memory>
#include <vector>

#include "Application.h"
#include "Session.h"
#include "storm/Fault.h"
#include "storm/Service.h"

namespace lumbrix::bench
{

/// Main thread. The session outlives it.
class Companions
{
public:
    /// Installs the applications and starts none.
    explicit Companions(privatedesk::Session& session);

    QStringList entries() const; ///< to pin, too
    void start();
    /// The player and the calendar.
    const std::vector<std::unique_ptr<privatedesk::Application>>& applications() const
    {
        return m_applications;
    }
    /// Whether the only preview is this one's, and shows what its service tells now: the song with
    /// its picture, or the events of today.
    bool isShown(const privatedesk::Application& application);
    /// Prints what its service tells.
    void describe(const privatedesk::Application& application) const;
    std::vector<Fault> faults();

private:
    struct Server {
        const char* service;
        std::unique_ptr<privatedesk::Process> process;
        int number = 0; ///< tells something new each time it starts
    };

    void startServer(Server& server);
    /// To the processes of this session's accessibility bus, which the session's bus starts when
    /// somebody asks for it.
    void signalAccessibility(int number) const;
    QString home() const;

    privatedesk::Session& m_session;
    std::vector<std::unique_ptr<privatedesk::Application>> m_applications;
    Server m_player{playerService, nullptr};
    Server m_calendar{calendarService, nullptr};
};

} // namespace lumbrix::bench
