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

// Where a line differs, the one of the table is what the manual should say.
TEST(SettingsTableTest, manual_tellsOfEverySettingAsTheTableDoes)
{
    QFile file(QStringLiteral(SOURCE_FOLDER "/packaging/lumbrix.1.in"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QString before = u"may go beyond it.\n"_s;
    const qsizetype start = text.indexOf(before) + before.size();
    const QString told = text.mid(start, text.indexOf(u".PP\n"_s, start) - start);

    QString wanted;
    for (const SettingRow& row : settingsTable()) {
        QString values;
        if (row.kind == SettingKind::Flag)
            values = u" \" (%1)\""_s.arg(row.first);
        else if (row.kind != SettingKind::Color)
            values = u" \" (%1; %2 to %3)\""_s.arg(row.first).arg(row.minimum).arg(row.maximum);
        const QString meaning = QLatin1String(row.meaning);
        wanted += u".TP\n.BR %1%2\n%3.\n"_s.arg(QLatin1String(row.key), values,
                                                meaning.at(0).toUpper() + meaning.mid(1));
    }
    EXPECT_EQ(told.toStdString(), wanted.toStdString());
}

} // namespace
} // namespace lumbrix::test
