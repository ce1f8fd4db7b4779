// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/DockModel.h"

#include <algorithm>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/linux/applications/ProcessNames.h"

namespace lumbrix::platform
{

namespace
{

constexpr std::int64_t nearDistance = 150; ///< pixels; about 0.1 s of an approaching pointer
constexpr double attentionLasts = 10.0;    ///< seconds
constexpr double menuGrabLasts = 0.3;      ///< seconds
constexpr double synchronizeInterval = 1.0;
constexpr std::size_t maximumPrefetch = 30;
constexpr double prefetchInterval = 0.25; ///< seconds

} // namespace

DockModel::DockModel(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                     DesktopEntries& entries, Providers providers)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry), m_entries(entries),
      m_providers(std::move(providers))
{
    for (const auto& provider : m_providers)
        provider->setChanged([this] { collect(); });
}

DockModel::~DockModel() = default;

void DockModel::start()
{
    for (const auto& provider : m_providers)
        provider->start();
}

void DockModel::callOnMainThread(std::function<void()> DockModel::*call)
{
    const auto callIfSet = m_guard.ifAlive([this, call] {
        if (this->*call)
            (this->*call)();
    });
    m_runLoop.performOnMainThread(callIfSet, false);
}

void DockModel::collect()
{
    const std::lock_guard collecting(m_collectMutex);
    std::vector<Known> docks;
    for (const auto& provider : m_providers)
        for (const DockStatePtr& state : provider->states())
            docks.push_back({provider.get(), state});
    bool isChanged = false;
    bool areItemsChanged = false;
    std::int32_t pid = 0;
    {
        const std::lock_guard lock(m_mutex);
        areItemsChanged = showsOtherItems(m_docks, docks);
        m_docks = std::move(docks);
        m_byId.clear();
        for (const Known& dock : m_docks)
            for (const DockItem& item : dock.state->items)
                m_byId.try_emplace(item.id, dock.state, &item);
        if (areItemsChanged)
            tellDocks();
        isChanged = updateSelection();
        pid = m_docks.empty() ? 0 : m_docks.front().state->pid;
    }
    m_registry.setDock(pid);
    if (isChanged)
        callOnMainThread(&DockModel::m_selectionChanged);
    callOnMainThread(&DockModel::m_changed);
    if (areItemsChanged)
        callOnMainThread(&DockModel::m_itemsChanged);
}

void DockModel::tellDocks() const
{
    if (m_docks.empty())
        qCDebug(log::dock, "there is no dock");
    for (const Known& dock : m_docks)
        qCDebug(log::dock, "%s, process %d, at the %s%s, has %zu icons with a place",
                dock.provider->name(), dock.state->pid, qUtf8Printable(edgeName(dock.state->edge)),
                dock.state->isHidden ? " and hidden" : "", dock.state->items.size());
}

bool DockModel::showsOtherItems(const std::vector<Known>& before, const std::vector<Known>& after)
{
    return !std::ranges::equal(before, after, [](const Known& a, const Known& b) {
        return a.state->pid == b.state->pid && a.state->isHidden == b.state->isHidden &&
               std::ranges::equal(a.state->items, b.state->items,
                                  [](const DockItem& one, const DockItem& other) {
                                      return one.id == other.id && one.rect == other.rect &&
                                             one.windows == other.windows &&
                                             one.isMinimizedWindow == other.isMinimizedWindow;
                                  });
    });
}

const DockModel::Known* DockModel::dockWithWindow(xcb_window_t childOfRoot) const
{
    const auto it = std::ranges::find_if(m_docks, [childOfRoot](const Known& dock) {
        return std::ranges::any_of(dock.state->windows, [childOfRoot](const DockWindow& window) {
            return childOfRoot != XCB_NONE &&
                   (window.frame == childOfRoot || window.id == childOfRoot);
        });
    });
    return it == m_docks.end() ? nullptr : &*it;
}

// Only while the dock itself is under the pointer: another window may lie on the icon's place.
bool DockModel::updateSelection()
{
    const Known* dock = dockWithWindow(m_childUnderPointer);
    const DockItem* item = dock ? dock->state->itemAt(m_pointer) : nullptr;
    const DockItemId selected = m_crossed = item ? item->id : 0;
    // Nobody asks for what the pointer only crosses: an item is selected once the pointer stops on
    // it, or is seen to come to a stop there. Until then the one before stays, so that its row can
    // make room for the next one without a gap.
    if (item && selected != m_selected && !(m_stop && item->rect.contains(*m_stop)))
        return false;
    const DockItemId before = std::exchange(m_selected, selected);
    if (before == selected)
        return false;
    // A menu that opens takes the pointer off its item for a moment. Coming back is no new hover.
    const double now = m_runLoop.now();
    if (before != 0 && before == m_menuItem)
        m_menuItemLeftAt = now;
    if (selected != 0 && selected != m_menuItem)
        m_menuItem = 0;
    return selected == 0 || selected != m_menuItem || now - m_menuItemLeftAt > menuGrabLasts;
}

void DockModel::pointerMoved(QPoint point, xcb_window_t childOfRoot)
{
    DockProvider* crossed = nullptr;
    bool isChanged = false;
    bool wantsPictures = false;
    {
        const std::lock_guard lock(m_mutex);
        if (point != m_pointer)
            m_stop.reset();
        m_pointer = point;
        m_childUnderPointer = childOfRoot;
        const Known* dock = dockWithWindow(childOfRoot);
        DockProvider* const over = dock ? dock->provider : nullptr;
        if (DockProvider* const left = std::exchange(m_over, over); left != over)
            crossed = over ? over : left;
        isChanged = updateSelection();
        const bool isNear =
            dock || std::ranges::any_of(m_docks, [&](const Known& known) {
                return !known.state->items.empty() &&
                       squaredDistance(point, known.state->extent()) <= nearDistance * nearDistance;
            });
        if (isNear) {
            // Also while it stays near, for what has been drawn meanwhile.
            const double now = m_runLoop.now();
            wantsPictures = now - m_prefetchedAt > prefetchInterval;
            m_attendedAt = now;
            if (wantsPictures)
                m_prefetchedAt = now;
        }
    }
    if (isChanged)
        callOnMainThread(&DockModel::m_selectionChanged);
    if (crossed)
        crossed->pointerCrossed();
    if (wantsPictures || isChanged)
        prefetchNear(point, isChanged);
}

void DockModel::pointerStops(QPoint place)
{
    bool isChanged = false;
    {
        const std::lock_guard lock(m_mutex);
        m_stop = place;
        isChanged = updateSelection();
        // The row went with the windows of the former window manager. Whoever moves on the icon
        // then wants it, and should not have to leave the icon first.
        if (std::exchange(m_isManagerNew, false))
            isChanged = isChanged || m_selected != 0;
    }
    if (!isChanged)
        return;
    callOnMainThread(&DockModel::m_selectionChanged);
    prefetchNear(place, true);
}

void DockModel::prefetchNear(QPoint point, bool isRowDue) const
{
    if (!m_prefetch)
        return;
    std::vector<std::pair<std::int64_t, DockItem>> items;
    {
        const std::lock_guard lock(m_mutex);
        for (const Known& dock : m_docks)
            for (const DockItem& item : dock.state->items)
                items.emplace_back(squaredDistance(point, item.rect), item);
    }
    std::ranges::stable_sort(items, {}, [](const auto& item) { return item.first; });
    std::vector<xcb_window_t> windows;
    for (const auto& [distance, item] : items) {
        if (distance > nearDistance * nearDistance || windows.size() >= maximumPrefetch)
            break;
        const std::vector<xcb_window_t> more = windowsOf(item);
        windows.insert(windows.end(), more.begin(), more.end());
    }
    if (!windows.empty())
        m_prefetch(windows, isRowDue);
}

std::vector<xcb_window_t> DockModel::windowsOf(const DockItem& item) const
{
    if (item.desktopFile.isEmpty())
        return item.windows;
    auto application = m_registry.applicationForDesktopFile(item.desktopFile);
    return application ? std::move(application->windows) : std::vector<xcb_window_t>();
}

void DockModel::buttonPressed(int button, QPoint)
{
    bool isOverDock = false;
    {
        const std::lock_guard lock(m_mutex);
        isOverDock = m_over && button == 3;
        if (isOverDock)
            m_selected = m_crossed; // its menu comes instead of its row
        m_menuItem = isOverDock ? m_selected : 0;
    }
    if (isOverDock) {
        // The menu itself comes some 20 ms later; what is in its way should be gone by then.
        callOnMainThread(&DockModel::m_menuOpened);
    }
}

void DockModel::popupMapped(const x11::PopupMapped& popup)
{
    if (popup.kind != x11::PopupMapped::Kind::Menu || !popup.pid)
        return;
    if (hasDock(*popup.pid))
        callOnMainThread(&DockModel::m_menuOpened);
}

bool DockModel::hasDock(std::int32_t pid) const
{
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(m_docks,
                               [pid](const Known& dock) { return dock.state->pid == pid; });
}

std::int32_t DockModel::pid() const
{
    const std::lock_guard lock(m_mutex);
    return m_docks.empty() ? 0 : m_docks.front().state->pid;
}

std::vector<DockItemId> DockModel::items() const
{
    const std::lock_guard lock(m_mutex);
    std::vector<DockItemId> result;
    for (const Known& dock : m_docks)
        for (const DockItem& item : dock.state->items)
            result.push_back(item.id);
    return result;
}

DockModel::Found DockModel::find(DockItemId id) const
{
    const std::lock_guard lock(m_mutex);
    if (const auto known = m_byId.find(id); known != m_byId.end())
        return known->second;
    for (const DockStatePtr& state : m_requested)
        if (const DockItem* item = state->item(id))
            return {state, item};
    return {nullptr, nullptr};
}

void DockModel::addRequested(const DockStatePtr& state)
{
    const std::lock_guard lock(m_mutex);
    m_requested.push_back(state);
}

void DockModel::removeRequested(DockItemId id)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_requested,
                  [id](const DockStatePtr& state) { return state->item(id) != nullptr; });
}

std::optional<DockItemPlace> DockModel::placeOf(DockItemId id) const
{
    const auto [state, item] = find(id);
    if (!item)
        return std::nullopt;
    return DockItemPlace{state->isHidden, selectedItem() == id ? item->magnified : item->rect};
}

std::optional<DockItemView> DockModel::item(DockItemId id) const
{
    const auto [state, item] = find(id);
    if (!item)
        return std::nullopt;
    DockItemView view{.id = id,
                      .title = {},
                      .url = {},
                      .pid = 0,
                      .isRunning = false,
                      .isMinimizedWindow = item->isMinimizedWindow,
                      .chosen = item->areChosen ? std::optional(item->windows) : std::nullopt,
                      .window = {}};
    if (!item->desktopFile.isEmpty()) {
        const auto application = m_registry.applicationForDesktopFile(item->desktopFile);
        const DesktopEntryPtr entry = m_entries.byPath(item->desktopFile);
        view.isRunning = application.has_value();
        view.url =
            application ? application->running.bundleURL : QUrl::fromLocalFile(item->desktopFile);
        view.pid = application ? application->running.pid : 0;
        view.title = entry ? entry->name : QString();
        if (application && view.title.isEmpty())
            view.title = application->running.localizedName;
        return view;
    }
    if (item->windows.size() == 1)
        view.window = item->windows.front();
    for (const xcb_window_t windowId : item->windows) {
        const x11::TrackedWindowPtr window = m_tracker.window(windowId);
        if (!window)
            continue;
        if (item->isMinimizedWindow) {
            view.title = window->title;
            return view;
        }
        if (const auto application = m_registry.application(m_registry.ownerPidOf(*window))) {
            view.isRunning = true;
            view.title = application->running.localizedName;
            view.url = application->running.bundleURL;
            view.pid = application->running.pid;
            return view;
        }
    }
    return std::nullopt;
}

QString DockModel::nameOfDock(DockItemId item) const
{
    QString name;
    std::int32_t pid = 0;
    {
        const std::lock_guard lock(m_mutex);
        const auto it = std::ranges::find_if(
            m_docks, [item](const Known& dock) { return item == 0 || dock.state->item(item); });
        if (it == m_docks.end())
            return {};
        name = QString::fromLatin1(it->provider->name());
        pid = it->state->pid;
    }
    const QString program = readProcessNames(pid).programs().value(0);
    const bool saysMore = !program.isEmpty() && program.compare(name, Qt::CaseInsensitive) != 0;
    return saysMore ? u"%1 (%2)"_s.arg(name, program) : name;
}

DockItemId DockModel::selectedItem() const
{
    const std::lock_guard lock(m_mutex);
    return m_selected;
}

DockItemId DockModel::itemAt(QPoint point) const
{
    const std::lock_guard lock(m_mutex);
    for (const Known& dock : m_docks)
        if (const DockItem* item = dock.state->itemAt(point))
            return item->id;
    return 0;
}

DockStatePtr DockModel::firstDock() const
{
    const std::lock_guard lock(m_mutex);
    const auto it =
        std::ranges::find_if(m_docks, [](const Known& dock) { return !dock.state->items.empty(); });
    if (it != m_docks.end())
        return it->state;
    return m_docks.empty() ? nullptr : m_docks.front().state;
}

// Asked for before every read; the docks report most changes by themselves.
void DockModel::synchronize()
{
    const double now = m_runLoop.now();
    if (now - m_synchronizedAt < synchronizeInterval)
        return;
    m_synchronizedAt = now;
    for (const auto& provider : m_providers)
        provider->synchronize();
}

bool DockModel::isAttended() const
{
    const std::lock_guard lock(m_mutex);
    return m_runLoop.now() - m_attendedAt < attentionLasts;
}

void DockModel::windowAdded(const x11::TrackedWindowPtr& window)
{
    for (const auto& provider : m_providers)
        provider->windowAdded(window);
}

void DockModel::windowChanged(const x11::TrackedWindowPtr& before,
                              const x11::TrackedWindowPtr& after)
{
    for (const auto& provider : m_providers)
        provider->windowChanged(before, after);
}

void DockModel::windowRemoved(const x11::TrackedWindowPtr& last)
{
    for (const auto& provider : m_providers)
        provider->windowRemoved(last);
}

void DockModel::currentDesktopChanged(int desktop)
{
    for (const auto& provider : m_providers)
        provider->currentDesktopChanged(desktop);
}

void DockModel::managerChanged(const x11::Manager& manager)
{
    const std::lock_guard lock(m_mutex);
    if (manager.pid != 0 && manager.pid != m_manager)
        m_isManagerNew = std::exchange(m_manager, manager.pid) != 0;
}

void DockModel::screensChanged()
{
    for (const auto& provider : m_providers)
        provider->screensChanged();
}

} // namespace lumbrix::platform
