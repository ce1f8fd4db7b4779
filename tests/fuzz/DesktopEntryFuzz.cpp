// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Desktop entries and their command lines.

#include "platform/StringLiterals.h"
#include "platform/linux/applications/ApplicationRoles.h"
#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/applications/ProcessNames.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using namespace platform;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    bool isHidden = false;
    const auto entry = parseDesktopEntry(test::FuzzInput(data, size).rest(), u"org.example.Id"_s,
                                         u"/usr/id.desktop"_s, {u"de_AT"_s, u"de"_s}, isHidden);
    if (!entry)
        return 0;
    require(!isHidden && !entry->name.isEmpty(), "what is not deleted has a name");
    const QStringList words = execArguments(entry->exec);
    require(entry->executable().isEmpty() || !words.isEmpty(), "no program without a command");
    require(!entry->executable().contains(u'/'), "a program is a base name");
    roleOfEntry(*entry);
    ProcessNames{entry->workingDirectory, words}.programs();
    return 0;
}
