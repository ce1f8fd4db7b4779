// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where everything the engine reacts to enters it.
#pragma once

#include <QtCore/QString>

#include <functional>

#include "engine/Dismissal.h"
#include "engine/EngineContext.h"
#include "engine/HoverDelays.h"
#include "engine/HoverDispatch.h"
#include "engine/HoverRules.h"
#include "engine/SwitcherWatch.h"
#include "platform/Accessibility.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// Turns notifications of the Dock and of applications into hovers and their ends, often after the
/// hover delay. Main thread.
class NotificationIntake
{
public:
    NotificationIntake(const EngineContext& context, Dismissal& dismissal, HoverDispatch& hover,
                       SwitcherWatch& switcher)
        : m(context), m_corridor(context), m_dismissal(dismissal), m_hover(hover),
          m_switcher(switcher)
    {
    }

    /// `delays` for the Dock's notifications; null = without delay. With previews turned off
    /// nothing happens.
    void handle(const platform::ElementRef& element, const QString& notification,
                const HoverDelays* delays);

private:
    void dockSelectionChanged(const platform::ElementRef& element, const HoverDelays* delays);
    void dockFocusChanged(const platform::ElementRef& element, const HoverDelays* delays);
    /// The selected item; null when the selection is empty, which has then been dealt with, or
    /// could not be read.
    platform::ElementRef selectedItem(const platform::ElementRef& element);
    /// Runs a dispatch now, or after the hover delay. The delay is for the first previews only,
    /// when the user wants later ones at once.
    void dispatch(const HoverDelays* delays, std::function<void()> action);
    void dispatchSwitcherEntry(const HoverDelays* delays,
                               const platform::RunningApplication& application,
                               const platform::ElementRef& item);
    DockItemKind kindOf(const platform::ElementRef& item) const;

    const EngineContext m;
    const Corridor m_corridor;
    Dismissal& m_dismissal;
    HoverDispatch& m_hover;
    SwitcherWatch& m_switcher;
};

} // namespace lumbrix
