// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What Evolution Data Server tells of calendars and events.

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/EvolutionObject.h"
#include "platform/linux/calendar/EvolutionSource.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using namespace platform;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = test::FuzzInput(data, size).rest();
    const QString text = QString::fromUtf8(bytes);
    const QString uid = text.section(u'\n', 0, 0);
    if (const auto source = EvolutionSource::parse(uid, bytes, u"/data"_s)) {
        const bool isOwn = !bytes.contains("CustomFile") && !source->file.isEmpty();
        require(!isOwn || source->file.count(u'/') == 4, "a file is in the calendar's folder");
    }
    const EvolutionObject object = EvolutionObject::parse(text);
    require(object.uid == object.uid.trimmed(), "no name with blanks about it");
    return 0;
}
