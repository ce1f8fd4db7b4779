// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/Defaults.h"

#include <algorithm>
#include <limits>

#include "app/SettingsTable.h"
#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{
namespace
{

using platform::UserDefaults;
using Limits = std::numeric_limits<std::int32_t>;

QString key(const char* name) { return QString::fromLatin1(name); }

float atLeast(const SettingRow& row, float value)
{
    return row.kind == SettingKind::Size ? std::max(static_cast<float>(row.minimum), value) : value;
}

void seed(UserDefaults& defaults, FirstStored when)
{
    for (const SettingRow& row : settingsTable())
        if (row.stored == when)
            defaults.setInteger(row.first, key(row.key));
}

/// A changed position or rule takes effect at once; a changed size is applied by an action of its
/// own.
void mirrorBadgeSettings(const UserDefaults& defaults, WindowCountBadger& badger)
{
    const std::int32_t position = integerSetting(defaults, key("badgePosition"));
    const bool onlyIfMore = integerSetting(defaults, key("badgeOnlyIfMore")) != 0;
    badger.setShouldBadgeDock(integerSetting(defaults, key("badgeDock")) != 0);
    if (badger.badgePosition() != position || badger.badgeOnlyIfMore() != onlyIfMore) {
        badger.setBadgePosition(position);
        badger.setBadgeOnlyIfMore(onlyIfMore);
        badger.badgeDockItems();
    }
}

} // namespace

bool seedFirstRun(UserDefaults& defaults)
{
    const QString flag = key("firstRun");
    if (defaults.boolForKey(flag))
        return false;
    defaults.setBool(true, flag);
    seed(defaults, FirstStored::AtFirstRun);
    defaults.setInteger(SWElement::checkIfAnyWindowIsOnOtherSpace(platform::desktop()) ? 1 : 0,
                        key("showSpaces"));
    defaults.synchronize();
    return true;
}

bool seedBadgeRun(UserDefaults& defaults)
{
    const QString flag = key("badgeDockIconsFirstRun");
    if (defaults.boolForKey(flag))
        return false;
    defaults.setBool(true, flag);
    seed(defaults, FirstStored::AtBadgeRun);
    // Badges look wrong on icons that move.
    platform::DockPreferences& dock = platform::desktop().dockPreferences;
    if (!LXHandler::isDockAutoHidingEnabled(dock) && !LXHandler::isDockMagnificationEnabled(dock))
        defaults.setInteger(1, key("badgeDock"));
    defaults.synchronize();
    return true;
}

std::int32_t integerSetting(const UserDefaults& defaults, const QString& name)
{
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(defaults.integerForKey(name), Limits::min(), Limits::max()));
}

void mirrorEngineSettings(const UserDefaults& defaults, EngineSettings& settings)
{
    for (const SettingRow& row : settingsTable())
        if (const auto* integer = std::get_if<Setting<std::int32_t> EngineSettings::*>(&row.field))
            settings.*(*integer) = integerSetting(defaults, key(row.key));
        else if (const auto* number = std::get_if<Setting<float> EngineSettings::*>(&row.field))
            settings.*(*number) = atLeast(row, defaults.floatForKey(key(row.key)));
}

void mirrorSettings(const UserDefaults& defaults, LXHandler& handler)
{
    const EngineSettings& settings = handler.settings();
    const std::int32_t previewStyle = settings.previewStyle;
    const std::int32_t spaceStyle = settings.spaceStyle;
    mirrorEngineSettings(defaults, handler.settings());
    if (settings.previewStyle != previewStyle || settings.spaceStyle != spaceStyle) {
        handler.removeAllScreenViews();
        handler.clearCache();
    }
    const Companions& companions = handler.companions();
    companions.calendarPreview->setShouldShowCal(integerSetting(defaults, key("shouldShowCal")) !=
                                                 0);
    mirrorBadgeSettings(defaults, *companions.windowCountBadger);
    companions.helpBubble->setShouldBubbleWrap(integerSetting(defaults, key("shouldBubbleWrap")) !=
                                               0);
}

} // namespace lumbrix
