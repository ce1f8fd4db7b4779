// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The previews of the application that is selected in the switcher, as long as that is open.
#pragma once

#include <QtCore/QPointF>

#include <optional>

#include "engine/Dismissal.h"
#include "engine/EngineContext.h"
#include "engine/HoverDelays.h"
#include "engine/PreviewUpdater.h"
#include "model/SWElement.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// Main thread.
class SwitcherWatch
{
public:
    using Application = std::optional<platform::RunningApplication>;

    SwitcherWatch(const EngineContext& context, Dismissal& dismissal, PreviewUpdater& updater)
        : m(context), m_dismissal(dismissal), m_updater(updater)
    {
    }

    /// Where the hover delay is asked for; not owned, may be null.
    void setDelays(const HoverDelays* delays) { m_delays = delays; }

    void processListIconHovered(const Application& application, const SWElementPtr& element);

private:
    void tabExitCheck(const SWElementPtr& entry);
    void followSwitcher(const SWElementPtr& entry);
    /// Since the row came up.
    bool hasMouseMoved();

    const EngineContext m;
    Dismissal& m_dismissal;
    PreviewUpdater& m_updater;
    const HoverDelays* m_delays = nullptr;
    std::optional<QPointF> m_restingMouse; ///< where it is since the row came up
};

} // namespace lumbrix
