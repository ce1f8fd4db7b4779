// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/Defaults.h"

#include <algorithm>
#include <limits>
#include <utility>

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

/// A changed place or rule is seen at once; a changed size comes by its own action.
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
    const std::pair<const char*, int> values[] = {
        {"startAtLogin", 1},   {"showInDock", 1}, {"showInTab", 1},    {"windowWidth", 243},
        {"windowHeight", 190}, {"spaceSize", 0},  {"showFastKeys", 1}, {"zoomWindows", 1},
    };
    for (const auto& [name, value] : values)
        defaults.setInteger(value, key(name));
    defaults.setInteger(SWElement::checkIfAnyWindowIsOnOtherSpace() ? 1 : 0, key("showSpaces"));
    defaults.synchronize();
    return true;
}

bool seedBadgeRun(UserDefaults& defaults)
{
    const QString flag = key("badgeDockIconsFirstRun");
    if (defaults.boolForKey(flag))
        return false;
    defaults.setBool(true, flag);
    defaults.setInteger(3, key("badgePosition"));
    // Badges look wrong on icons that move by themselves.
    if (!LXHandler::isDockAutoHidingEnabled() && !LXHandler::isDockMagnificationEnabled())
        defaults.setInteger(1, key("badgeDock"));
    defaults.setInteger(33, key("distanceFromDock"));
    defaults.setInteger(1, key("previewStyle"));
    defaults.setInteger(1, key("shouldBubbleWrap"));
    defaults.setInteger(1, key("shouldShowCal"));
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
    const auto copyInteger = [&defaults](Setting<std::int32_t>& setting, const char* name) {
        setting = integerSetting(defaults, key(name));
    };
    const auto copyFloat = [&defaults](Setting<float>& setting, const char* name) {
        setting = defaults.floatForKey(key(name));
    };

    copyFloat(settings.distanceFromDock, "distanceFromDock");
    copyFloat(settings.windowWidth, "windowWidth");
    copyFloat(settings.windowHeight, "windowHeight");
    copyInteger(settings.showInDock, "showInDock");
    copyInteger(settings.showInTab, "showInTab");
    copyInteger(settings.ignoreHidden, "ignoreHidden");
    copyInteger(settings.ignoreMinimized, "ignoreMinimized");
    copyInteger(settings.neverClose, "neverClose");
    copyInteger(settings.showSpaces, "showSpaces");
    copyInteger(settings.zoomWindows, "zoomWindows");
    copyFloat(settings.exitDelay, "exitDelay");
    copyInteger(settings.previewStyle, "previewStyle");
    copyInteger(settings.spaceStyle, "spaceStyle");
    copyInteger(settings.spaceSize, "spaceSize");
    copyInteger(settings.hideControls, "hideControls");
    copyInteger(settings.closeOnClick, "closeOnClick");
    copyInteger(settings.ignoreOneWindow, "ignoreOneWindow");
    copyInteger(settings.onlyIfPressed, "onlyIfPressed");
    copyInteger(settings.onlyIfKeycode, "onlyIfKeycode");
    copyInteger(settings.hidePreviews, "hidePreviews");
    copyInteger(settings.hidePreviewsKeycode, "hidePreviewsKeycode");
    copyInteger(settings.disabled, "disabled");
    copyInteger(settings.showFastKeys, "showFastKeys");
    copyInteger(settings.disableLivePreviews, "disableLivePreviews");
    copyInteger(settings.tempDisableFilters, "tempDisableFilters");
    copyInteger(settings.tempDisableFiltersKeycode, "tempDisableFiltersKeycode");
    copyInteger(settings.showOthersInDockIcon, "showOthersInDockIcon");
    copyInteger(settings.hideClose, "hideClose");
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
