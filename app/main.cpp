// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Lumbrix: live previews of an application's windows beside its Dock icon.
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>

#include <cstdio>

#include "app/CommandLine.h"
#include "app/LumbrixController.h"
#include "app/QuitSignals.h"
#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/qt/QtRunLoop.h"

namespace
{

int fail(const QString& reason)
{
    std::fprintf(stderr, "lumbrix: %s\n", qUtf8Printable(reason));
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace lumbrix;
    if (const auto status = answerCommandLine(argc, argv))
        return *status;
    QString error;
    if (!platform::LinuxDesktop::prepareToolkit(error))
        return fail(error);

    QApplication::setApplicationName(QStringLiteral("Lumbrix"));
    QApplication::setApplicationVersion(QStringLiteral(LUMBRIX_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argc, argv);
    // Two dozen panels' backgrounds; what is drawn for sizes and states that come up no more need
    // not be kept as long as the toolkit would.
    QPixmapCache::setCacheLimit(4 * 1024);

    platform::QtRunLoop runLoop;
    platform::LinuxDesktopOptions options;
    options.pixelsPerPoint = application.devicePixelRatio();
    const auto desktop = platform::LinuxDesktop::create(runLoop, options, error);
    if (!desktop)
        return fail(error);
    const platform::DesktopScope scope(desktop->ports());

    const QuitSignals quitSignals;
    LumbrixController controller;
    int status = 1;
    if (controller.awakeFromNib()) {
        controller.applicationDidFinishLaunching();
        status = QApplication::exec();
        controller.applicationWillTerminate();
    } else {
        fail(QStringLiteral("other applications' windows cannot be read on this desktop"));
    }
    desktop->stop();
    runLoop.shutdown();
    LXHandler::releaseSharedHandler();
    return status;
}
