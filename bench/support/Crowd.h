// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Six applications whose windows open, close, move and change at random, as on a busy desktop, and
// whether their previews show them as they are.
#pragma once

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Application.h"
#include "Session.h"

namespace lumbrix::bench
{

/// Main thread. The session and the random numbers outlive it.
class Crowd
{
public:
    /// Installs the applications and starts none.
    Crowd(privatedesk::Session& session, std::mt19937& random);

    /// The desktop entries, for a dock to pin.
    QStringList entries() const;
    /// Starts all applications and opens windows up to `windows` of all together, which it keeps
    /// to.
    void start(std::size_t windows);
    privatedesk::Application& any();
    /// Ends an application as a crash would, and starts it anew with one window.
    void replaceAny();
    /// Changes one window, or how many there are.
    void change(privatedesk::Application& application);
    std::size_t countWindows() const;
    /// What was changed, and how often.
    const std::map<std::string, int>& kinds() const { return m_kinds; }

    /// Whether exactly this application's windows are previewed, each with its title and its
    /// present colour.
    bool isShown(const privatedesk::Application& application);
    /// Prints what is previewed instead.
    void describe(const privatedesk::Application& application);

    /// From 0 to count - 1. The same for a seed everywhere, unlike the library's distributions.
    int pick(std::size_t count) { return static_cast<int>(m_random() % count); }

private:
    void open(privatedesk::Application& application);
    bool isShown(const privatedesk::AppWindow& window,
                 const std::vector<privatedesk::Panel>& shown);
    QColor anyColour() { return QColor::fromHsv(pick(360), 255, 230); }
    QByteArray anyTitle() { return "window " + QByteArray::number(++m_serial); }
    QPoint anyPlace();
    QSize anySize() { return {300 + pick(500), 200 + pick(300)}; }

    privatedesk::Session& m_session;
    privatedesk::Display& m_display;
    std::mt19937& m_random;
    std::vector<std::unique_ptr<privatedesk::Application>> m_applications;
    std::map<std::string, int> m_kinds;
    std::size_t m_windows = 0; ///< wanted
    int m_serial = 0;
};

} // namespace lumbrix::bench
