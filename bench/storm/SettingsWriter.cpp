// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/SettingsWriter.h"

#include <QtCore/QFile>

#include <cstdio>
#include <iterator>

#include "Lumbrix.h"
#include "app/SettingsTable.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;
using namespace privatedesk;

SettingsWriter::SettingsWriter(Session& session, std::function<int(std::size_t)> pick)
    : m_session(session), m_pick(std::move(pick))
{
}

Fault SettingsWriter::fault()
{
    // With these the rows may stay where they are.
    return {.name = "settings written",
            .begin = [this] { change(); },
            .end =
                [this] {
                    write(m_ordinary);
                    haveItRead();
                },
            .isBlind = true};
}

void SettingsWriter::change()
{
    QFile file(settingsPath(m_session));
    if (m_ordinary.isEmpty() && file.open(QIODevice::ReadOnly))
        for (const QByteArray& line : file.readAll().split('\n'))
            if (const qsizetype sign = line.indexOf('='); sign > 0)
                m_ordinary[line.left(sign)] = line.mid(sign + 1);
    auto settings = m_ordinary;
    const auto table = settingsTable();
    for (int i = 1 + m_pick(8); i > 0; --i) {
        const SettingRow& row = table[static_cast<std::size_t>(m_pick(table.size()))];
        settings[row.key] = anyValue(row);
    }
    write(settings);
    haveItRead();
}

QByteArray SettingsWriter::anyValue(const SettingRow& row)
{
    constexpr const char* bad[] = {"none",        "-7", "1e30", "nan", "@data(\\x00\\xff",
                                   "99999999999", "\"", ""};
    if (m_pick(4) == 0)
        return bad[m_pick(std::size(bad))];
    if (row.kind == SettingKind::Color)
        return "@data(#" + QByteArray::number(0x10000000 + m_pick(0x10000000), 16) + ')';
    const int choices = row.maximum - row.minimum + 1;
    return QByteArray::number(row.minimum + m_pick(static_cast<std::size_t>(choices)));
}

void SettingsWriter::write(const QMap<QByteArray, QByteArray>& settings)
{
    QByteArray bytes = "[General]\n";
    for (auto it = settings.cbegin(); it != settings.cend(); ++it)
        bytes += it.key() + '=' + it.value() + '\n';
    m_session.write(settingsPath(m_session), bytes);
}

void SettingsWriter::haveItRead()
{
    // Off and on again.
    for (int i = 0; i < 2; ++i) {
        auto toggle = m_session.start(u"toggle"_s, lumbrixBinary(), {u"--toggle"_s});
        if (toggle->waitForExit(patience(5000)) != 0)
            std::printf("(nobody took --toggle)\n");
    }
}

} // namespace lumbrix::bench
