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
    /// Each is previewed as one.
    const std::vector<std::unique_ptr<privatedesk::Application>>& applications() const
    {
        return m_applications;
    }
    std::vector<Fault> faults();

private:
    struct Server {
        const char* service;
        std::unique_ptr<privatedesk::Process> process;
    };

    void startServer(Server& server);
    /// To the processes of this session's accessibility bus, which the session's bus starts when
    /// somebody asks for it.
    void signalAccessibility(int number) const;

    privatedesk::Session& m_session;
    std::vector<std::unique_ptr<privatedesk::Application>> m_applications;
    Server m_player{playerService, nullptr};
    Server m_calendar{calendarService, nullptr};
};

} // namespace lumbrix::bench
