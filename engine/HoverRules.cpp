// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoverRules.h"

#include "engine/StripArranger.h"
#include "model/Modifiers.h"

namespace lumbrix
{

DockItemKind kindOfDockItem(const platform::Desktop& ports, const platform::ElementRef& item,
                            bool showsCalendars)
{
    if (showsCalendars && SWElement::checkIfCal(ports, item))
        return DockItemKind::Calendar;
    if (SWElement::checkIfDockApplication(ports, item))
        return DockItemKind::Application;
    return SWElement::checkIfMinimizedWindowIcon(ports, item) ? DockItemKind::MinimizedWindow
                                                              : DockItemKind::Other;
}

const char* plainWords(HoverVerdict verdict)
{
    switch (verdict) {
    case HoverVerdict::Shows:
        return "there is something to show";
    case HoverVerdict::DockPreviewsOff:
        return "previews for the Dock are turned off";
    case HoverVerdict::HidingKeyHeld:
        return "the key that hides previews is held";
    case HoverVerdict::NoPlace:
        return "there is no place beside the icon";
    case HoverVerdict::NoWindows:
        return "no window is known that the settings let in";
    case HoverVerdict::OneWindow:
        return "there is but one window";
    case HoverVerdict::ShowingKeyNotHeld:
        return "the key that shows previews is not held";
    }
    return "";
}

namespace HoverRules
{
namespace
{

HoverVerdict verdictForCount(const EngineSettings& settings, std::size_t count)
{
    if (count == 0)
        return HoverVerdict::NoWindows;
    return settings.ignoreOneWindow && count == 1 ? HoverVerdict::OneWindow : HoverVerdict::Shows;
}

HoverVerdict verdictOnKey(platform::InputState& input, const EngineSettings& settings)
{
    return settings.onlyIfPressed && !isModifierHeld(input, settings.onlyIfKeycode)
               ? HoverVerdict::ShowingKeyNotHeld
               : HoverVerdict::Shows;
}

} // namespace

HoverVerdict verdictBeforeWindows(platform::InputState& input, const EngineSettings& settings)
{
    if (!settings.showInDock)
        return HoverVerdict::DockPreviewsOff;
    return settings.hidePreviews && isModifierHeld(input, settings.hidePreviewsKeycode)
               ? HoverVerdict::HidingKeyHeld
               : HoverVerdict::Shows;
}

HoverVerdict verdictForPlace(platform::DockPreferences& preferences, const SWElementPtr& item)
{
    return StripArranger::hasPlaceBeside(preferences, item) ? HoverVerdict::Shows
                                                            : HoverVerdict::NoPlace;
}

HoverVerdict verdictForWindows(platform::InputState& input, const EngineSettings& settings,
                               std::size_t count, bool areOthers)
{
    const HoverVerdict verdict = verdictForCount(settings, count);
    if (verdict == HoverVerdict::NoWindows ||
        (verdict == HoverVerdict::OneWindow && !areOthers && !areFiltersSuspended(input, settings)))
        return verdict;
    return verdictOnKey(input, settings);
}

bool waitsForKey(platform::InputState& input, const EngineSettings& settings)
{
    return verdictBeforeWindows(input, settings) == HoverVerdict::HidingKeyHeld ||
           verdictOnKey(input, settings) == HoverVerdict::ShowingKeyNotHeld;
}

HoverVerdict verdictInSwitcher(const EngineSettings& settings, std::size_t count)
{
    return verdictForCount(settings, count);
}

} // namespace HoverRules

} // namespace lumbrix
