// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/SettingsTable.h"

#include <algorithm>

namespace lumbrix
{
namespace
{

using enum SettingKind;
using enum FirstStored;

// Key and field of a setting that the engine copies: two of one name, so that none can be copied
// into another's field.
#define ENGINE(name) #name, &EngineSettings::name

constexpr SettingField Elsewhere;

constexpr SettingRow rows[] = {
    {ENGINE(disabled), Flag, Never, 0, 0, 1, "1 turns previews off altogether"},
    {"displayDelay", Elsewhere, Seconds, Never, 0, 0, 3,
     "seconds the mouse must rest on an icon before previews appear"},
    {"dontDelayIfOpen", Elsewhere, Flag, Never, 0, 0, 1,
     "1 skips that delay while previews are up"},
    {ENGINE(exitDelay), Seconds, Never, 0, 0, 3, "seconds previews stay after the mouse left"},
    {ENGINE(neverClose), Flag, Never, 0, 0, 1, "1 keeps previews up when the mouse leaves"},
    {ENGINE(keepOnTheWay), Flag, AtFirstRun, 1, 0, 1,
     "1 keeps previews up while the mouse is on its way to them, over other icons too"},
    {ENGINE(windowWidth), Size, AtFirstRun, 243, 120, 600, "width of a preview, points"},
    {ENGINE(windowHeight), Size, AtFirstRun, 190, 90, 450, "height of a preview, points"},
    {ENGINE(distanceFromDock), Points, AtBadgeRun, 33, 0, 100,
     "gap between the icon and the previews, points"},
    {ENGINE(previewStyle), Choice, AtBadgeRun, 1, 0, 5,
     "0 light, 1 black, 2 borderless, 3 blue, 4 red, 5 green"},
    {ENGINE(showInDock), Flag, AtFirstRun, 1, 0, 1, "previews for icons at all"},
    {ENGINE(showInTab), Flag, AtFirstRun, 1, 0, 1,
     "previews in the window manager's switcher, where that can be read"},
    {ENGINE(ignoreHidden), Flag, Never, 0, 0, 1, "1 leaves out the windows of hidden applications"},
    {ENGINE(ignoreMinimized), Flag, Never, 0, 0, 1, "1 leaves out minimised windows"},
    {ENGINE(ignoreOneWindow), Flag, Never, 0, 0, 1,
     "1 leaves out applications with a single window"},
    {ENGINE(tempDisableFilters), Flag, Never, 0, 0, 1,
     "1 suspends those three while a key is held"},
    {ENGINE(tempDisableFiltersKeycode), Modifier, Never, 0, 0, 3, "that key"},
    {ENGINE(onlyIfPressed), Flag, Never, 0, 0, 1, "1 shows previews only while a key is held"},
    {ENGINE(onlyIfKeycode), Modifier, Never, 0, 0, 3, "that key"},
    {ENGINE(hidePreviews), Flag, Never, 0, 0, 1, "1 hides previews while a key is held"},
    {ENGINE(hidePreviewsKeycode), Modifier, Never, 0, 0, 3, "that key"},
    {ENGINE(showFastKeys), Flag, AtFirstRun, 1, 0, 1,
     "number keys (Super+1 to Super+0) on previews, and their labels"},
    {ENGINE(zoomWindows), Flag, AtFirstRun, 1, 0, 1,
     "full-size picture of the hovered preview's window"},
    {ENGINE(disableLivePreviews), Flag, Never, 0, 0, 1, "1 takes still pictures"},
    {ENGINE(hideClose), Flag, Never, 0, 0, 1, "1 leaves out the close button"},
    {ENGINE(closeOnClick), Flag, Never, 0, 0, 1, "1 removes the previews on a click"},
    {ENGINE(keepOnMiddleClick), Flag, Never, 0, 0, 1,
     "1 keeps a window open on a middle click on its preview"},
    {ENGINE(showOthersInDockIcon), Flag, Never, 0, 0, 1,
     "1 shows windows of applications without an icon under Lumbrix's own"},
    {"showIconInDock", Elsewhere, Flag, Never, 0, 0, 1,
     "1 keeps Lumbrix's own icon in the Dock or panel, from the next start on; its preferences are "
     "then minimised where they would be closed"},
    {"hideIcon", Elsewhere, Flag, Never, 0, 0, 1, "1 hides the icon in the tray"},
    {"monoChrome", Elsewhere, Flag, Never, 0, 0, 1, "1 draws that icon in one colour"},
    {"startAtLogin", Elsewhere, Flag, AtFirstRun, 1, 0, 1, "1 starts Lumbrix with the session"},
    {"shouldBubbleWrap", Elsewhere, Flag, AtBadgeRun, 1, 0, 1,
     "the translucent shape behind a row of previews"},
    {ENGINE(showSpaces), Flag, ByDesktop, 1, 0, 1,
     "workspace numbers on previews (at first if more than one workspace is in use)"},
    {ENGINE(alwaysShowSpaces), Flag, Never, 0, 0, 1,
     "1 shows them also where all windows of a row are on the current workspace"},
    {ENGINE(spaceStyle), Choice, Never, 0, 0, 1, "their style: 0 dark, 1 blue"},
    {ENGINE(spaceSize), Choice, AtFirstRun, 0, 0, 2, "their size: 0 small, 1 medium, 2 large"},
    {"badgeDock", Elsewhere, Flag, ByDesktop, 1, 0, 1,
     "window counts on icons (at first unless the Dock hides or magnifies)"},
    {"badgePosition", Elsewhere, Choice, AtBadgeRun, 3, 0, 4,
     "where on the icon: 0 top right, 1 top left, 2 centre, 3 bottom right, 4 bottom left"},
    {"badgeOnlyIfMore", Elsewhere, Flag, Never, 0, 0, 1, "1 leaves out the counts of one"},
    {"badgeSizeExtra", Elsewhere, Points, Never, 0, -10, 40, "points added to a count's size"},
    {"winBadgeColor", Elsewhere, Color, Never, 0, 0, 0,
     "their colour, written as @data(#rrggbbaa); blue without it"},
    {"shouldShowCal", Elsewhere, Flag, AtBadgeRun, 1, 0, 1,
     "today's events beside a calendar's icon"},
    {ENGINE(hideControls), Flag, Never, 0, 0, 1, "1 leaves out the players' and mail's buttons"},
};

#undef ENGINE

constexpr bool isFloat(SettingKind kind)
{
    return kind == Points || kind == Size || kind == Seconds;
}

static_assert(std::ranges::all_of(rows, [](const SettingRow& row) {
    return std::holds_alternative<std::monostate>(row.field) ||
           std::holds_alternative<Setting<float> EngineSettings::*>(row.field) == isFloat(row.kind);
}));

} // namespace

std::span<const SettingRow> settingsTable() { return rows; }

} // namespace lumbrix
