// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/LinuxDockPreferences.h"

#include "platform/linux/accessibility/X11Element.h"
#include "platform/linux/applications/ProcessNames.h"
#include "platform/linux/defaults/ProgramSettings.h"
#include "platform/linux/docks/OwnDisplays.h"

namespace lumbrix::platform
{

DockStatePtr LinuxDockPreferences::dockOf(const ElementRef& item) const
{
    const X11Element* element = X11Element::from(item);
    const bool isItem = element && element->kind() == X11Element::Kind::DockItem;
    const DockStatePtr dock = isItem ? m_docks.dockOf(element->dockItemId()) : nullptr;
    return dock ? dock : m_docks.firstDock();
}

std::optional<DockEdge> LinuxDockPreferences::orientation(const ElementRef& item)
{
    const DockStatePtr dock = dockOf(item);
    return dock ? dock->edge : DockEdge::Bottom;
}

std::optional<int> LinuxDockPreferences::magnification(const ElementRef& item)
{
    const DockStatePtr dock = dockOf(item);
    return dock ? std::optional(dock->magnifies ? 1 : 0) : std::nullopt;
}

std::optional<int> LinuxDockPreferences::autohide(const ElementRef& item)
{
    const DockStatePtr dock = dockOf(item);
    return dock ? std::optional(dock->hides ? 1 : 0) : std::nullopt;
}

std::vector<DockDisplay> LinuxDockPreferences::ownDisplays(const ElementRef& item)
{
    const DockStatePtr dock = dockOf(item);
    if (!dock)
        return {};
    return ownDisplaysOf(readProcessNames(dock->pid).programs().value(0), dock->settingsPath,
                         [](const QString& schema, const QString& path, const char* key) {
                             const auto settings = ProgramSettings::open(schema, path);
                             return settings ? settings->flag(key) : std::nullopt;
                         });
}

bool LinuxDockPreferences::countsWindows(const ElementRef& item)
{
    const X11Element* element = X11Element::from(item);
    if (!element || element->kind() != X11Element::Kind::DockItem)
        return false;
    const DockStatePtr dock = m_docks.dockOf(element->dockItemId());
    const DockItem* found = dock ? dock->item(element->dockItemId()) : nullptr;
    // Asked often, and the names are in files: only of what could have a number.
    return found && standsForGroup(*found) &&
           countsWindowsItself(readProcessNames(dock->pid).programs().value(0));
}

} // namespace lumbrix::platform
