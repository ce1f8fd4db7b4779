// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

namespace lumbrix::platform
{

/// As calendar files write colours: "#rrggbb", perhaps with an opacity, which is dropped, or a
/// name. Invalid for anything else.
QColor colorFromText(const QString& text);

/// The colour of a calendar that has none of its own; always the same one.
QColor colorForUID(const QString& uid);

} // namespace lumbrix::platform
