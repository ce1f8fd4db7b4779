// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which windows the visibility settings currently exclude.
#pragma once

#include <cstdint>

#include "model/EngineSettings.h"
#include "model/WindowVerdict.h"
#include "platform/Desktop.h"

namespace lumbrix
{

class SWElement;

/// Reads the override key once, in the constructor: make one for each decision and do not keep it.
/// Any thread.
class VisibilityRules
{
public:
    VisibilityRules(const platform::Desktop& ports, const EngineSettings& settings);

    /// ApplicationHidden or Good.
    WindowVerdict verdictForApplication(std::int32_t pid) const;
    /// Minimized or Good; the application is not asked about.
    WindowVerdict verdictForWindow(const SWElement& window) const;
    bool areSuspended() const { return m_areSuspended; }

private:
    const platform::Desktop& m_ports;
    const EngineSettings& m_settings;
    const bool m_areSuspended;
};

} // namespace lumbrix
