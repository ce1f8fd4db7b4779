// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Decides what a hovered Dock item shows, and shows it.
#pragma once

#include <optional>
#include <vector>

#include "model/SWElement.h"
#include "platform/Workspace.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

class LXHandler;

/// Main thread.
class HoverDispatch
{
public:
    using Application = std::optional<platform::RunningApplication>;

    explicit HoverDispatch(LXHandler& handler) : m_handler(handler) {}

    void iconHovered(const SWElementPtr& element);
    void lumbrixIconHovered(const SWElementPtr& element);
    void minimizedIconHovered(const SWElementPtr& element);
    void processListIconHovered(const Application& application, const SWElementPtr& element);

    /// A new preview of a window, filled and appended to those shown; null when none can be made.
    ScreenyViewPtr appendPreview(const SWElementPtr& window, const Application& application,
                                 bool byTab);

private:
    void showPreviewsForApplication(const platform::RunningApplication& application,
                                    const SWElementPtr& element);
    void showPreviews(const std::vector<SWElementPtr>& windows, const Application& application,
                      const SWElementPtr& element);
    /// Takes the previews shown along to another item of their application.
    void moveRow(const SWElementPtr& element);
    bool isAlreadyShowing(const Application& application, bool byTab) const;
    void buildPreviews(const std::vector<SWElementPtr>& windows, const Application& application,
                       bool byTab);
    void orderFrontAll();
    void armUpdateTimer(const SWElementPtr& element);

    LXHandler& m_handler;
};

} // namespace lumbrix
