// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The desktop that a storm blows over: what can go wrong on it, and how it is put right.
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Dock.h"
#include "Session.h"
#include "support/Crowd.h"

namespace lumbrix::bench
{

/// Something that goes wrong for a while.
struct Fault {
    std::string name;
    std::function<void()> begin;
    std::function<void()> end;
    /// The window manager does not answer meanwhile, so that windows cannot be opened or raised.
    bool isWithoutManager = false;
    /// The mouse or the server is held up, so that it cannot be said where panels belong.
    bool isBlind = false;
};

/// Main thread.
class Weather
{
public:
    explicit Weather(std::mt19937& random);

    privatedesk::Session& session() { return m_session; }
    Crowd& crowd() { return m_crowd; }
    const std::vector<Fault>& faults() const { return m_faults; }

    /// Away from docks and previews.
    void park();
    /// Moves to the application's icon; false where the dock shows none within three seconds.
    bool moveTo(const privatedesk::Application& application);
    /// Anywhere on the screen.
    QPoint anywhere();

private:
    void addDockFaults();
    void addSessionFaults();
    void addScreenFaults();
    void changeDock();

    privatedesk::Session m_session;
    Crowd m_crowd;
    std::unique_ptr<privatedesk::Dock> m_dock;
    std::vector<Fault> m_faults;
};

} // namespace lumbrix::bench
