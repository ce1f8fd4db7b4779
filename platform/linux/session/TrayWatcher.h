// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether there is a tray: a host of status notifier items on the session bus, or a system tray on
// the X screen.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/StatusBar.h"
#include "platform/linux/x11/TrayWatch.h"

namespace lumbrix::platform
{

/// Main thread. Queries asynchronously, so it reports no tray for a moment after its creation. The
/// watch must outlive it.
class TrayWatcher final : public QObject, public StatusBar
{
    Q_OBJECT

public:
    TrayWatcher(RunLoop& runLoop, x11::TrayWatch& screen, const QDBusConnection& bus);
    ~TrayWatcher() override;

    bool isAvailable() const override { return m_isAvailable; }
    void setObserver(std::function<void()> changed) override { m_changed = std::move(changed); }

private Q_SLOTS:
    void askWatcher();

private:
    void update();

    x11::TrayWatch& m_screen;
    QDBusConnection m_bus;
    bool m_hasHost = false;
    bool m_isAvailable = false;
    std::function<void()> m_changed;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
