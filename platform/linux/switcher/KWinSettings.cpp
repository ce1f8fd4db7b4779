// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/KWinSettings.h"

#include <QtCore/QDir>

#include <algorithm>
#include <array>

#include "platform/StringLiterals.h"
#include "platform/linux/PlainFile.h"
#include "platform/linux/defaults/IniFile.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 maximumSize = qint64{1024} * 1024;

struct Setting {
    const char* key;
    const char* usual; ///< if not set
    const char* wanted;
};

/// Which windows are listed, and in which order.
constexpr std::array settings{
    Setting{.key = "ShowTabBox", .usual = "true", .wanted = "true"},
    Setting{.key = "SwitchingMode",
            .usual = "0",
            .wanted = "0"}, // in the order in which they were active
    Setting{.key = "ApplicationsMode", .usual = "0", .wanted = "0"},
    Setting{.key = "DesktopMode", .usual = "1", .wanted = "1"}, // windows of the current desktop
    Setting{.key = "ActivitiesMode", .usual = "1", .wanted = "1"},
    Setting{.key = "MinimizedMode", .usual = "0", .wanted = "0"},
    Setting{.key = "OrderMinimizedMode", .usual = "0", .wanted = "0"},
    Setting{.key = "MultiScreenMode", .usual = "0", .wanted = "0"},
    Setting{.key = "ShowDesktopMode", .usual = "0", .wanted = "0"},
};

/// Draws the selected window above everything, including previews, if KWin composites.
constexpr Setting showsSelected{.key = "HighlightWindows", .usual = "true", .wanted = "false"};

/// Without a layout, its own or one of a desktop theme, it switches but shows nothing.
bool hasLayout(const QString& dataFolder)
{
    constexpr auto folders = QDir::Dirs | QDir::NoDotAndDotDot;
    const QDir own(dataFolder + u"/kwin/tabbox"_s);
    if (!own.entryList(folders).isEmpty())
        return true;
    const QDir looks(dataFolder + u"/plasma/look-and-feel"_s);
    return std::ranges::any_of(looks.entryList(folders), [&](const QString& look) {
        return looks.exists(look + u"/contents/windowswitcher"_s);
    });
}

} // namespace

bool kwinLetsPreviewsBeSeen(const QString& configFolder, const QStringList& dataFolders,
                            bool isComposited)
{
    const IniFile written(readPlainFile(configFolder + u"/kwinrc"_s, maximumSize));
    const auto isSet = [&](const Setting& setting) {
        return written.value(u"TabBox"_s, QLatin1String(setting.key)).value_or(setting.usual) ==
               setting.wanted;
    };
    return std::ranges::all_of(settings, isSet) && (!isComposited || isSet(showsSelected)) &&
           std::ranges::any_of(dataFolders, hasLayout);
}

} // namespace lumbrix::platform
