// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/CommandLine.h"

#include <cstdio>
#include <string_view>
#include <utility>

#include "platform/Log.h"

namespace lumbrix
{
namespace
{

constexpr const char* usageText =
    "Usage: lumbrix [--preferences | --toggle | --inspect | --verbose[=WHAT,...] |\n"
    "                --version | --help]\n";

constexpr const char* helpText =
    "\n"
    "Shows live previews of an application's windows when the mouse rests on its icon in\n"
    "the Dock or on its button in a panel. Click a preview to bring its window forward.\n"
    "Started again while it runs, it opens its preferences.\n"
    "\n"
    "      --preferences\n"
    "                 open the preferences, of the Lumbrix that runs if there is one\n"
    "      --toggle   turn the previews of the Lumbrix that runs off, or on again; if none runs,\n"
    "                 start it with previews on\n"
    "      --inspect  wait three seconds while you point at an icon, print why it has previews\n"
    "                 or none, and end; Lumbrix may run meanwhile\n"
    "      --verbose  run, and say on standard error why previews come, stay and go; with\n"
    "                 =WHAT only about the subjects named there, of\n"
    "                 %s;\n"
    "                 where \"titles\" is among them, titles of windows are shown, too\n"
    "  -h, --help     show this help and end\n"
    "  -v, --version  show the version and end\n"
    "\n"
    "Settings: $XDG_CONFIG_HOME/lumbrix/lumbrix.conf (usually ~/.config/lumbrix/lumbrix.conf)\n"
    "More: man lumbrix\n";

/// Flushes standard output and returns the exit status: 1 when the text could not be written, for
/// example to a full disk or a closed pipe.
int printed() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 ? 0 : 1; }

constexpr std::string_view verboseOption = "--verbose";

/// What the option starts the program for; the usual where it is no such option.
StartMode modeOf(std::string_view option)
{
    constexpr std::pair<std::string_view, StartMode> modes[] = {
        {"--inspect", StartMode::Inspect},
        {"--preferences", StartMode::Preferences},
        {"--toggle", StartMode::Toggle},
    };
    for (const auto& [name, mode] : modes)
        if (option == name)
            return mode;
    return StartMode::Usual;
}

/// Whether the option is one to tell more, and names only what there is.
bool turnsOn(std::string_view option)
{
    if (!option.starts_with(verboseOption))
        return false;
    option.remove_prefix(verboseOption.size());
    if (option.empty())
        return log::turnOn({});
    return option.front() == '=' && option.size() > 1 &&
           log::turnOn(QString::fromLocal8Bit(option.data() + 1,
                                              static_cast<qsizetype>(option.size()) - 1));
}

} // namespace

StartMode startMode(int argc, const char* const* argv)
{
    return argc == 2 ? modeOf(argv[1]) : StartMode::Usual;
}

std::optional<int> answerCommandLine(int argc, const char* const* argv)
{
    if (argc < 2 || startMode(argc, argv) != StartMode::Usual)
        return std::nullopt;
    const std::string_view option = argv[1];
    if (option == "--version" || option == "-v") {
        std::printf("lumbrix %s\n", LUMBRIX_VERSION);
        return printed();
    }
    if (option == "--help" || option == "-h") {
        std::fputs(usageText, stdout);
        std::printf(helpText, qUtf8Printable(log::names()));
        return printed();
    }
    if (argc == 2 && turnsOn(option))
        return std::nullopt;
    if (modeOf(option) != StartMode::Usual || (argc > 2 && turnsOn(option)))
        std::fprintf(stderr, "lumbrix: '%s' stands alone, without '%s'\n", argv[1], argv[2]);
    else
        std::fprintf(stderr, "lumbrix: unknown %s '%s'\n",
                     option.starts_with('-') ? "option" : "argument", argv[1]);
    std::fputs(usageText, stderr);
    if (option.starts_with(verboseOption))
        std::fprintf(stderr, "WHAT is one of %s,titles\n", qUtf8Printable(log::names()));
    return 2;
}

} // namespace lumbrix
