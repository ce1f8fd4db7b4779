// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/CommandLine.h"

#include <cstdio>
#include <string_view>

namespace lumbrix
{
namespace
{

constexpr const char* usageText = "Usage: lumbrix [--inspect | --version | --help]\n";

constexpr const char* helpText =
    "\n"
    "Shows live previews of an application's windows when the mouse rests on its icon in\n"
    "the Dock or on its button in a panel. Click a preview to bring its window forward.\n"
    "\n"
    "      --inspect  after three seconds, tell what is under the mouse and why it has previews\n"
    "                 or has none, and end; also while another Lumbrix runs\n"
    "  -h, --help     show this help and end\n"
    "  -v, --version  show the version and end\n"
    "\n"
    "Settings: $XDG_CONFIG_HOME/lumbrix/lumbrix.conf (usually ~/.config/lumbrix/lumbrix.conf)\n";

/// What was asked for may not have arrived: a full disk, a closed pipe.
int printed() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? 0 : 1; }

constexpr std::string_view inspectOption = "--inspect";

} // namespace

bool asksToInspect(int argc, const char* const* argv)
{
    return argc == 2 && argv[1] == inspectOption;
}

std::optional<int> answerCommandLine(int argc, const char* const* argv)
{
    if (argc < 2 || asksToInspect(argc, argv))
        return std::nullopt;
    const std::string_view option = argv[1];
    if (option == "--version" || option == "-v") {
        std::printf("lumbrix %s\n", LUMBRIX_VERSION);
        return printed();
    }
    if (option == "--help" || option == "-h") {
        std::printf("%s%s", usageText, helpText);
        return printed();
    }
    const char* unknown = option == inspectOption ? argv[2] : argv[1]; // it stands alone
    const char* kind = *unknown == '-' ? "option" : "argument";
    std::fprintf(stderr, "lumbrix: unknown %s '%s'\n%s", kind, unknown, usageText);
    return 2;
}

} // namespace lumbrix
