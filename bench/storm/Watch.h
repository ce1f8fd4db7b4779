// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What must hold of the program whatever happens around it, seen from outside.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>

#include "Display.h"
#include "Process.h"

namespace lumbrix::bench
{

/// Main thread. All of it outlives the watch. There may be no program for a while.
class Watch
{
public:
    static constexpr int stray = 3000; ///< milliseconds that a panel may stay without the mouse

    Watch(privatedesk::Display& display, const std::unique_ptr<privatedesk::Process>& lumbrix);

    /// To be called all the time: the program lives, and no panel of it stays while the mouse is
    /// neither on one, nor near one, nor on a dock.
    void look();
    /// Waits with open eyes.
    void wait(std::chrono::milliseconds time);
    /// While a program that stands between us and the mouse does not run, nobody can tell.
    void setBlind(bool on);
    /// With the mouse parked: the row goes, and then no key or pointer is taken, the keyboard's
    /// focus is not in the program, and no window of it lies anywhere. `after` names what was done
    /// before, for the report.
    void expectRest(const std::string& after);
    void wrong(const std::string& what);
    /// What was wrong, and how often.
    const std::map<std::string, int>& wrongs() const { return m_wrongs; }

private:
    using Clock = std::chrono::steady_clock;

    /// `panels` are all there are.
    bool isMouseElsewhere(const std::vector<privatedesk::Panel>& panels);
    bool hasNoWindow();
    bool hasFocus();
    /// Whether another client could grab it all now. Nothing stays grabbed.
    bool isInputFree();

    privatedesk::Display& m_display;
    const std::unique_ptr<privatedesk::Process>& m_lumbrix;
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_lookedAt = Clock::now();
    Clock::time_point m_inOrderAt = Clock::now(); ///< no panel was where it should not be
    bool m_isBlind = false;
    bool m_isReported = false;
    std::map<std::string, int> m_wrongs;
};

} // namespace lumbrix::bench
