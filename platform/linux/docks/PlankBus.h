// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank's items over D-Bus, without ever waiting for it.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QStringList>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

#include <functional>
#include <optional>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

struct PlankItem {
    QString desktopFile;
    QPoint hoverPoint;
};

/// What Plank tells of its items. Those of programs without a desktop entry have no name on the
/// bus: only their number and the place of the first one are known.
struct PlankItems {
    std::vector<PlankItem> named;
    std::optional<QPoint> firstUnnamed;
    int count = 0; ///< of all items
};

/// Main thread. A Plank that does not answer leaves the items as they were.
class PlankBus final : public QObject
{
    Q_OBJECT

public:
    PlankBus(RunLoop& runLoop, const QDBusConnection& bus);
    ~PlankBus() override;

    void start();
    /// Asks for the items anew; calls during a running query are answered by one more.
    void refresh();

    /// "dock1" or what the first dock is called; empty until known.
    const QString& dockName() const { return m_dockName; }
    const PlankItems& items() const { return m_items; }
    DockEdge edge() const { return m_edge; }

    void setChanged(std::function<void()> changed) { m_onChanged = std::move(changed); }

private Q_SLOTS:
    void itemsChanged();

private:
    using Answer = std::function<void(const QDBusMessage&)>;

    void ownerChanged(const QString& owner);
    void findDock();
    void query();
    void queryPositions(const QStringList& uris);
    void finishQuery(PlankItems items);
    void queryFailed();
    void refreshAfter(Seconds delay);
    void call(const QDBusMessage& message, Answer answer);
    QDBusMessage itemsCall(const QString& method) const;

    RunLoop& m_runLoop;
    QDBusConnection m_bus;
    std::function<void()> m_onChanged;
    QString m_owner; ///< unique name; empty while none runs
    QString m_dockName;
    PlankItems m_items;
    int m_count = 0;
    DockEdge m_edge = DockEdge::Bottom;

    std::uint64_t m_generation = 0; ///< grows with each owner, to drop late answers
    bool m_isQuerying = false;
    bool m_isStale = false; ///< something changed during the query
    int m_failures = 0;
};

} // namespace lumbrix::platform
