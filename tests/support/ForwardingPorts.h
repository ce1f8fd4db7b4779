// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Ports beside those of a simulated desktop, which answer as they do. A test derives from one and
// overrides the call that is to fail, to take long or to see its window vanish; m_state is the
// desktop's.
#pragma once

#include "tests/support/SimulatedPorts.h"

namespace lumbrix::test
{

class ForwardingAccessibility : public SimulatedAccessibility
{
public:
    /// The port of a simulated desktop.
    explicit ForwardingAccessibility(platform::Accessibility& target)
        : SimulatedAccessibility(dynamic_cast<SimulatedAccessibility&>(target).m_state)
    {
    }

protected:
    using SimulatedAccessibility::m_state;
};

class ForwardingWindowServer : public SimulatedWindowServer
{
public:
    explicit ForwardingWindowServer(SimulatedWindowServer& target)
        : SimulatedWindowServer(target.m_state)
    {
    }

protected:
    using SimulatedWindowServer::m_state;
};

/// Copies as slowly as a server that has much else to do.
class SlowWindowServer : public ForwardingWindowServer
{
public:
    using ForwardingWindowServer::ForwardingWindowServer;

    QImage captureWindow(platform::WindowID window, QSize limit) override
    {
        ++started;
        m_state.runLoop.sleep(duration);
        const QImage whole = ForwardingWindowServer::captureWindow(window, limit);
        return limit.isEmpty() ? whole : whole.copy(QRect({}, whole.size() / 2));
    }
    platform::KnownPicture knownPicture(platform::WindowID window, QSize limit) override
    {
        return alwaysCopies ? platform::KnownPicture{}
                            : ForwardingWindowServer::knownPicture(window, limit);
    }
    double duration = 0.3;
    bool alwaysCopies = false;
    int started = 0;
};

} // namespace lumbrix::test
