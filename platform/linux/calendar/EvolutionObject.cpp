// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/EvolutionObject.h"

namespace lumbrix::platform
{
namespace
{

bool isName(QStringView line, QStringView name)
{
    return line.size() > name.size() && line.startsWith(name, Qt::CaseInsensitive) &&
           (line[name.size()] == u':' || line[name.size()] == u';');
}

} // namespace

EvolutionObject EvolutionObject::parse(const QString& text)
{
    EvolutionObject object;
    bool isInUid = false;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype newline = text.indexOf(u'\n', start);
        const qsizetype end = newline < 0 ? text.size() : newline;
        QStringView line = QStringView(text).mid(start, end - start);
        start = end + 1;
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.startsWith(u' ') || line.startsWith(u'\t')) { // continues the line before
            if (isInUid)
                object.uid += line.mid(1);
            continue;
        }
        isInUid = object.uid.isEmpty() && isName(line, u"UID") && line.contains(u':');
        if (isInUid)
            object.uid = line.mid(line.indexOf(u':') + 1).toString();
        object.recurs = object.recurs || isName(line, u"RRULE") || isName(line, u"RDATE") ||
                        isName(line, u"RECURRENCE-ID");
    }
    object.uid = object.uid.trimmed();
    return object;
}

} // namespace lumbrix::platform
