// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The docks of all Planks on the message bus. One Plank may run several docks, and there may be
// more Planks than one, each with a name of its own.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/linux/docks/PlankItems.h"

namespace lumbrix::platform
{

/// What the bus knows of a dock.
struct PlankOnBus {
    QString plank;        ///< bus name of its Plank; with `name` it is the dock's identity
    QString name;         ///< as in its settings' path, "dock1"
    std::int32_t pid = 0; ///< of its Plank; 0 = unknown
    PlankItems items;     ///< in Plank's own pixels; empty until it has answered
};

/// Main thread. Each dock is asked by itself and never waited for, so that one that does not answer
/// keeps nothing back of the others.
class PlankBus final : public QObject
{
    Q_OBJECT

public:
    PlankBus(RunLoop& runLoop, const QDBusConnection& bus);
    ~PlankBus() override;

    void start();
    /// Asks all docks for their items anew.
    void refresh();
    /// Asks all Planks for their docks anew: they do not report one that comes or goes.
    void lookForDocks();

    /// The Plank of the plain name first, each one's docks by their names.
    std::vector<PlankOnBus> docks() const;

    /// Called when docks or items changed.
    void setChanged(std::function<void()> changed) { m_onChanged = std::move(changed); }

private Q_SLOTS:
    void itemsChanged(const QDBusMessage& message);

private:
    struct Plank {
        QString owner; ///< unique name
        std::int32_t pid = 0;
        bool isAsked = false; ///< which docks it has
        int failures = 0;
        std::map<QString, std::unique_ptr<PlankItemsQuery>> docks; ///< by name
    };
    using PlankPtr = std::shared_ptr<Plank>;
    using Answer = std::function<void(const PlankPtr&, const QDBusMessage&)>;

    void meet(const QString& name, const QString& owner);
    void forget(const QString& name);
    void findDocks(const PlankPtr& plank);
    void takeDocks(const PlankPtr& plank, const QDBusMessage& reply);
    void findDocksAfter(const PlankPtr& plank, Seconds delay);
    void call(const PlankPtr& plank, const QDBusMessage& message, Answer answer);
    void notifyChanged() const;

    RunLoop& m_runLoop;
    QDBusConnection m_bus;
    std::function<void()> m_onChanged;
    std::map<QString, PlankPtr> m_planks; ///< by bus name
};

} // namespace lumbrix::platform
