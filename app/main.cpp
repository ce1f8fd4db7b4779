// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Lumbrix: live previews of an application's windows beside its Dock icon.
#include <QtCore/QLocale>
#include <QtGui/QIcon>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <cstdlib>

#include "app/CommandLine.h"
#include "app/DisplayLoss.h"
#include "app/LumbrixController.h"
#include "app/QuitSignals.h"
#include "app/SessionEnd.h"
#include "app/Translations.h"
#include "app/inspect/Inspect.h"
#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/Log.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/session/SingleInstance.h"
#include "platform/qt/QtRunLoop.h"

namespace
{

using namespace lumbrix;
using namespace Qt::StringLiterals;
using platform::SingleInstance;
using platform::StartRequest;

int fail(const QString& reason)
{
    std::fprintf(stderr, "lumbrix: %s\n", qUtf8Printable(log::oneLine(reason)));
    return 1;
}

/// Returns when the program must end.
void run(LumbrixController& controller, QApplication& application, SingleInstance& instance,
         StartMode mode)
{
    const QuitSignals quitSignals;
    const SessionEnd sessionEnd(application);
    QObject::connect(&quitSignals, &QuitSignals::quitRequested, &controller,
                     &LumbrixController::quitApp);
    QObject::connect(&sessionEnd, &SessionEnd::quitRequested, &controller,
                     &LumbrixController::quitApp);
    if (!controller.awakeFromNib())
        return;
    controller.applicationDidFinishLaunching();
    if (mode == StartMode::Preferences)
        controller.showPreferences();
    // Who asks for that wants previews: there were none while the program did not run.
    if (mode == StartMode::Toggle && LXHandler::sharedHandler().settings().disabled != 0)
        controller.toggleDisabled();
    instance.setHandler([&controller](StartRequest request) {
        if (request == StartRequest::TogglePreviews)
            controller.toggleDisabled();
        else
            controller.applicationShouldHandleReopen();
    });
    QApplication::exec();
    instance.release();
    controller.applicationWillTerminate();
}

/// A thread that does not end must not keep the program from ending, and what that thread uses must
/// not be destroyed under it.
void shutDown(platform::QtRunLoop& runLoop, int status)
{
    if (runLoop.shutdown())
        return;
    std::fflush(nullptr);
    std::_Exit(status);
}

/// Works whether or not a Lumbrix is running.
int inspect(platform::QtRunLoop& runLoop, const platform::LinuxDesktopOptions& options)
{
    QString error;
    const auto desktop = platform::LinuxDesktop::create(runLoop, options, error);
    if (!desktop)
        return fail(error);
    const platform::DesktopScope scope(desktop->ports());
    const int status = inspectAndPrint(SingleInstance::runningProcess());
    desktop->stop();
    shutDown(runLoop, status);
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    log::installHandler();
    if (const auto status = answerCommandLine(argc, argv))
        return *status;
    QString error;
    auto display = platform::LinuxDesktop::prepareToolkit(error);
    if (!display)
        return fail(error);

    QApplication::setApplicationName(u"Lumbrix"_s);
    QApplication::setApplicationVersion(QStringLiteral(LUMBRIX_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argc, argv);
    const DisplayLoss displayLoss;
    display.reset();
    installTranslations(QLocale::system().uiLanguages(), catalogueFolders());
    QApplication::setWindowIcon(QIcon(u":/images/lumbrix.svg"_s));
    // Enough for the backgrounds of two dozen panels. The toolkit's default would keep drawings for
    // sizes and states that are no longer used.
    QPixmapCache::setCacheLimit(4 * 1024);

    qCDebug(log::session, "Lumbrix %s starts", LUMBRIX_VERSION);
    platform::QtRunLoop runLoop;
    platform::LinuxDesktopOptions options;
    options.pixelsPerPoint = application.devicePixelRatio();
    const StartMode mode = startMode(argc, argv);
    if (mode == StartMode::Inspect)
        return inspect(runLoop, options);
    const auto instance = SingleInstance::create(runLoop);
    switch (instance->start(mode == StartMode::Toggle ? StartRequest::TogglePreviews
                                                      : StartRequest::Open)) {
    case SingleInstance::Result::First:
        break;
    case SingleInstance::Result::HandedOver:
        // Who asked for something knows what became of the start.
        if (mode == StartMode::Usual)
            fail(u"Lumbrix already runs, as %1: it was asked to open its preferences"_s.arg(
                instance->otherOne()));
        return 0;
    case SingleInstance::Result::NoAnswer:
        return fail(u"Lumbrix already runs, as %1, and does not answer: end that process, then "
                    "start Lumbrix again"_s.arg(instance->otherOne()));
    }

    const auto desktop = platform::LinuxDesktop::create(runLoop, options, error);
    if (!desktop)
        return fail(error);
    const platform::DesktopScope scope(desktop->ports());
    LumbrixController controller;
    run(controller, application, *instance, mode);
    desktop->stop();
    shutDown(runLoop, 0);
    LXHandler::releaseSharedHandler();
    return 0;
}
