// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether hovering a Dock item shows previews: the rules that depend on settings, held keys and the
// number of windows.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/EngineSettings.h"
#include "model/SWElement.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// Maximum number of previews in a row.
inline constexpr std::size_t maxPreviews = 15;

/// What a hovered Dock item stands for.
enum class DockItemKind : std::uint8_t {
    Application,
    Calendar, ///< also an application's
    MinimizedWindow,
    Other, ///< an entry of the switcher, or an item without windows
};
/// Calendar is returned only where calendars show their events.
DockItemKind kindOfDockItem(const platform::Desktop& ports, const platform::ElementRef& item,
                            bool showsCalendars);

enum class HoverVerdict : std::uint8_t {
    Shows,
    DockPreviewsOff, ///< the setting showInDock
    HidingKeyHeld,   ///< the key of the setting hidePreviews
    NoPlace,         ///< the item has no position, or its Dock no known edge
    NoWindows,
    OneWindow,         ///< the setting ignoreOneWindow
    ShowingKeyNotHeld, ///< the key of the setting onlyIfPressed
};

/// For the log.
const char* plainWords(HoverVerdict verdict);

namespace HoverRules
{

/// Checked before any window is looked at: Shows, DockPreviewsOff or HidingKeyHeld.
HoverVerdict verdictBeforeWindows(platform::InputState& input, const EngineSettings& settings);
/// Checked once an item has something to show: Shows or NoPlace.
HoverVerdict verdictForPlace(platform::DockPreferences& preferences, const SWElementPtr& item);
/// For this number of windows: Shows, NoWindows, OneWindow or ShowingKeyNotHeld. With `areOthers` a
/// single window is shown like several: for this program's own icon where it stands for other
/// applications too, as a click on it brings up none of their windows; and where another program
/// chose the windows.
HoverVerdict verdictForWindows(platform::InputState& input, const EngineSettings& settings,
                               std::size_t count, bool areOthers);
/// The same in the switcher, where no key is required: the switcher's own keys are held already.
HoverVerdict verdictInSwitcher(const EngineSettings& settings, std::size_t count);
/// Whether the previews would appear if the user pressed or released a key.
bool waitsForKey(platform::InputState& input, const EngineSettings& settings);

} // namespace HoverRules

} // namespace lumbrix
