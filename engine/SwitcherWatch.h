// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Shows the previews of the application that is selected in the switcher, while the switcher is
// open.
#pragma once

#include <QtCore/QPointF>

#include <cstdint>
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

    /// The source of the hover delay; not owned, may be null.
    void setDelays(const HoverDelays* delays) { m_delays = delays; }

    void processListIconHovered(const Application& application, const SWElementPtr& element);

private:
    /// Until the switcher closes or selects another entry.
    void watch(const SWElementPtr& entry);
    void tabExitCheck(const SWElementPtr& entry);
    void followSwitcher(const SWElementPtr& entry);
    /// Whether the mouse has moved, or was clicked, since the row appeared.
    bool isMouseUsed();

    const EngineContext m;
    Dismissal& m_dismissal;
    PreviewUpdater& m_updater;
    const HoverDelays* m_delays = nullptr;
    std::optional<QPointF> m_restingMouse; ///< the mouse position when the row appeared
    std::uint32_t m_leftMouseDowns = 0;    ///< at that time
};

} // namespace lumbrix
