// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MailWays.h"
#include "platform/StringLiterals.h"

#include <QtCore/QHash>

namespace lumbrix::platform
{

namespace
{

constexpr std::int64_t F5 = 0x60;
constexpr std::int64_t F12 = 0x6F;

QHash<QString, MailWay> allWays()
{
    const MailWay clawsMail{{u"claws-mail"_s, u"--receive-all"_s}, {}, {}};
    // These two can only be controlled by their shortcut. Thunderbird fetches for all accounts that
    // it has logged in to; Evolution also sends pending mail.
    const MailWay evolution{{}, {F12}, {}};
    const MailWay thunderbird{{}, {F5, true}, u"Mail"_s};
    return {
        {u"claws-mail"_s, clawsMail},
        {u"org.claws_mail.claws-mail"_s, clawsMail},
        {u"evolution"_s, evolution},
        {u"org.gnome.evolution"_s, evolution},
        {u"org.mozilla.thunderbird"_s, thunderbird},
        {u"thunderbird"_s, thunderbird},
        {u"thunderbird-default"_s, thunderbird},
        {u"thunderbird-esr"_s, thunderbird},
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
