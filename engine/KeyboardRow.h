// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A row that is opened, worked and left by the keyboard, and told to assistive tools.
#pragma once

#include <QtCore/QString>

#include <memory>

#include "engine/EngineContext.h"
#include "engine/PreviewUpdater.h"
#include "engine/RequestedRow.h"
#include "model/SWElement.h"
#include "preview/KeyboardPanel.h"

namespace lumbrix
{

/// Main thread. It is a row that was asked for, with one preview chosen; it lasts as long as it has
/// the keyboard.
class KeyboardRow
{
public:
    KeyboardRow(const EngineContext& context, Dismissal& dismissal, PreviewUpdater& updater,
                RequestedRow& requested)
        : m(context), m_dismissal(dismissal), m_updater(updater), m_requested(requested)
    {
    }

    /// Opens the row of the active window's application beside its icon, that window chosen; where
    /// there is one already, leaves it. Nothing where no Dock has the icon.
    void toggle();

private:
    SWElementPtr itemFor(const SWElement& window) const;
    void makePanel();
    void sync();
    QString textOf(const ScreenyView& preview, std::size_t index) const;
    void move(int steps);
    void raise();
    void ended();

    const EngineContext m;
    Dismissal& m_dismissal;
    PreviewUpdater& m_updater;
    RequestedRow& m_requested;
    std::unique_ptr<KeyboardPanel> m_panel; ///< null until first needed
    platform::TimerPtr m_timer;             ///< while the row is up
    int m_index = 0;                        ///< of the preview that was chosen last
};

} // namespace lumbrix
