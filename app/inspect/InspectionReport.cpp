// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/inspect/InspectionReport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtCore/QSysInfo>
#include <QtGui/QGuiApplication>

#include <utility>

#include "app/inspect/InspectionTexts.h"
#include "platform/PrintableText.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{

const QLatin1String comma(", ");

QString quoted(const QString& text) { return InspectionText::tr("“%1”").arg(printableText(text)); }

QString row(const QString& label, const QString& value)
{
    return label.leftJustified(13) + QLatin1Char(' ') + value + QLatin1Char('\n');
}

QString heading(const QString& text)
{
    return QLatin1Char('\n') + text + QLatin1Char('\n') + QString(text.size(), u'-') +
           QLatin1Char('\n');
}

QString arrowIf(bool isUnderPointer)
{
    return isUnderPointer ? InspectionText::tr("   <- under the pointer") : QString();
}

QString itemText(const Inspection& inspection)
{
    if (!inspection.item)
        return inspection.application ? InspectionText::tr("none for the application")
                                      : InspectionText::tr("none under the pointer");
    const InspectedItem& item = *inspection.item;
    QString kind = InspectionText::tr("not an application");
    if (item.kind == DockItemKind::MinimizedWindow)
        kind = InspectionText::tr("a minimised window");
    else if (item.kind != DockItemKind::Other)
        kind = item.isRunning ? InspectionText::tr("a running application")
                              : InspectionText::tr("an application, not running");
    return quoted(item.title) + comma + kind + comma +
           InspectionText::tr("in %1").arg(printableText(item.dock)) +
           arrowIf(inspection.pointsAtItem);
}

QString applicationRows(const Inspection& inspection)
{
    const InspectedApplication& application = *inspection.application;
    QStringList facts{printableText(application.name)};
    if (application.isHidden)
        facts << InspectionText::tr("hidden");
    if (!application.answers)
        facts << InspectionText::tr("does not answer");
    return row(InspectionText::tr("Application"), facts.join(comma)) +
           row(InspectionText::tr("Filter"), levelText(application.level));
}

/// A row each, the first one with the label.
QString rows(QString label, const QStringList& values)
{
    QString text;
    for (const QString& value : values)
        text += row(std::exchange(label, QString()), value);
    return text;
}

QStringList settingTexts(const Inspection& inspection)
{
    if (!inspection.hasRun)
        return {InspectionText::tr("none yet: Lumbrix has not been started before")};
    QStringList texts;
    for (const ChangedSetting& setting : inspection.settings)
        texts << settingText(setting, inspection);
    texts.removeAll(QString());
    return texts.isEmpty() ? QStringList(InspectionText::tr("none that leave anything out"))
                           : texts;
}

QString windowLines(int number, const InspectedWindow& window)
{
    const QString reason = reasonText(window);
    QStringList facts{kindText(window.subrole)};
    if (!window.owner.isEmpty())
        facts << InspectionText::tr("of %1").arg(printableText(window.owner));
    if (window.isMinimized)
        facts << InspectionText::tr("minimised");
    facts << (window.space == 0 ? InspectionText::tr("on all workspaces")
                                : InspectionText::tr("on workspace %1").arg(window.space))
          << placeText(window.frame);
    return u"%1. %2%3\n    %4\n    %5\n"_s.arg(
        QString::number(number).rightJustified(2), quoted(window.title),
        arrowIf(window.isUnderPointer),
        reason.isEmpty() ? InspectionText::tr("can be previewed")
                         : InspectionText::tr("not previewed: %1").arg(reason),
        facts.join(comma));
}

QString edgeText(std::optional<platform::DockEdge> edge)
{
    switch (edge.value_or(platform::DockEdge::Bottom)) {
    case platform::DockEdge::Left:
        return InspectionText::tr("left");
    case platform::DockEdge::Right:
        return InspectionText::tr("right");
    case platform::DockEdge::Top:
        return InspectionText::tr("top");
    case platform::DockEdge::Bottom:
        break;
    }
    return edge ? InspectionText::tr("bottom") : InspectionText::tr("unknown");
}

QString dockText(const InspectedDock& dock)
{
    if (dock.pid == 0)
        return InspectionText::tr("none: neither a Dock nor a panel that tells where its window "
                                  "buttons are");
    return QStringList{printableText(dock.name), InspectionText::tr("process %1").arg(dock.pid),
                       InspectionText::tr("edge: %1").arg(edgeText(dock.edge)),
                       InspectionText::tr("items: %1").arg(dock.items)}
        .join(comma);
}

QString displayText(const platform::DockDisplay& display)
{
    const bool isTooltip = display.kind == platform::DockDisplay::Kind::Tooltip;
    QString what = isTooltip ? InspectionText::tr("a tooltip") : InspectionText::tr("a preview");
    if (!display.isKnownOn)
        what = InspectionText::tr("perhaps %1").arg(what);
    return what + comma +
           (display.setting.isEmpty() ? InspectionText::tr("which nothing turns off")
                                      : InspectionText::tr("off with: %1").arg(display.setting));
}

/// What the program itself goes by.
QString rawRows(const Inspection& inspection)
{
    QString text;
    if (inspection.application)
        text += row(InspectionText::tr("Application"),
                    printableText(inspection.application->identifier) + comma +
                        InspectionText::tr("process %1").arg(inspection.application->pid));
    QStringList settings;
    for (const ChangedSetting& setting : inspection.settings)
        settings << u"%1=%2"_s.arg(setting.key).arg(setting.value, 0, 'g', 3);
    if (!settings.empty())
        text += row(InspectionText::tr("Settings"), settings.join(u' '));
    QStringList windows;
    for (const InspectedWindow& window : inspection.windows) {
        const QRectF& frame = window.frame;
        windows << QString::asprintf("%2lld. %#x, ", static_cast<long long>(windows.size()) + 1,
                                     window.number) +
                       printableText(window.subrole) +
                       QString::asprintf(", %g × %g pt, %g, %g", frame.width(), frame.height(),
                                         frame.x(), frame.y());
    }
    return text + rows(InspectionText::tr("Windows"), windows);
}

QString details(const Inspection& inspection)
{
    QStringList system{QSysInfo::prettyProductName(), u"Qt "_s + QString::fromLatin1(qVersion())};
    if (const QString name = qEnvironmentVariable("XDG_CURRENT_DESKTOP"); !name.isEmpty())
        system << printableText(name);
    QStringList screens;
    for (const QRectF& screen : inspection.screens)
        screens << placeText(screen);
    return row(InspectionText::tr("System"), system.join(comma)) +
           row(InspectionText::tr("Screens"), screens.join(QLatin1String("; "))) +
           row(InspectionText::tr("Dock"), dockText(inspection.dock)) +
           row(InspectionText::tr("Pointer"),
               QString::asprintf("%g, %g pt, 1 pt = %g px", inspection.pointer.x(),
                                 inspection.pointer.y(), qGuiApp->devicePixelRatio())) +
           rawRows(inspection) + QLatin1Char('\n') +
           (inspection.element.isEmpty()
                ? InspectionText::tr("There is no element under the pointer.") + QLatin1Char('\n')
                : inspection.element);
}

} // namespace

QString inspectionReport(const Inspection& inspection)
{
    QString text;
    if (inspection.runningProcess == 0) {
        text += row(InspectionText::tr("Previews"),
                    InspectionText::tr("None: Lumbrix does not run on this desktop.")) +
                row(InspectionText::tr("If it ran"), outcomeText(inspection));
    } else {
        text += row(InspectionText::tr("Previews"), outcomeText(inspection));
    }
    text += row(InspectionText::tr("Icon"), itemText(inspection));
    if (inspection.application)
        text += applicationRows(inspection);
    text += rows(InspectionText::tr("Settings"), settingTexts(inspection));
    if (!inspection.unseen.isEmpty())
        text += row(InspectionText::tr("Session"), inspection.unseen);
    QStringList displays;
    for (const platform::DockDisplay& display : inspection.dock.displays)
        displays << displayText(display);
    text += rows(InspectionText::tr("Dock's own"), displays);

    if (!inspection.windows.empty())
        text += heading(InspectionText::tr("Windows"));
    int number = 0;
    for (const InspectedWindow& window : inspection.windows)
        text += windowLines(++number, window);

    text += heading(InspectionText::tr("For a bug report"));
    QString program = QCoreApplication::applicationVersion();
    if (!inspection.runningProcess)
        program += comma + InspectionText::tr("not known whether it runs");
    else if (*inspection.runningProcess != 0)
        program += comma + InspectionText::tr("process %1").arg(*inspection.runningProcess);
    return text + row(u"Lumbrix"_s, program) + details(inspection);
}

} // namespace lumbrix
