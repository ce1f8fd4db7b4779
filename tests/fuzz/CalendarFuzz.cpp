// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// iCalendar texts with their rules and zones. That the work has an end is the fuzzer's time limit
// to notice, and the test's.

#include <QtCore/QBuffer>

#include "platform/linux/calendar/IcalCalendar.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using namespace platform;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes = test::FuzzInput(data, size).rest();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    static const QTimeZone berlin("Europe/Berlin");
    // The 29th of March in 2026, when clocks change there.
    const ical::Window window{1'774'738'800'000, 1'774'821'600'000};
    const auto contents = ical::readCalendar(buffer, window, berlin, [] { return false; });
    require(contents.isComplete, "nobody stopped it");
    require(contents.occurrences.size() < 3 * ical::maxOccurrences, "there is an end");
    ical::Instant last = std::numeric_limits<ical::Instant>::min();
    for (const ical::Occurrence& each : contents.occurrences) {
        require(each.start >= last && each.start < window.end, "they begin one after the other");
        require(each.end >= each.start && each.end >= window.start, "they are of that day");
        last = each.start;
    }
    return 0;
}
