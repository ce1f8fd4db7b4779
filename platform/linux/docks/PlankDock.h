// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank as a dock: its items from D-Bus, its look from its preferences, its window from X.
#pragma once

#include <QtDBus/QDBusConnection>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/docks/DockProvider.h"
#include "platform/linux/docks/PlankBus.h"
#include "platform/linux/docks/PlankSettings.h"
#include "platform/linux/docks/PlankUnnamed.h"

namespace lumbrix::platform
{

/// Whether it is the window that Plank draws a dock in.
bool isPlankWindow(const x11::TrackedWindow& window);

class PlankDock final : public DockProvider
{
public:
    /// Main thread, as is the destructor.
    PlankDock(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
              const QDBusConnection& bus);
    ~PlankDock() override;

    const char* name() const override { return "Plank"; }
    void start() override;
    std::vector<DockStatePtr> states() const override;
    void pointerEntered() override;
    void synchronize() override;

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;

private:
    void onMainThread(void (PlankDock::*step)());

    // Main thread.
    void refresh();
    void rebuild();
    DockStatePtr makeState(); ///< null when Plank shows no dock
    std::optional<PlankSettings::Values> readSettings();
    /// Whether it has told the windows last that they have no icon on the screen.
    bool hasSlidAway() const;
    /// Everything on the dock that is an application: what it names, and what it must be showing.
    std::vector<PlankItem> allItems(DockEdge edge, const PlankLook& look);
    std::optional<int> iconCentre(const Application& application, DockEdge edge) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< main thread
    std::unique_ptr<PlankBus> m_bus;
    std::unique_ptr<PlankSettings> m_settings;
    QString m_settingsName;
    PlankUnnamed m_unnamed;
    std::atomic<bool> m_hasUnnamed{false};
    std::atomic<bool> m_hides{false};
    std::atomic<bool> m_isRebuildUnderWay{false};
    std::map<QString, DockItemId> m_ids; ///< by desktop file

    mutable std::mutex m_mutex;
    DockStatePtr m_state; // guarded by m_mutex
};

} // namespace lumbrix::platform
