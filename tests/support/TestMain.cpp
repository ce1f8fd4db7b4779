// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// main() of every test program but those on a real desktop: a warning of Qt fails the
// test that runs.

#include <gtest/gtest.h>

#include <QtWidgets/QApplication>

// What the sanitizers are told, however the program is started.
extern "C" {
const char* __tsan_default_options()
{
    return "halt_on_error=1:second_deadlock_stack=1:suppressions=" LUMBRIX_TSAN_SUPPRESSIONS;
}
// Strings need not end where they are counted: libxkbcommon hands over parts of the server's
// answers.
const char* __asan_default_options() { return "detect_stack_use_after_return=1"; }
const char* __ubsan_default_options() { return "print_stacktrace=1"; }
}

namespace
{

void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // The platform plugin that shows nothing cannot do a few things, and says so.
    if (qstrcmp(context.category, "qt.qpa.plugin") == 0 ||
        message.startsWith(QLatin1String("This plugin does not support")))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "unexpected warning: " << qPrintable(message);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
