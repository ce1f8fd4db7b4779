// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A Plank on the message bus, which answers as the real one or not at all.
#pragma once

#include <QtCore/QPoint>

#include <map>

#include "tests/platform/media/PrivateBus.h"

namespace lumbrix::test
{

class TestPlank final : public BusObject
{
public:
    struct Dock {
        int position = 3; ///< left, right, top, bottom
        /// By URI; that without one is the first that has no desktop entry.
        std::map<QString, QPoint> items;
    };

    TestPlank(const QDBusConnection& bus, const QString& name, std::map<QString, Dock> docks);

    std::map<QString, Dock> docks;
    /// Says that the items of the dock changed.
    void tell(const QString& dock);

private:
    QVariantList answer(const QDBusMessage& message) override;
};

} // namespace lumbrix::test
