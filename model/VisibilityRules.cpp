// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/VisibilityRules.h"

#include "model/Modifiers.h"
#include "model/SWElement.h"
#include "platform/Workspace.h"

namespace lumbrix
{

VisibilityRules::VisibilityRules(const platform::Desktop& ports, const EngineSettings& settings)
    : m_ports(ports), m_settings(settings),
      m_areSuspended(areFiltersSuspended(ports.inputState, settings))
{
}

WindowVerdict VisibilityRules::verdictForApplication(std::int32_t pid) const
{
    const bool leavesOut = m_settings.ignoreHidden && !m_areSuspended;
    return leavesOut && m_ports.workspace.isHidden(pid) ? WindowVerdict::ApplicationHidden
                                                        : WindowVerdict::Good;
}

WindowVerdict VisibilityRules::verdictForWindow(const SWElement& window) const
{
    const bool leavesOut = m_settings.ignoreMinimized && !m_areSuspended;
    return leavesOut && window.checkIfMinimized() ? WindowVerdict::Minimized : WindowVerdict::Good;
}

} // namespace lumbrix
