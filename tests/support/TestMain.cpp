// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// main() of every test program but those on a real desktop: a warning of Qt that no test announced
// fails the test that runs.

#include <gtest/gtest.h>

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>

#include "tests/support/ExpectedWarning.h"
#include "tests/support/SanitizerOptions.h"

namespace
{

void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // The platform plugin that shows nothing cannot do a few things, and says so.
    if (qstrcmp(context.category, "qt.qpa.plugin") == 0 ||
        message.startsWith(QLatin1String("This plugin does not support")))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    if (isWarning && !lumbrix::test::ExpectedWarning::accept(message))
        ADD_FAILURE() << "unexpected warning: " << qPrintable(message);
}

} // namespace

int main(int argc, char* argv[])
{
    lumbrix::test::linkSanitizerOptions();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
