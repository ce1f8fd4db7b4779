// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/IcalReader.h"

#include <algorithm>
#include <array>

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/CalendarColor.h"

namespace lumbrix::platform::ical
{
namespace
{

constexpr std::array eventProperties{"UID",           "DTSTART", "DTEND",   "DURATION",
                                     "RRULE",         "RDATE",   "EXDATE",  "SUMMARY",
                                     "RECURRENCE-ID", "STATUS",  "SEQUENCE"};
constexpr std::array zoneProperties{"TZID",  "TZOFFSETFROM", "TZOFFSETTO",
                                    "RRULE", "RDATE",        "DTSTART"};

template <class List> bool contains(const List& list, const QByteArray& name)
{
    return std::find(list.begin(), list.end(), name) != list.end();
}

/// The text before the first of these characters; removes it from the input.
QByteArray takeName(QByteArray& line)
{
    const auto end =
        std::find_if(line.cbegin(), line.cend(), [](char c) { return c == ':' || c == ';'; });
    QByteArray name = line.left(end - line.cbegin()).toUpper();
    line.remove(0, end - line.cbegin());
    return name;
}

class Reader
{
public:
    explicit Reader(const Sink& sink) : m_sink(sink) { icalerror_set_errors_are_fatal(false); }

    void read(QIODevice& text, const std::function<bool()>& stop)
    {
        icalparser_set_gen_data(m_parser.get(), &text);
        int lines = 0;
        while (BufferPtr line{icalparser_get_line(m_parser.get(), nextPart)}) {
            if (++lines % 256 == 0 && stop())
                return;
            take(line.get());
        }
    }

    const Heading& heading() const { return m_heading; }

private:
    static char* nextPart(char* buffer, std::size_t size, void* text)
    {
        const qint64 length =
            static_cast<QIODevice*>(text)->readLine(buffer, static_cast<qint64>(size));
        return length > 0 ? buffer : nullptr;
    }

    void take(char* line)
    {
        QByteArray rest(line);
        const QByteArray name = takeName(rest);
        if (name == "BEGIN")
            begin(rest.mid(1).trimmed().toUpper());
        else if (name == "END")
            end();
        else if (m_depth == 0 && m_unwanted == 0)
            takeHeading(name, line, rest);
        else if (m_unwanted == 0 &&
                 (m_isZone ? contains(zoneProperties, name) : contains(eventProperties, name)))
            icalparser_add_line(m_parser.get(), line);
    }

    void begin(const QByteArray& kind)
    {
        const bool isOuter = m_depth == 0 && (kind == "VEVENT" || kind == "VTIMEZONE");
        const bool isInner = m_depth == 1 && m_isZone && (kind == "STANDARD" || kind == "DAYLIGHT");
        if (m_unwanted > 0 || (!isOuter && !isInner)) {
            // A calendar may contain events, so its contents are read as if they were on the
            // outermost level.
            if (m_unwanted > 0 || m_depth > 0 || kind != "VCALENDAR")
                ++m_unwanted;
            else
                m_heading.isCalendar = true;
            return;
        }
        m_kinds[m_depth++] = kind;
        if (isOuter)
            m_isZone = kind == "VTIMEZONE";
        m_heading.isCalendar = true;
        addLine("BEGIN:" + kind);
    }

    /// Ends the component that began last, whatever the name: a name that does not match would be
    /// of no use.
    void end()
    {
        if (m_unwanted > 0) {
            --m_unwanted;
            return;
        }
        if (m_depth == 0)
            return;
        --m_depth;
        if (ComponentPtr component = addLine("END:" + m_kinds[m_depth]); component && m_depth == 0)
            m_sink(std::move(component));
    }

    void takeHeading(const QByteArray& name, const char* line, const QByteArray& rest)
    {
        // The standard property, and the one used before the standard.
        if (name == "NAME" || name == "X-WR-CALNAME") {
            if (const PropertyPtr property{icalproperty_new_from_string(line)}) {
                if (const char* value = icalproperty_get_value_as_string(property.get()))
                    m_heading.name = plain(QString::fromUtf8(value));
            }
        } else if (name == "COLOR" || name == "X-APPLE-CALENDAR-COLOR") {
            m_heading.color = colorFromText(QString::fromUtf8(rest.mid(rest.indexOf(':') + 1)));
        }
    }

    static QString plain(QString text)
    {
        return text.replace(u"\\,"_s, u","_s)
            .replace(u"\\;"_s, u";"_s)
            .replace(u"\\n"_s, u" "_s, Qt::CaseInsensitive)
            .replace(u"\\\\"_s, u"\\"_s)
            .trimmed();
    }

    ComponentPtr addLine(QByteArray line)
    {
        return ComponentPtr(icalparser_add_line(m_parser.get(), line.data()));
    }

    const Sink& m_sink;
    const ParserPtr m_parser{icalparser_new()};
    Heading m_heading;
    std::array<QByteArray, 2> m_kinds; ///< of what is open
    std::size_t m_depth = 0;
    bool m_isZone = false;
    qint64 m_unwanted = 0; ///< depth of nested components that are skipped
};

} // namespace

Heading read(QIODevice& text, const Sink& sink, const std::function<bool()>& stop)
{
    Reader reader(sink);
    reader.read(text, stop);
    return reader.heading();
}

} // namespace lumbrix::platform::ical
