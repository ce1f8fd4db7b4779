// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The desktop that a storm blows over: what can go wrong on it, and how it is put right.
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "Dock.h"
#include "FontSettings.h"
#include "Session.h"
#include "storm/Companions.h"
#include "storm/Fault.h"
#include "support/Crowd.h"

namespace lumbrix::bench
{

/// Main thread.
class Weather
{
public:
    explicit Weather(std::mt19937& random);

    privatedesk::Session& session() { return m_session; }
    Crowd& crowd() { return m_crowd; }
    Companions& companions() { return m_companions; }
    const std::vector<Fault>& faults() const { return m_faults; }

    /// Away from docks and previews.
    void park();
    /// Moves to the application's icon; false where the dock shows none within three seconds.
    bool moveTo(const privatedesk::Application& application);
    /// Kills the session's bus, starts all anew that ends with it, and a dock that needs none.
    void replaceBus();
    /// Anywhere on the screen.
    QPoint anywhere();

private:
    void addDockFaults();
    void addSessionFaults();
    void addWindowFaults();
    void addScreenFaults();
    void changeDock();
    /// Stops a client of the server, but never while it has the server to itself, as it would stop
    /// everybody then. `signal` sends it a signal.
    void stopClient(const std::function<void(int)>& signal);
    bool doesServerAnswer();

    privatedesk::Session m_session;
    privatedesk::FontSettings m_fonts{m_session.display()};
    Crowd m_crowd;
    Companions m_companions{m_session};
    std::unique_ptr<privatedesk::Dock> m_dock;
    std::vector<Fault> m_faults;
};

} // namespace lumbrix::bench
