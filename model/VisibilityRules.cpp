// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/VisibilityRules.h"

#include "model/Modifiers.h"
#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/Workspace.h"

namespace lumbrix
{

VisibilityRules::VisibilityRules(const EngineSettings& settings)
    : m_settings(settings), m_areSuspended(areFiltersSuspended(settings))
{
}

WindowVerdict VisibilityRules::verdictForApplication(std::int32_t pid) const
{
    const bool leavesOut = m_settings.ignoreHidden && !m_areSuspended;
    return leavesOut && platform::desktop().workspace.isHidden(pid)
               ? WindowVerdict::ApplicationHidden
               : WindowVerdict::Good;
}

WindowVerdict VisibilityRules::verdictForWindow(const SWElement& window) const
{
    const bool leavesOut = m_settings.ignoreMinimized && !m_areSuspended;
    return leavesOut && window.checkIfMinimized() ? WindowVerdict::Minimized : WindowVerdict::Good;
}

} // namespace lumbrix
