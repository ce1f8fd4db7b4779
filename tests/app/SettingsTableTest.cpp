// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtCore/QFile>
#include <gtest/gtest.h>

#include "app/SettingsTable.h"
#include "platform/StringLiterals.h"

namespace lumbrix::test
{
namespace
{

using namespace Qt::StringLiterals;

/// What a file of the sources has from one text up to another.
std::string partOf(const QString& path, const QString& from, const QString& to)
{
    QFile file(QStringLiteral(SOURCE_FOLDER "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    const QString text = QString::fromUtf8(file.readAll());
    const qsizetype start = text.indexOf(from) + from.size();
    return text.mid(start, text.indexOf(to, start) - start).toStdString();
}

// Where a line differs, the one of the table is what the document should say.
TEST(SettingsTableTest, documents_tellOfEverySettingAsTheTableDoes)
{
    QString readme;
    QString manual;
    for (const SettingRow& row : settingsTable()) {
        const QString key = QLatin1String(row.key);
        const QString meaning = QLatin1String(row.meaning);
        QString first;
        QString range;
        if (row.kind != SettingKind::Color) {
            first = QString::number(row.first);
            range = row.kind == SettingKind::Flag ? u"0 or 1"_s
                                                  : u"%1 to %2"_s.arg(row.minimum).arg(row.maximum);
        }
        readme += u"| `%1` | %2 | %3 | %4 |\n"_s.arg(key, first, range, meaning);
        const QString values = row.kind == SettingKind::Flag ? first : first + u"; "_s + range;
        manual += u".TP\n.BR %1%2\n%3.\n"_s.arg(
            key, first.isEmpty() ? QString() : u" \" (%1)\""_s.arg(values),
            meaning.at(0).toUpper() + meaning.mid(1));
    }
    EXPECT_EQ(partOf(u"README.md"_s, u"|---|---|---|---|\n"_s, u"\n\n"_s) + "\n",
              readme.toStdString());
    EXPECT_EQ(partOf(u"packaging/lumbrix.1.in"_s, u"may go beyond it.\n"_s, u".PP\n"_s),
              manual.toStdString());
}

} // namespace
} // namespace lumbrix::test
