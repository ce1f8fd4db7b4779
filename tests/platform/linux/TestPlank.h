// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A Plank on the message bus, which answers as the real one or not at all.
#pragma once

#include <QtCore/QPoint>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>

#include <map>
#include <vector>

namespace lumbrix::test
{

/// Main thread; answers while the event loop runs. Leaves the bus when destroyed.
class TestPlank final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    struct Dock {
        int position = 3; ///< left, right, top, bottom
        /// By URI; that without one is the first that has no desktop entry.
        std::map<QString, QPoint> items;
    };

    /// Joins the bus under the name with a connection of its own.
    TestPlank(const QDBusConnection& bus, const QString& name, std::map<QString, Dock> docks);
    ~TestPlank() override;

    std::map<QString, Dock> docks;
    bool hangs = false;
    bool refuses = false; ///< answers with errors
    /// Says that the items of the dock changed.
    void tell(const QString& dock);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    QVariantList answer(const QDBusMessage& message) const;

    QDBusConnection m_bus;
};

} // namespace lumbrix::test
