// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/inspect/InspectionTexts.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

#include "app/filters/FilterLevelTitle.h"
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

/// The reason, with details if they are known.
QString differs(const QString& reason, const InspectedWindow& window, const QString& there)
{
    return window.listed ? reason + u" (%1)"_s.arg(there) : reason;
}

} // namespace

QString placeText(const QRectF& rect)
{
    return QString::asprintf("%g × %g at %g, %g", rect.width(), rect.height(), rect.x(), rect.y());
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
        return InspectionText::tr("no window of the window server belongs to it");
    case WindowVerdict::NoOrdinaryLayer:
        return InspectionText::tr("it is not in the layer of ordinary windows");
    case WindowVerdict::NoSameFrame:
        return differs(InspectionText::tr("the window server has it in another place or size"),
                       window, window.listed ? placeText(window.listed->bounds) : QString());
    case WindowVerdict::TooSmall:
        return InspectionText::tr("it is too small: both sides are below 50");
    case WindowVerdict::Untitled:
        return InspectionText::tr("it has no title");
    case WindowVerdict::NoSameTitle:
        return differs(InspectionText::tr("the window server has it under another title"), window,
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
        return InspectionText::tr("the filter “%1” leaves out windows of the kind %2")
                   .arg(FilterLevel::title(window.level), printableText(window.subrole)) +
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
    const QString name = FilterLevel::title(level.level);
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
