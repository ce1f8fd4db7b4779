// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One Lumbrix for a display: a second start is handed over to the first, over the session bus.
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

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

/// Main thread. Without a session bus nobody is first or second, and every start runs.
class SingleInstance final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    enum class Result {
        First,      ///< until release(), or this object is destroyed
        HandedOver, ///< another one runs, and has been told
        NoAnswer,   ///< another one runs, but does not listen
    };

    /// On the session bus, for the display of the environment.
    static std::unique_ptr<SingleInstance> create(const RunLoop& runLoop);
    /// The process that is first on the display of the environment: 0 when there is none, null when
    /// nobody knows. Asks the bus, and takes no part.
    static std::optional<std::int32_t> runningProcess();

    /// `display` as in DISPLAY: several desktops may share a bus.
    SingleInstance(const RunLoop& runLoop, const QDBusConnection& bus, const QString& display);
    ~SingleInstance() override;

    /// Asks the bus, and the other one if there is one, for a few seconds at most.
    Result start();
    /// Who has the place that start() did not get, in words: "process 123 (/usr/bin/lumbrix)". It
    /// may be any program of the user.
    QString otherOne() const;
    /// Makes room for the next start, which then is the first one.
    void release();
    /// What to do when the program was started once more; when that happened already, at once.
    void setReopened(std::function<void()> reopened);

public Q_SLOTS:
    // As other programs call them. There are no documents and no actions to choose.
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    QDBusMessage handOver(int timeout); ///< milliseconds

    const RunLoop& m_runLoop;
    QDBusConnection m_bus;
    const QString m_name; ///< one for each display
    std::function<void()> m_reopened;
    bool m_wasReopened = false;
};

} // namespace lumbrix::platform
