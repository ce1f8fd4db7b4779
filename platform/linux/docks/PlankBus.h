// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The docks of all Plank processes on the message bus. One Plank may have several docks, and there
// may be several Planks, each with its own bus name.
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

/// The information about a dock on the bus.
struct PlankOnBus {
    QString plank;        ///< bus name of its Plank; with `name` it is the dock's identity
    QString name;         ///< as in its settings path, "dock1"
    std::int32_t pid = 0; ///< of its Plank; 0 = unknown
    PlankItems items;     ///< in Plank's own pixels; empty until it has answered
};

/// Main thread. Each dock is queried separately and asynchronously, so that one that does not
/// answer does not delay the others.
class PlankBus final : public QObject
{
    Q_OBJECT

public:
    PlankBus(RunLoop& runLoop, const QDBusConnection& bus);
    ~PlankBus() override;

    void start();
    /// Queries the items of all docks again.
    void refresh();
    /// Queries the docks of all Planks again: they do not report added and removed docks.
    void lookForDocks();

    /// The Plank with the plain name first; the docks of each sorted by name.
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
