// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The items of one Plank dock, over D-Bus. Never waits for it.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

#include "platform/RunLoop.h"
#include "platform/linux/docks/PlankAnswers.h"

namespace lumbrix::platform
{

/// Main thread. A dock that does not answer leaves the items as they were.
class PlankItemsQuery final : public QObject
{
    Q_OBJECT

public:
    /// `path` is the dock's object of the connection `owner`. `changed` is called after each
    /// complete answer, and must not destroy this.
    PlankItemsQuery(RunLoop& runLoop, const QDBusConnection& bus, QString owner, QString path,
                    std::function<void()> changed);
    ~PlankItemsQuery() override;

    const QString& path() const { return m_path; }
    const PlankItems& items() const { return m_items; }
    /// Queries the items again; calls during a running query cause one more query.
    void refresh();
    /// Queries now, and repeatedly until the items have moved to their new positions.
    void refreshWhileTheyMove();

private:
    void query();
    void queryPositions(const QStringList& uris);
    void finishQuery(PlankItems items);
    void queryFailed();
    void refreshAfter(Seconds delay);
    void call(const QString& method, const QVariantList& arguments,
              std::function<void(const QDBusMessage&)> answer);

    RunLoop& m_runLoop;
    QDBusConnection m_bus;
    const QString m_owner;
    const QString m_path;
    const std::function<void()> m_onChanged;
    PlankItems m_items;
    int m_count = 0;
    bool m_isQuerying = false;
    bool m_isStale = false; ///< something changed during the query
    int m_failures = 0;
};

/// Whether the reply is valid, with arguments of these types.
bool isPlankAnswer(const QDBusMessage& reply, const char* signature);
inline constexpr int plankTimeoutMilliseconds = 2000;
inline constexpr int maximumPlankFailures = 10; ///< in a row; then only signals and hovers query

} // namespace lumbrix::platform
