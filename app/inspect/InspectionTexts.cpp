// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/inspect/InspectionTexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cmath>

#include "app/filters/FilterLevelTitle.h"
#include "model/AXNames.h"
#include "model/Modifiers.h"
#include "platform/Desktop.h"
#include "platform/KeyboardLayout.h"
#include "platform/PrintableText.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{

QString keyName(int modifierIndex)
{
    return platform::desktop().keyboardLayout.nameOfModifier(flagForIndex(modifierIndex));
}

/// Where in the preferences the setting can be changed.
QString where(const char* pane)
{
    return InspectionText::tr(" (Preferences > %1)")
        .arg(QCoreApplication::translate("PrefsController", pane));
}

/// Why the Dock item itself brings no previews; empty if it does.
QString itemObstacle(const Inspection& inspection)
{
    if (inspection.dock.pid == 0)
        return InspectionText::tr("no Dock was recognised");
    if (inspection.isDisabled)
        return InspectionText::tr("all previews are turned off") + where("General");
    if (!inspection.item && inspection.dock.items == 0)
        return InspectionText::tr("the Dock tells of no icons");
    if (!inspection.item && !inspection.application)
        return InspectionText::tr("there is no icon and no window under the pointer");
    if (!inspection.item)
        return InspectionText::tr("the Dock shows no icon for the application");
    switch (inspection.item->kind) {
    case DockItemKind::Calendar:
        return InspectionText::tr("a calendar shows today's events instead") + where("General");
    case DockItemKind::Other:
        return InspectionText::tr("the icon is not an application's");
    case DockItemKind::Application:
        if (!inspection.item->isRunning)
            return InspectionText::tr("the application does not run");
        if (!inspection.application)
            return InspectionText::tr("the application is not found among those that run");
        break;
    case DockItemKind::MinimizedWindow:
        break;
    }
    return {};
}

/// Why no window is left to preview.
QString windowsObstacle(const Inspection& inspection)
{
    if (inspection.item->kind == DockItemKind::MinimizedWindow)
        return InspectionText::tr("no minimised window has the icon's title");
    const auto& windows = inspection.windows;
    if (windows.empty())
        return InspectionText::tr("the application has no window");
    const QString reason = reasonText(windows.front());
    const bool isShared = std::ranges::all_of(
        windows, [&](const InspectedWindow& each) { return reasonText(each) == reason; });
    return isShared && !reason.isEmpty()
               ? reason
               : InspectionText::tr("every window is left out, see below");
}

/// Why none of the windows can be previewed; empty if nothing prevents it.
QString verdictObstacle(const Inspection& inspection)
{
    switch (inspection.verdict) {
    case HoverVerdict::DockPreviewsOff:
        return InspectionText::tr("previews for icons in the Dock are turned off") +
               where("General");
    case HoverVerdict::HidingKeyHeld:
        return InspectionText::tr("%1 is held, which hides previews")
                   .arg(keyName(inspection.hidingKey)) +
               where("Hotkeys");
    case HoverVerdict::NoPlace:
        return InspectionText::tr("there is no place for previews beside the icon");
    case HoverVerdict::NoWindows:
        return windowsObstacle(inspection);
    case HoverVerdict::OneWindow:
        return InspectionText::tr("applications with a single window are left out") +
               where("Advanced");
    case HoverVerdict::ShowingKeyNotHeld:
        return InspectionText::tr("previews show only while %1 is held")
                   .arg(keyName(inspection.showingKey)) +
               where("Hotkeys");
    case HoverVerdict::Shows:
        break;
    }
    return {};
}

struct SettingPhrase {
    const char* key;
    const char* text;
    int Inspection::*heldKey; ///< whose name it has; null: none
};
constexpr SettingPhrase settingPhrases[] = {
    {"disabled", QT_TRANSLATE_NOOP("Inspection", "all previews are turned off"), nullptr},
    {"showInDock", QT_TRANSLATE_NOOP("Inspection", "previews for icons in the Dock are turned off"),
     nullptr},
    {"ignoreHidden", QT_TRANSLATE_NOOP("Inspection", "windows of hidden applications are left out"),
     nullptr},
    {"ignoreMinimized", QT_TRANSLATE_NOOP("Inspection", "minimised windows are left out"), nullptr},
    {"ignoreOneWindow",
     QT_TRANSLATE_NOOP("Inspection", "applications with a single window are left out"), nullptr},
    {"onlyIfPressed", QT_TRANSLATE_NOOP("Inspection", "previews show only while %1 is held"),
     &Inspection::showingKey},
    {"hidePreviews", QT_TRANSLATE_NOOP("Inspection", "no previews show while %1 is held"),
     &Inspection::hidingKey},
    {"tempDisableFilters",
     QT_TRANSLATE_NOOP("Inspection", "what is left out shows while %1 is held"),
     &Inspection::unfilteringKey},
    {"neverClose", QT_TRANSLATE_NOOP("Inspection", "previews stay after the mouse has left"),
     nullptr},
    {"showOthersInDockIcon",
     QT_TRANSLATE_NOOP("Inspection", "Lumbrix's own icon has the windows of applications without "
                                     "one"),
     nullptr},
};

/// The reason, with details if they are known.
QString differs(const QString& reason, const InspectedWindow& window, const QString& there)
{
    return window.listed ? reason + u" (%1)"_s.arg(there) : reason;
}

} // namespace

/// As other programs tell sizes, and the user's own eye: in pixels.
QString placeText(const QRectF& rect)
{
    const auto pixels = [scale = qGuiApp->devicePixelRatio()](double points) {
        return QString::number(std::lround(points * scale));
    };
    return InspectionText::tr("%1 × %2 pixels at %3, %4")
        .arg(pixels(rect.width()), pixels(rect.height()), pixels(rect.x()), pixels(rect.y()));
}

QString kindText(const QString& subrole)
{
    if (subrole == AX::StandardWindow)
        return InspectionText::tr("a window");
    if (subrole == AX::Dialog || subrole == AX::SystemDialog)
        return InspectionText::tr("a dialog");
    if (subrole == AX::FloatingWindow)
        return InspectionText::tr("a palette");
    if (subrole == AX::SystemFloatingWindow)
        return InspectionText::tr("a window that taskbars leave out");
    return InspectionText::tr("a window of another kind");
}

QString settingText(const ChangedSetting& setting, const Inspection& inspection)
{
    if (setting.key == QLatin1String("displayDelay"))
        return InspectionText::tr("previews wait for %1 s")
            .arg(QLocale().toString(setting.value, 'g', 3));
    for (const auto& [key, text, heldKey] : settingPhrases) {
        if (setting.key != QLatin1String(key))
            continue;
        const QString phrase = QCoreApplication::translate("Inspection", text);
        return heldKey ? phrase.arg(keyName(inspection.*heldKey)) : phrase;
    }
    return {}; // which key it is that is held
}

QString outcomeText(const Inspection& inspection)
{
    QString obstacle = itemObstacle(inspection);
    if (obstacle.isEmpty() && inspection.application && !inspection.application->answers)
        return InspectionText::tr("Not known: the application does not answer. Lumbrix goes on "
                                  "showing the windows it knew before.");
    if (obstacle.isEmpty())
        obstacle = verdictObstacle(inspection);
    if (!obstacle.isEmpty())
        return InspectionText::tr("None: %1.").arg(obstacle);
    if (inspection.item->kind == DockItemKind::MinimizedWindow)
        return InspectionText::tr("One, of the minimised window that the icon stands for.");
    const auto shown =
        std::ranges::count(inspection.windows, WindowVerdict::Good, &InspectedWindow::verdict);
    return InspectionText::tr("%1 of %2 windows.").arg(shown).arg(inspection.windows.size());
}

QString reasonText(const InspectedWindow& window)
{
    switch (window.verdict) {
    case WindowVerdict::Good:
        return {};
    case WindowVerdict::NoAnswer:
        return InspectionText::tr(
            "its application does not answer (previewed only if Lumbrix knew it before)");
    case WindowVerdict::Unreadable:
        return InspectionText::tr("its place and size cannot be read, or it is gone");
    case WindowVerdict::NoProcess:
        return InspectionText::tr("its process is not known");
    case WindowVerdict::NoServerWindow:
        return InspectionText::tr("the display server has no window that belongs to it");
    case WindowVerdict::NoOrdinaryLayer:
        return InspectionText::tr("it is not in the layer of ordinary windows");
    case WindowVerdict::NoSameFrame:
        return differs(InspectionText::tr("the display server has it in another place or size"),
                       window, window.listed ? placeText(window.listed->bounds) : QString());
    case WindowVerdict::TooSmall:
        return InspectionText::tr("it is too small: both sides are below 50 points");
    case WindowVerdict::Untitled:
        return InspectionText::tr("it has no title");
    case WindowVerdict::NoSameTitle:
        return differs(InspectionText::tr("the display server has it under another title"), window,
                       window.listed ? printableText(window.listed->name) : QString());
    case WindowVerdict::OtherOwner:
        return InspectionText::tr("it has just become another application's");
    case WindowVerdict::BlockedByLevel:
        return InspectionText::tr("the filter “%1” leaves out every window of the application")
                   .arg(FilterLevel::title(window.level)) +
               where("Filters");
    case WindowVerdict::ClosedToServer:
        return InspectionText::tr("it is closed: no workspace has it");
    case WindowVerdict::NoWindowRole:
        return InspectionText::tr("it does not call itself a window");
    case WindowVerdict::FloatingAtLevel:
        return InspectionText::tr("the filter “%1” leaves it out, as it is %2")
                   .arg(FilterLevel::title(window.level), kindText(window.subrole)) +
               where("Filters");
    case WindowVerdict::NoContent:
        return InspectionText::tr("it is no standard window, and there is nothing in it");
    case WindowVerdict::NotScanned:
        return InspectionText::tr("no window of its application is meant for docks") +
               where("Dock Icon");
    case WindowVerdict::NumberListed:
        return InspectionText::tr("another window is known under its number");
    case WindowVerdict::ApplicationHidden:
        return InspectionText::tr("windows of hidden applications are left out") +
               where("Advanced");
    case WindowVerdict::Minimized:
        return InspectionText::tr("minimised windows are left out") + where("Advanced");
    case WindowVerdict::BeyondMost:
        return InspectionText::tr("there are %1 previews already, which is as many as fit")
            .arg(maxPreviews);
    }
    return {};
}

QString levelText(const AppliedFilterLevel& level)
{
    const QString name = InspectionText::tr("%1 (%2)").arg(FilterLevel::title(level.level),
                                                           FilterLevel::summary(level.level));
    switch (level.source) {
    case FilterLevelSource::Application:
        return InspectionText::tr("%1, the application's own").arg(name);
    case FilterLevelSource::AllApplications:
        return InspectionText::tr("%1, that of all applications").arg(name);
    case FilterLevelSource::BuiltIn:
        break;
    }
    return InspectionText::tr("%1, built in").arg(name);
}

} // namespace lumbrix
