// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// All docks of the display as one: which items there are, and which one the pointer is on.
#pragma once

#include <QtCore/QUrl>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/docks/DockProvider.h"

namespace lumbrix::platform
{

/// What an item says of itself now.
struct DockItemView {
    DockItemId id = 0;
    QString title;
    QUrl url;             ///< of the application; empty for a minimised window
    std::int32_t pid = 0; ///< of the application; 0 where it does not run
    bool isRunning = false;
    bool isMinimizedWindow = false;
    /// All that is to be shown, where windows were chosen.
    std::optional<std::vector<xcb_window_t>> chosen;
    /// The only window behind it; none for an application as a whole.
    std::optional<xcb_window_t> window;
};

struct DockItemPlace {
    bool isHidden = false; ///< the dock has slid out of sight; the place is where it comes back
    QRect rect;            ///< root pixels; magnified while the pointer is on it
};

/// The listener's part on the event thread, queries on any thread, the rest on the main thread.
class DockModel final : public x11::WindowListener
{
public:
    using Providers = std::vector<std::unique_ptr<DockProvider>>;
    /// Windows whose pictures may be wanted soon, the most likely first. Event thread.
    /// Those of an item whose row comes now, or that the pointer may be on its way to.
    using Prefetch = std::function<void(const std::vector<xcb_window_t>&, bool isRowDue)>;

    /// The providers in order of preference.
    DockModel(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
              DesktopEntries& entries, Providers providers);
    ~DockModel() override;

    // Before start; called on the main thread.
    void setSelectionChanged(std::function<void()> call) { m_selectionChanged = std::move(call); }
    void setMenuOpened(std::function<void()> call) { m_menuOpened = std::move(call); }
    void setChanged(std::function<void()> call) { m_changed = std::move(call); }
    /// There are other items than before, in other places, for other windows, or hidden ones.
    void setItemsChanged(std::function<void()> call) { m_itemsChanged = std::move(call); }
    void setPrefetch(Prefetch prefetch) { m_prefetch = std::move(prefetch); }
    /// After the windows have been fetched.
    void start();

    /// Of the first dock; 0 while none runs.
    std::int32_t pid() const;
    /// Whether a dock of this process runs.
    bool hasDock(std::int32_t pid) const;
    /// Of all docks, the first one's first, each from left to right or from top to bottom.
    std::vector<DockItemId> items() const;
    /// Null when it is gone.
    std::optional<DockItemView> item(DockItemId id) const;
    /// Only where it is, as item() has it; looks for no application.
    std::optional<DockItemPlace> placeOf(DockItemId id) const;
    /// What people call the dock that has the item, or for 0 the first dock, with the program that
    /// it is where that says more; empty when there is none.
    QString nameOfDock(DockItemId item) const;
    DockItemId selectedItem() const;
    DockItemId itemAt(QPoint point) const;
    /// The one that has the item; null when it is gone.
    DockStatePtr dockOf(DockItemId id) const { return find(id).first; }
    /// The preferred one of those that have items, else of all; null when none runs.
    DockStatePtr firstDock() const;
    /// Adds an item that no dock has: it is found by its id, and by nothing else. `state` has this
    /// one item, and the edge that it is at. Any thread.
    void addRequested(const DockStatePtr& state);
    void removeRequested(DockItemId id);
    /// Reads the docks' own preferences again. Main thread.
    void synchronize();
    /// Whether the pointer is or lately was on or near a dock, so that somebody is looking.
    bool isAttended() const;

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;
    void currentDesktopChanged(int desktop) override;
    void popupMapped(const x11::PopupMapped& popup) override;
    void pointerMoved(QPoint point, xcb_window_t childOfRoot) override;
    void pointerStops(QPoint place) override;
    void buttonPressed(int button, QPoint point) override;
    void screensChanged() override;
    void managerChanged(const x11::Manager& manager) override;

private:
    struct Known {
        DockProvider* provider = nullptr;
        DockStatePtr state;
    };

    void collect();
    void tellDocks() const;
    static bool showsOtherItems(const std::vector<Known>& before, const std::vector<Known>& after);
    /// With m_mutex held; whether somebody is to be told.
    bool updateSelection();
    const Known* dockWithWindow(xcb_window_t childOfRoot) const; ///< with m_mutex held
    using Found = std::pair<DockStatePtr, const DockItem*>;
    Found find(DockItemId id) const;
    void prefetchNear(QPoint point, bool isRowDue) const;
    std::vector<xcb_window_t> windowsOf(const DockItem& item) const;
    void callOnMainThread(std::function<void()> DockModel::*call);

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    DesktopEntries& m_entries;
    const Providers m_providers;
    std::function<void()> m_selectionChanged;
    std::function<void()> m_menuOpened;
    std::function<void()> m_changed;
    std::function<void()> m_itemsChanged;
    Prefetch m_prefetch;
    const MainThreadGuard m_guard;
    double m_synchronizedAt = -1e9; ///< main thread

    std::mutex m_collectMutex; ///< keeps states from overtaking one another; before m_mutex
    mutable std::mutex m_mutex;
    std::vector<Known> m_docks;                   // this and what follows guarded by m_mutex
    std::unordered_map<DockItemId, Found> m_byId; ///< the items of these docks
    QPoint m_pointer;
    xcb_window_t m_childUnderPointer = XCB_NONE;
    std::optional<QPoint> m_stop;   ///< where it stops, if it is about to or has
    DockProvider* m_over = nullptr; ///< whose dock the pointer is over
    DockItemId m_crossed = 0;       ///< under the pointer, selected or not yet
    double m_attendedAt = -1e9;
    double m_prefetchedAt = -1e9;
    DockItemId m_selected = 0;
    std::vector<DockStatePtr> m_requested; ///< places of items that no dock has
    DockItemId m_menuItem = 0;             ///< whose menu was opened, until something else happens
    double m_menuItemLeftAt = -1e9;
    std::int32_t m_manager = 0;  ///< its process; 0 before there was one
    bool m_isManagerNew = false; ///< no pointer has stopped since
};

} // namespace lumbrix::platform
