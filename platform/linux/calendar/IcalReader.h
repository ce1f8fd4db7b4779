// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Takes an iCalendar text apart, one component after the other.
#pragma once

#include <QtCore/QIODevice>
#include <QtGui/QColor>

#include <functional>

#include "platform/linux/calendar/IcalHandles.h"

namespace lumbrix::platform::ical
{

/// What a text says of itself.
struct Heading {
    bool isCalendar = false; ///< there is a calendar or an event in it
    QString name;            ///< empty when it says none
    QColor color;            ///< invalid when it says none
};

using Sink = std::function<void(ComponentPtr)>;

/// Gives the sink every event and time zone that is complete, in the order of the text, each with
/// those of its properties that tell when it is and what it is called. Whatever else is in the text
/// costs no memory, however long it is. `stop` is asked now and then; true ends the reading.
Heading read(QIODevice& text, const Sink& sink, const std::function<bool()>& stop);

} // namespace lumbrix::platform::ical
