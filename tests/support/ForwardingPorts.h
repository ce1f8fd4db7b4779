// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Ports beside those of a simulated desktop, which answer as they do. A test derives from one and
// overrides the call that is to fail, to take long or to see its window vanish.
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
};

class ForwardingWindowServer : public SimulatedWindowServer
{
public:
    explicit ForwardingWindowServer(SimulatedWindowServer& target)
        : SimulatedWindowServer(target.m_state)
    {
    }
};

} // namespace lumbrix::test
