// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoverRules.h"

#include "engine/StripArranger.h"
#include "model/Modifiers.h"
#include "platform/Desktop.h"

namespace lumbrix
{

DockItemKind kindOfDockItem(const platform::ElementRef& item, bool showsCalendars)
{
    if (showsCalendars && SWElement::checkIfCal(platform::desktop(), item))
        return DockItemKind::Calendar;
    if (SWElement::checkIfDockApplication(platform::desktop(), item))
        return DockItemKind::Application;
    return SWElement::checkIfMinimizedWindowIcon(platform::desktop(), item)
               ? DockItemKind::MinimizedWindow
               : DockItemKind::Other;
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

HoverVerdict verdictOnKey(const EngineSettings& settings)
{
    return settings.onlyIfPressed &&
                   !isModifierHeld(platform::desktop().inputState, settings.onlyIfKeycode)
               ? HoverVerdict::ShowingKeyNotHeld
               : HoverVerdict::Shows;
}

} // namespace

HoverVerdict verdictBeforeWindows(const EngineSettings& settings)
{
    if (!settings.showInDock)
        return HoverVerdict::DockPreviewsOff;
    return settings.hidePreviews &&
                   isModifierHeld(platform::desktop().inputState, settings.hidePreviewsKeycode)
               ? HoverVerdict::HidingKeyHeld
               : HoverVerdict::Shows;
}

HoverVerdict verdictForPlace(const SWElementPtr& item)
{
    return StripArranger::hasPlaceBeside(item) ? HoverVerdict::Shows : HoverVerdict::NoPlace;
}

HoverVerdict verdictForWindows(const EngineSettings& settings, std::size_t count, bool areOthers)
{
    const HoverVerdict verdict = verdictForCount(settings, count);
    if (verdict == HoverVerdict::NoWindows ||
        (verdict == HoverVerdict::OneWindow && !areOthers &&
         !areFiltersSuspended(platform::desktop().inputState, settings)))
        return verdict;
    return verdictOnKey(settings);
}

bool waitsForKey(const EngineSettings& settings)
{
    return verdictBeforeWindows(settings) == HoverVerdict::HidingKeyHeld ||
           verdictOnKey(settings) == HoverVerdict::ShowingKeyNotHeld;
}

HoverVerdict verdictInSwitcher(const EngineSettings& settings, std::size_t count)
{
    return verdictForCount(settings, count);
}

} // namespace HoverRules

} // namespace lumbrix
