// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

#include "platform/StringLiterals.h"
#include "tests/support/ForwardingPorts.h"
#include "tests/support/SimulatedDesktop.h"
#include "tests/support/VirtualRunLoop.h"

/// Found by the test framework, which prints strings as their bytes otherwise.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace lumbrix::test
{

/// A test on the simulated desktop, under virtual time. A derived fixture whose objects use threads
/// calls loop.shutdown() before they go.
class DesktopFixture : public testing::Test
{
protected:
    DesktopFixture() { install(desk.accessibility(), desk.windowServer()); }
    ~DesktopFixture() override { loop.shutdown(); }

    /// Puts other ports, such as ones that fail, in the place of the desktop's own.
    void install(platform::Accessibility& accessibility, platform::WindowServer& windowServer)
    {
        m_scope.reset();
        m_desktop.emplace(desk.ports(accessibility, windowServer));
        m_scope.emplace(*m_desktop);
    }

    /// What the desktop is to the program; those that were installed last.
    const platform::Desktop& ports() const { return *m_desktop; }

    /// An application with as many windows, titled "<name> 1", "<name> 2" ..., each a little lower.
    Pid addApplication(const QString& name, int windows = 0)
    {
        const Pid pid = desk.addApplication({name});
        for (int i = 1; i <= windows; ++i)
            desk.addWindow(pid,
                           {u"%1 %2"_s.arg(name).arg(i), QRectF(100, 40.0 + 20 * i, 400, 300)});
        return pid;
    }

    void hover(const QString& item)
    {
        desk.hoverDockItem(item);
        loop.runUntilIdle();
    }
    /// And lets so much time pass.
    void leave(platform::Seconds after = 0)
    {
        desk.leaveDock();
        loop.runUntilIdle();
        loop.advance(after);
    }

    VirtualRunLoop loop;
    SimulatedDesktop desk{loop};

private:
    std::optional<platform::Desktop> m_desktop;
    std::optional<platform::DesktopScope> m_scope;
};

} // namespace lumbrix::test
