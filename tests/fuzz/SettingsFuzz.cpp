// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The settings file: what is read is written again as it was, and what is set is found again.

#include "platform/StringLiterals.h"
#include "platform/linux/defaults/IniFile.h"
#include "platform/linux/defaults/IniValue.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using namespace platform;
using test::require;

namespace
{

void readValue(const QByteArray& text)
{
    inivalue::toInteger(text);
    inivalue::toFloat(text);
    inivalue::toBool(text);
    const QByteArray written = inivalue::encode(inivalue::decode(text));
    require(inivalue::encode(inivalue::decode(written)) == written, "a value stays the same");
    if (const auto list = inivalue::toArray(text))
        require(inivalue::toArray(inivalue::encodeArray(*list)) == list, "a list stays the same");
    if (const auto bytes = inivalue::toData(text))
        require(inivalue::toData(inivalue::encodeData(*bytes)) == bytes, "bytes stay the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = test::FuzzInput(data, size).rest();
    const IniFile file(bytes);
    require(file.toBytes() == bytes, "a file that is not changed stays as it was");
    require(IniFile(bytes, bytes.size() / 2).toBytes() == bytes, "so does one that is cut off");
    for (const QString& section : {IniFile::generalSection(), u"filters"_s}) {
        const auto entries = file.entries(section);
        for (const auto& [key, text] : entries)
            readValue(text);
        const QString key = entries.empty() ? QString() : entries.front().first;
        for (IniFile changed : {file, IniFile()}) {
            changed.setValue(section, key, "7");
            const auto found = IniFile(changed.toBytes()).value(section, key);
            require(key.isEmpty() || found == "7", "what is set is found");
        }
    }
    IniFile changed = file;
    changed.ensureSection(u"filters"_s);
    require(IniFile(changed.toBytes()).hasSection(u"filters"_s), "a section is there");
    changed.removeSection(u"filters"_s);
    const IniFile without(changed.toBytes());
    require(!without.hasSection(u"filters"_s), "a section is gone");
    return 0;
}
