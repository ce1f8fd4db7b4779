// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "inventory/Scene.h"
#include "platform/StringLiterals.h"
#include "tests/support/SimulatedDesktop.h"
#include "tests/support/VirtualRunLoop.h"

namespace lumbrix::bench
{
namespace
{

class Simulated final : public Scene
{
public:
    Simulated(std::int64_t windows, std::int64_t windowsEach)
    {
        for (std::int64_t i = 0; i < windows; ++i) {
            if (i % windowsEach == 0)
                m_last = m_desk.addApplication({u"Application %1"_s.arg(i)});
            const auto place = static_cast<double>(i);
            m_desk.addWindow(m_last, {u"Window %1"_s.arg(i), {place, 2 * place, 400, 300}});
        }
    }
    const platform::Desktop& ports() const override { return m_ports; }

private:
    test::VirtualRunLoop m_loop;
    test::SimulatedDesktop m_desk{m_loop};
    const platform::Desktop m_ports = m_desk.ports();
};

} // namespace

std::unique_ptr<Scene> simulatedScene(std::int64_t windows, std::int64_t windowsEach)
{
    return std::make_unique<Simulated>(windows, windowsEach);
}

} // namespace lumbrix::bench
