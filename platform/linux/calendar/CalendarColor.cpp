// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/CalendarColor.h"

#include <array>

namespace lumbrix::platform
{

QColor colorFromText(const QString& text)
{
    const QString name = text.trimmed();
    const QString known = name.startsWith(u'#') ? name.left(7) : name.toLower();
    if (!QColor::isValidColor(known))
        return {};
    return QColor(known).rgb();
}

QColor colorForUID(const QString& uid)
{
    static const std::array<QColor, 8> colors{QColor(0x3a87d8), QColor(0xe0692e), QColor(0x4aa84f),
                                              QColor(0xa45cc4), QColor(0xd64559), QColor(0x1ba39c),
                                              QColor(0xd9a514), QColor(0x8a6d52)};
    std::size_t sum = 0;
    for (const QChar c : uid)
        sum = sum * 31 + c.unicode();
    return colors[sum % colors.size()];
}

} // namespace lumbrix::platform
