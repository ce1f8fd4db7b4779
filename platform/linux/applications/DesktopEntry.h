// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One application as its desktop entry describes it.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <optional>

namespace lumbrix::platform
{

struct DesktopEntry {
    QString id; ///< file name below the applications folder, '/' as '-', without ".desktop"
    QString path;
    QString name; ///< localized; never empty
    QString icon; ///< a name in the icon theme, or the path of a file; may be empty
    QString exec; ///< the unparsed command line of the entry
    QString workingDirectory;
    QString startupWmClass;
    bool terminal = false;
    bool noDisplay = false;

    /// Base name of the program that Exec starts; "env" and assignments before it are skipped.
    QString executable() const;
};
using DesktopEntryPtr = std::shared_ptr<const DesktopEntry>;

/// The spellings of a locale name that keys may carry, best first: de_AT@euro, de_AT, de@euro, de.
QStringList localeSpellings(const QString& locale);
/// The user's, from the environment.
QStringList localeSpellings();

/// Null if the text does not describe an application, or one that counts as deleted (`isHidden` is
/// then true, and entries with the same id further down the search path are masked).
std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QString& id,
                                              const QString& path, const QStringList& locales,
                                              bool& isHidden);

/// The words of an Exec line, with quotes resolved and field codes removed.
QStringList execArguments(const QString& exec);

} // namespace lumbrix::platform
