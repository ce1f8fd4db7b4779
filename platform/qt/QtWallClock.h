// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QTimeZone>

#include "platform/WallClock.h"

namespace lumbrix::platform
{

/// The computer's own clock and time zone.
class QtWallClock final : public WallClock
{
public:
    QDateTime now() const override
    {
        const QDateTime local = QDateTime::currentDateTime();
        const QTimeZone zone = QTimeZone::systemTimeZone();
        // A zone whose name the toolkit does not know still has an offset.
        return local.toTimeZone(zone.isValid() ? zone : QTimeZone(local.offsetFromUtc()));
    }
};

} // namespace lumbrix::platform
