// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A media player and a calendar server as processes of their own, which can be stopped and killed.
#pragma once

#include <QtCore/QString>

namespace lumbrix::bench
{

/// The words for serve().
inline constexpr char playerService[] = "player";
inline constexpr char calendarService[] = "calendar";

// What the service of this number tells.
QString songOf(int number);
QString coverOf(int number, const QString& home); ///< the song's picture, a file
int eventsOf(int number);                         ///< of today; more than one, fewer than ten

/// Joins the session's bus as this service and answers until it is killed. The program's status.
int serve(const QString& service, int number);

} // namespace lumbrix::bench
