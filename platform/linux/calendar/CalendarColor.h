// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

namespace lumbrix::platform
{

/// Parses a colour of a calendar file: "#rrggbb", optionally with an opacity, which is ignored, or
/// a name. Invalid for anything else.
QColor colorFromText(const QString& text);

/// The colour of a calendar without a colour of its own; always the same for the same calendar.
QColor colorForUID(const QString& uid);

} // namespace lumbrix::platform
