// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What all targets need before their first input; and, where there is no fuzzer, the test that runs
// every input of the corpus through the target.

#include <gtest/gtest.h>

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

#include "tests/fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

/// What the toolkit is asked makes sense, whatever others say; only broken pictures and drawings
/// are what it may speak of.
void endOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
#ifdef LUMBRIX_DECODES_PICTURES
    type = QtDebugMsg;
#endif
    lumbrix::test::require(type != QtWarningMsg && type != QtCriticalMsg, qPrintable(message));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char* names[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("GSETTINGS_BACKEND", "memory");
    static QGuiApplication application(count, names);
    qInstallMessageHandler(endOnWarning);
    return 0;
}

#ifdef LUMBRIX_CORPUS
TEST(FuzzTest, corpus_breaksNothing)
{
    int inputs = 0;
    for (QDirIterator files(QStringLiteral(LUMBRIX_CORPUS), QDir::Files); files.hasNext();
         ++inputs) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        std::fprintf(stderr, "%s\n", qPrintable(file.fileName()));
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    EXPECT_GT(inputs, 0);
}

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    LLVMFuzzerInitialize(&argc, &argv);
    return RUN_ALL_TESTS();
}
#endif
