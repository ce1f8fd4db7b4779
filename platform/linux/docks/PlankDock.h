// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank as a dock: its items from D-Bus, its look from its preferences, its window from X.
#pragma once

#include <QtDBus/QDBusConnection>

#include <map>
#include <memory>
#include <mutex>

#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/docks/DockProvider.h"
#include "platform/linux/docks/PlankBus.h"
#include "platform/linux/docks/PlankSettings.h"

namespace lumbrix::platform
{

class PlankDock final : public DockProvider
{
public:
    /// Main thread, as is the destructor.
    PlankDock(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
              const QDBusConnection& bus);
    ~PlankDock() override;

    const char* name() const override { return "plank"; }
    void start() override;
    std::vector<DockStatePtr> states() const override;
    void pointerEntered() override;
    void synchronize() override;

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;

private:
    bool isOwnDock(const x11::TrackedWindow& window) const;
    void onMainThread(void (PlankDock::*step)());

    // Main thread.
    void refresh();
    void rebuild();
    DockStatePtr makeState(std::int32_t pid);
    std::optional<PlankSettings::Values> readSettings();
    /// Everything on the dock that is an application: what it names, and what it must be showing.
    std::vector<PlankItem> allItems(DockEdge edge, const PlankLook& look);

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< main thread
    std::unique_ptr<PlankBus> m_bus;
    std::unique_ptr<PlankSettings> m_settings;
    QString m_settingsName;
    std::map<QString, DockItemId> m_ids; ///< by desktop file

    mutable std::mutex m_mutex;
    std::int32_t m_pid = 0; // guarded by m_mutex
    DockStatePtr m_state;   // guarded by m_mutex
};

} // namespace lumbrix::platform
