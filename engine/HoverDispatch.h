// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Decides what a hovered Dock item shows, and shows it.
#pragma once

#include <optional>
#include <vector>

#include "engine/PreviewUpdater.h"
#include "model/SWElement.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// Main thread.
class HoverDispatch
{
public:
    using Application = std::optional<platform::RunningApplication>;

    HoverDispatch(const EngineContext& context, Dismissal& dismissal, PreviewUpdater& updater)
        : m(context), m_corridor(context), m_dismissal(dismissal), m_updater(updater)
    {
    }

    void iconHovered(const SWElementPtr& element);
    void lumbrixIconHovered(const SWElementPtr& element);
    void minimizedIconHovered(const SWElementPtr& element);

private:
    void showPreviewsForApplication(const platform::RunningApplication& application,
                                    const SWElementPtr& element);
    void showPreviews(const std::vector<SWElementPtr>& windows, const Application& application,
                      const SWElementPtr& element);
    /// Takes the previews shown along to another item of their application.
    void moveRow(const SWElementPtr& element);
    void armUpdateTimer(const SWElementPtr& element);

    const EngineContext m;
    const Corridor m_corridor;
    Dismissal& m_dismissal;
    PreviewUpdater& m_updater;
};

} // namespace lumbrix
