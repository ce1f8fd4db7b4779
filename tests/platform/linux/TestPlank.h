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
    bool hangs = false;
    bool refuses = false; ///< answers with errors
    /// Says that the items of the dock changed.
    void tell(const QString& dock);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QVariantList answer(const QDBusMessage& message) const;
};

} // namespace lumbrix::test
