// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A simulated desktop whose applications and windows come, go and change by chance.
#pragma once

#include "bench/soak_simulated/Chance.h"
#include "tests/support/SimulatedDesktop.h"
#include "tests/support/VirtualRunLoop.h"

namespace lumbrix::bench
{

using platform::DockEdge;
using test::Pid;
using test::SimulatedApplication;
using test::SimulatedDockItem;
using test::SimulatedState;
using test::SimulatedWindow;
using test::WindowID;

/// 40 applications with 200 windows, no two of which look alike: one has a quarter of all windows,
/// more than are ever previewed. Installed for its lifetime.
class BusyDesktop
{
public:
    explicit BusyDesktop(Chance& chance);

    void change() { m_chance.doOneOf(m_changes); }
    const Kinds& changes() const { return m_changes; }

    SimulatedApplication anyApplication();
    SimulatedApplication fullApplication(); ///< the one with the most windows
    std::vector<WindowID> minimized();
    /// Of all pictures that the windows have been asked for.
    long pictureBytes();

    const platform::Desktop& ports() const { return m_ports; }

    test::VirtualRunLoop loop;
    test::SimulatedDesktop desk{loop};

private:
    void launch();
    void quit();
    void open();
    void close();
    void minimize();
    void showAnotherSpace() { desk.showSpace(1 + m_chance.pick(4)); }
    void changeAny(const std::function<void(SimulatedWindow&)>& change);
    QRectF anyFrame();
    QColor anyColor() { return QColor::fromHsv(m_chance.pick(360), 200, 200); }
    QString newName(const QString& kind) { return kind + QString::number(m_serial++); }

    Chance& m_chance;
    const platform::Desktop m_ports = desk.ports();
    const platform::DesktopScope m_scope{m_ports};
    Kinds m_changes;
    int m_serial = 0;
};

} // namespace lumbrix::bench
