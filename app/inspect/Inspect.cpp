// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/inspect/Inspect.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

#include "app/inspect/InspectionReport.h"
#include "app/inspect/InspectionTexts.h"
#include "app/inspect/Inspector.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds timeToPoint = 3.0;
/// An application that has not answered within this time counts as not answering.
constexpr platform::Seconds timeToAnswer = 0.4;

void say(const QString& text)
{
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    std::fflush(stderr);
}

/// False when the text could not be written, for example to a full disk or a closed pipe.
bool print(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace

int inspectAndPrint(std::optional<std::int32_t> runningProcess)
{
    const platform::Desktop& desktop = platform::desktop();
    if (!desktop.accessibility.apiEnabled()) {
        say(InspectionText::tr(
            "lumbrix: other applications' windows cannot be read on this desktop"));
        return 1;
    }
    say(InspectionText::tr(
        "Point at an icon in the Dock, or at a window: Lumbrix looks in three seconds."));
    Inspector inspector;
    bool isPrinted = false;
    platform::TimerPtr look;
    const platform::TimerPtr aim = desktop.runLoop.scheduleTimer(timeToPoint, false, [&] {
        inspector.aim();
        look = desktop.runLoop.scheduleTimer(timeToAnswer, false, [&] {
            Inspection inspection = inspector.inspect();
            inspection.runningProcess = runningProcess;
            isPrinted = print(inspectionReport(inspection));
            QCoreApplication::quit();
        });
    });
    QCoreApplication::exec();
    return isPrinted ? 0 : 1;
}

} // namespace lumbrix
