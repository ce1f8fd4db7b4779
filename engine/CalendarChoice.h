// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which calendars the user wants to see.
#pragma once

#include <QtCore/QStringList>

#include <vector>

#include "platform/CalendarStore.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

/// Main thread. The settings keep the uids of the calendars that are switched off, as "calendars";
/// so a new calendar is shown.
namespace lumbrix::CalendarChoice
{

/// As stored in the settings, including calendars that the store does not know.
QStringList disabledUIDs(const platform::UserDefaults& defaults);
/// Of the calendars that the store knows, in the order of the settings.
std::vector<platform::Calendar> getDisabledCalendars(const platform::Desktop& ports);
/// Of the calendars that the store knows, in its order.
std::vector<platform::Calendar> getAllowedCalendars(const platform::Desktop& ports);
void setDisabledUIDs(platform::UserDefaults& defaults, const QStringList& uids);

} // namespace lumbrix::CalendarChoice
