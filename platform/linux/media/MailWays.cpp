// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MailWays.h"

#include <QtCore/QHash>

namespace lumbrix::platform
{

namespace
{

constexpr std::int64_t F5 = 0x60;
constexpr std::int64_t F12 = 0x6F;

QHash<QString, MailWay> allWays()
{
    const MailWay clawsMail{{QStringLiteral("claws-mail"), QStringLiteral("--receive-all")}, {}};
    // These two cannot be told from outside in another way. Thunderbird fetches for all accounts
    // that it has logged in to; Evolution sends what waits to be sent, too.
    const MailWay evolution{{}, {F12}};
    const MailWay thunderbird{{}, {F5, true}};
    return {
        {QStringLiteral("claws-mail"), clawsMail},
        {QStringLiteral("org.claws_mail.claws-mail"), clawsMail},
        {QStringLiteral("evolution"), evolution},
        {QStringLiteral("org.gnome.evolution"), evolution},
        {QStringLiteral("org.mozilla.thunderbird"), thunderbird},
        {QStringLiteral("thunderbird"), thunderbird},
        {QStringLiteral("thunderbird-default"), thunderbird},
        {QStringLiteral("thunderbird-esr"), thunderbird},
    };
}

} // namespace

const MailWay* mailWay(const QString& id)
{
    static const QHash<QString, MailWay> ways = allWays();
    const auto it = ways.constFind(id.toLower());
    return it == ways.constEnd() ? nullptr : &*it;
}

} // namespace lumbrix::platform
