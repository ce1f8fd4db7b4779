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
    "\n"
    "      --preferences\n"
    "                 open the preferences, of the Lumbrix that runs if there is one\n"
    "      --toggle   turn the previews of the Lumbrix that runs off, or on again; if none runs,\n"
    "                 start it with previews on\n"
    "      --inspect  after three seconds, tell what is under the mouse and why it has previews\n"
    "                 or has none, and end; also while another Lumbrix runs\n"
    "      --verbose  tell on standard error why previews come, stay and go, or only of WHAT:\n"
    "                 %s;\n"
    "                 with \"titles\" among them the titles of windows, too\n"
    "  -h, --help     show this help and end\n"
    "  -v, --version  show the version and end\n"
    "\n"
    "Settings: $XDG_CONFIG_HOME/lumbrix/lumbrix.conf (usually ~/.config/lumbrix/lumbrix.conf)\n";

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
    const bool isKnown = modeOf(option) != StartMode::Usual || (argc > 2 && turnsOn(option));
    const char* unknown = isKnown ? argv[2] : argv[1]; // it stands alone
    const char* kind = *unknown == '-' ? "option" : "argument";
    std::fprintf(stderr, "lumbrix: unknown %s '%s'\n%s", kind, unknown, usageText);
    return 2;
}

} // namespace lumbrix
