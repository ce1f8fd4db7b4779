// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the program tells of itself for a bug report: one category for each subsystem, off at first.
#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>

namespace lumbrix::log
{

// Any thread. Arguments are evaluated only while the category is on. Applications go by their
// identifiers and windows by their numbers; what the user reads or writes (titles, tracks, names of
// calendars) goes through title().
Q_DECLARE_LOGGING_CATEGORY(calendar) ///< which calendars were read
Q_DECLARE_LOGGING_CATEGORY(dock)     ///< which Docks there are, and how many items they have
Q_DECLARE_LOGGING_CATEGORY(hover)    ///< why a row came, stayed, went or did not come
Q_DECLARE_LOGGING_CATEGORY(keys)     ///< which keys are taken from other programs
Q_DECLARE_LOGGING_CATEGORY(media)    ///< players and mail programs, and what they were told
Q_DECLARE_LOGGING_CATEGORY(pictures) ///< pictures that are late or cannot be had
Q_DECLARE_LOGGING_CATEGORY(session)  ///< what the desktop offers, and who asks for what
Q_DECLARE_LOGGING_CATEGORY(settings) ///< reading and saving
Q_DECLARE_LOGGING_CATEGORY(windows)  ///< which windows are known, and why others are not

/// Turns categories on by the last parts of their names, "hover,dock", all of them with an empty
/// list; "titles" among them has titles written, too. False, and nothing changes, when it holds
/// another word. QT_LOGGING_RULES has the last word. Main thread, before others run.
bool turnOn(QStringView list);
/// "calendar,dock,..." for a usage text.
QString names();

/// The text in quotes where titles are wanted, else nothing. For the end of a message.
QString title(const QString& text);

/// From now on each message of this program and of the toolkit is one line on standard error,
/// escaped: neither may hold a text of another program that commands a terminal or looks like
/// further messages.
void installHandler();
/// Messages of the toolkit that begin so are left out from now on, because the program says the
/// same in other words. Main thread, before others run.
void leaveOut(const QStringList& beginnings);
/// What the handler makes of a message: escaped, and of a bounded length.
QString oneLine(const QString& message);

} // namespace lumbrix::log
