// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Ensures one Lumbrix per display: a second start is handed over to the first instance, over the
// session bus.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

/// What another start of the program asks the running one for.
enum class StartRequest {
    Open,           ///< the preferences
    TogglePreviews, ///< previews off, or on again
};

/// Main thread. Without a session bus there is no check, and every start runs.
class SingleInstance final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    enum class Result {
        First,      ///< until release() or destruction
        HandedOver, ///< another instance runs and has accepted the start
        NoAnswer,   ///< another instance runs, but does not answer
    };

    /// For the session bus and the display of the environment.
    static std::unique_ptr<SingleInstance> create(const RunLoop& runLoop);
    /// The process id of the first instance on the display of the environment: 0 if there is none,
    /// null if that is not known. Only queries the bus.
    static std::optional<std::int32_t> runningProcess();

    /// `display` as in DISPLAY: several desktops may share a bus.
    SingleInstance(const RunLoop& runLoop, const QDBusConnection& bus, const QString& display);
    ~SingleInstance() override;

    /// Tries to become the first instance, otherwise asks the other one. Blocks for a few seconds
    /// at most.
    Result start(StartRequest request);
    /// A text for the user that names the program that owns the name instead: "process 123
    /// (/usr/bin/lumbrix)". It may be any program of the user.
    QString otherOne() const;
    /// Releases the name, so that the next start becomes the first instance.
    void release();
    /// Sets the callback for other starts of the program; called at once for those there were
    /// before.
    void setHandler(std::function<void(StartRequest)> handler);

public Q_SLOTS:
    // D-Bus methods. There are no documents; the actions are those of the desktop entry.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    QDBusMessage handOver(StartRequest request, int timeout); ///< milliseconds
    void handle(StartRequest request);

    const RunLoop& m_runLoop;
    QDBusConnection m_bus;
    const QString m_name; ///< one for each display
    std::function<void(StartRequest)> m_handler;
    std::vector<StartRequest> m_waiting; ///< for the handler
};

} // namespace lumbrix::platform
