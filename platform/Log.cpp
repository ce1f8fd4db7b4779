// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/Log.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <utility>

#include "platform/PrintableText.h"
#include "platform/StringLiterals.h"

namespace lumbrix::log
{
namespace
{

constexpr const char* subsystems[] = {"calendar", "dock",    "hover",    "keys",   "media",
                                      "pictures", "session", "settings", "windows"};
constexpr QLatin1String titlesToo("titles");
/// More than any message needs whose parts are bounded.
constexpr qsizetype maxCharacters = 2000;

std::atomic<bool> showsTitles = false;
QStringList& leftOut()
{
    static QStringList beginnings;
    return beginnings;
}

bool isSubsystem(const QString& word)
{
    return std::ranges::any_of(subsystems,
                               [&](const char* name) { return word == QLatin1String(name); });
}

void write(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (std::ranges::any_of(std::as_const(leftOut()), [&](const QString& beginning) {
            return message.startsWith(beginning);
        }))
        return;
    const QString text = qFormatLogMessage(type, context, message);
    if (!text.isEmpty()) // of an empty pattern
        std::fprintf(stderr, "%s\n", qUtf8Printable(oneLine(text)));
}

} // namespace

// Warnings are always written; what only explains is not.
Q_LOGGING_CATEGORY(calendar, "lumbrix.calendar", QtWarningMsg)
Q_LOGGING_CATEGORY(dock, "lumbrix.dock", QtWarningMsg)
Q_LOGGING_CATEGORY(hover, "lumbrix.hover", QtWarningMsg)
Q_LOGGING_CATEGORY(keys, "lumbrix.keys", QtWarningMsg)
Q_LOGGING_CATEGORY(media, "lumbrix.media", QtWarningMsg)
Q_LOGGING_CATEGORY(pictures, "lumbrix.pictures", QtWarningMsg)
Q_LOGGING_CATEGORY(session, "lumbrix.session", QtWarningMsg)
Q_LOGGING_CATEGORY(settings, "lumbrix.settings", QtWarningMsg)
Q_LOGGING_CATEGORY(windows, "lumbrix.windows", QtWarningMsg)

bool turnOn(QStringView list)
{
    QStringList words = list.toString().split(u',', Qt::SkipEmptyParts);
    const bool withTitles = words.removeAll(titlesToo) > 0;
    if (!std::ranges::all_of(words, isSubsystem))
        return false;
    if (words.isEmpty())
        words << u"*"_s;
    QString rules;
    for (const QString& word : words)
        rules += u"lumbrix.%1=true\n"_s.arg(word);
    QLoggingCategory::setFilterRules(rules);
    qSetMessagePattern(u"%{time hh:mm:ss.zzz} %{if-category}%{category}: %{endif}%{message}"_s);
    showsTitles = withTitles;
    return true;
}

QString names()
{
    QStringList words;
    for (const char* name : subsystems)
        words << QString::fromLatin1(name);
    return words.join(u',');
}

QString title(const QString& text)
{
    return showsTitles ? u" “%1”"_s.arg(printableText(text)) : QString();
}

void leaveOut(const QStringList& beginnings) { leftOut() = beginnings; }

void installHandler() { qInstallMessageHandler(write); }

QString oneLine(const QString& message) { return printableUpTo(maxCharacters, message); }

} // namespace lumbrix::log
