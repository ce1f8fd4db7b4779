// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/OwnDisplays.h"
#include "platform/StringLiterals.h"

#include <QtCore/QCoreApplication>

namespace lumbrix::platform
{

namespace
{

using enum DockDisplay::Kind;

struct Known {
    const char* program;
    DockDisplay::Kind kind;
    bool isKnownOn;      ///< used if there is no flag
    const char* setting; ///< null: cannot be turned off; with a key, the flag's schema
    const char* key = nullptr;
    bool isOfEachDock = false; ///< each dock of the program has the flag at a path of its own
};

constexpr const char* context = "OwnDisplays";

constexpr Known known[] = {
    {"plank", Tooltip, false, "net.launchpad.plank.dock.settings", "tooltips-enabled", true},
    // Only the continued fork of Plank shows previews, but it reports the same about itself as the
    // original.
    {"plank", Preview, false, "plank --preferences"},
    {"tint2", Tooltip, false, "task_tooltip = 0 (tint2rc)"},
    {"tint2", Preview, false, "task_thumbnail = 0 (tint2rc)"},
    {"mate-panel", Preview, false, "org.mate.panel.applet.window-list-previews",
     "show-window-thumbnails"},
    {"mate-panel", Tooltip, false, "org.mate.panel", "tooltips-enabled"},
    {"xfce4-panel", Tooltip, true, nullptr},
    {"xfce4-panel", Preview, false,
     QT_TRANSLATE_NOOP("OwnDisplays", "the preferences of Docklike (right click with Ctrl held)")},
    {"lxqt-panel", Tooltip, true, nullptr},
};

} // namespace

std::vector<DockDisplay> ownDisplaysOf(const QString& program, const QString& settingsPath,
                                       const FlagReader& flag)
{
    std::vector<DockDisplay> result;
    for (const Known& each : known) {
        if (program != QLatin1String(each.program) || (each.isOfEachDock && settingsPath.isEmpty()))
            continue;
        DockDisplay display{each.kind, each.isKnownOn, {}};
        if (each.key) {
            QString schema = QString::fromLatin1(each.setting);
            const QString path = each.isOfEachDock ? settingsPath : QString();
            const std::optional<bool> isOn = flag(schema, path, each.key);
            if (isOn == false)
                continue;
            display.isKnownOn = isOn.has_value();
            if (!path.isEmpty())
                schema += u':' + path;
            display.setting =
                u"gsettings set %1 %2 false"_s.arg(schema, QString::fromLatin1(each.key));
        } else if (each.setting) {
            display.setting = QCoreApplication::translate(context, each.setting);
        }
        result.push_back(display);
    }
    return result;
}

bool standsForGroup(const DockItem& item)
{
    return item.desktopFile.isEmpty() && !item.areChosen && item.windows.size() > 1;
}

bool countsWindowsItself(const QString& program)
{
    // A circle with the number; "Title (2)"; "Title - 2 windows". tint2 groups none, Plank has
    // none.
    return program == u"xfce4-panel" || program == u"mate-panel" || program == u"lxqt-panel";
}

} // namespace lumbrix::platform
