// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether hovering a Dock item brings previews, as far as settings, held keys and the number of
// windows decide it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/EngineSettings.h"
#include "model/SWElement.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// Building stops once this many previews are up.
inline constexpr std::size_t maxPreviews = 15;

/// What a hovered Dock item stands for.
enum class DockItemKind : std::uint8_t {
    Application,
    Calendar, ///< an application's, too
    MinimizedWindow,
    Other, ///< an entry of the switcher, or nothing that has windows
};
/// Calendars are told apart only where they show their events.
DockItemKind kindOfDockItem(const platform::Desktop& ports, const platform::ElementRef& item,
                            bool showsCalendars);

enum class HoverVerdict : std::uint8_t {
    Shows,
    DockPreviewsOff, ///< the setting showInDock
    HidingKeyHeld,   ///< the key of the setting hidePreviews
    NoPlace,         ///< the item is nowhere, or its Dock at no edge that is known
    NoWindows,
    OneWindow,         ///< the setting ignoreOneWindow
    ShowingKeyNotHeld, ///< the key of the setting onlyIfPressed
};

/// For the log.
const char* plainWords(HoverVerdict verdict);

namespace HoverRules
{

/// Before any window is looked at: Shows, DockPreviewsOff or HidingKeyHeld.
HoverVerdict verdictBeforeWindows(platform::InputState& input, const EngineSettings& settings);
/// Once an item is known to have something to show: Shows or NoPlace.
HoverVerdict verdictForPlace(platform::DockPreferences& preferences, const SWElementPtr& item);
/// With so many windows to show: Shows, NoWindows, OneWindow or ShowingKeyNotHeld. `areOthers`:
/// under this program's own icon, where it stands for other applications too and one window is as
/// good as many, since a click on that icon brings none of them; or where windows were chosen.
HoverVerdict verdictForWindows(platform::InputState& input, const EngineSettings& settings,
                               std::size_t count, bool areOthers);
/// The same in the switcher, where no key is asked for: its own keys are held already.
HoverVerdict verdictInSwitcher(const EngineSettings& settings, std::size_t count);
/// Whether what is not shown now comes up as soon as the user holds a key, or lets it go.
bool waitsForKey(platform::InputState& input, const EngineSettings& settings);

} // namespace HoverRules

} // namespace lumbrix
