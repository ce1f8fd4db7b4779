// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Parses an iCalendar text, one component at a time.
#pragma once

#include <QtCore/QIODevice>
#include <QtGui/QColor>

#include <functional>

#include "platform/linux/calendar/IcalHandles.h"

namespace lumbrix::platform::ical
{

/// General information in a text.
struct Heading {
    bool isCalendar = false; ///< it contains a calendar or an event
    QString name;            ///< empty if it has none
    QColor color;            ///< invalid if it has none
};

using Sink = std::function<void(ComponentPtr)>;

/// Passes every complete event and time zone to the sink, in the order of the text, with only the
/// properties for its time and title. Other parts of the text, however long, use no memory. `stop`
/// is called now and then; true ends the reading.
Heading read(QIODevice& text, const Sink& sink, const std::function<bool()>& stop);

} // namespace lumbrix::platform::ical
