// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The docks of Plank: their items from D-Bus, their look from its preferences, their windows from
// X.
#pragma once

#include <QtDBus/QDBusConnection>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/docks/DockProvider.h"
#include "platform/linux/docks/PlankBus.h"
#include "platform/linux/docks/PlankSettings.h"
#include "platform/linux/docks/PlankSlides.h"
#include "platform/linux/docks/PlankUnnamed.h"
#include "platform/linux/docks/PlankWindows.h"

namespace lumbrix::platform
{

/// Whether the window is one of Plank's dock windows.
bool isPlankWindow(const x11::TrackedWindow& window);

/// One state per dock: those of the Plank with the plain name first; docks that have not answered
/// yet, known only by their windows, last.
class PlankDock final : public DockProvider
{
public:
    /// Main thread, as is the destructor.
    PlankDock(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
              const QDBusConnection& bus, PlankInputAreas inputAreas);
    ~PlankDock() override;

    const char* name() const override { return "Plank"; }
    void start() override;
    std::vector<DockStatePtr> states() const override;
    void pointerCrossed() override;
    void synchronize() override;

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;

private:
    /// What is remembered about a dock, even while it does not run.
    struct Kept {
        DockItemId number = newDockItemId(); ///< of the dock
        std::unique_ptr<PlankSettings> settings;
        PlankUnnamed unnamed;
        std::map<QString, DockItemId> ids; ///< of its items, by desktop file
    };
    /// A dock for which a state is derived.
    struct Known {
        PlankOnBus told;
        Kept* kept = nullptr;
        std::optional<PlankSettings::Values> settings;
        DockEdge edge = DockEdge::Bottom;
        PlankWindow window;
        PlankLook look; ///< in root pixels, as are the items from here on
        std::vector<PlankItem> items;
        std::vector<PlankPlace> places; ///< one for each item
    };

    void onMainThread(void (PlankDock::*step)());

    // Main thread.
    void refresh();
    void refreshAtLeisure();
    void lookForDocks();
    void rebuild();
    std::vector<PlankWindow> readWindows() const;
    std::vector<Known> knownDocks();
    Kept& keptOf(const PlankOnBus& dock);
    /// Assigns a window to each dock, removes these from `windows`, and drops docks without a
    /// window.
    static void giveWindows(std::vector<Known>& docks, std::vector<PlankWindow>& windows);
    void placeItems(Known& dock) const;
    /// All applications on the dock: those that it names, and those that it must be showing.
    std::vector<PlankItem> allItems(const Known& dock, const PlankItems& told) const;
    std::optional<int> iconCentreOf(const Application& application, const Known& dock) const;
    void noteSlides(const std::vector<Known>& docks);
    DockStatePtr makeState(const Known& dock) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const PlankInputAreas m_inputAreas;
    const MainThreadGuard m_guard;
    std::unique_ptr<PlankBus> m_bus;
    std::map<std::pair<QString, QString>, Kept> m_kept; ///< by Plank and dock
    PlankSlides m_slides;
    /// The icon geometries of windows that are relevant.
    enum class Interest { None, ComingAndGoing, All };
    std::atomic<Interest> m_interest{Interest::None};
    std::atomic<bool> m_isRebuildUnderWay{false};

    mutable std::mutex m_mutex;
    std::vector<DockStatePtr> m_states; // guarded by m_mutex
};

} // namespace lumbrix::platform
