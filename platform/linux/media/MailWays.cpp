// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MailWays.h"

namespace lumbrix::platform
{

namespace
{

struct Row {
    const char* id;
    const char* command;
};

constexpr Row rows[] = {
    {"claws-mail", "claws-mail --receive-all"},
    {"org.claws_mail.Claws-Mail", "claws-mail --receive-all"},
};

} // namespace

QStringList fetchMailCommand(const QString& id)
{
    for (const Row& row : rows) {
        if (id.compare(QLatin1String(row.id), Qt::CaseInsensitive) == 0) {
            return QString::fromLatin1(row.command).split(u' ');
        }
    }
    return {};
}

} // namespace lumbrix::platform
