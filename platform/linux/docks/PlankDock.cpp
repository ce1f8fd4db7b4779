// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankDock.h"

#include <algorithm>

#include "platform/linux/docks/IconGeometry.h"

namespace lumbrix::platform
{

namespace
{

// Plank gives the windows an icon without size as soon as it starts to slide away, and their place
// back when it starts to come.
bool isOnScreen(const x11::TrackedWindow& window)
{
    return window.iconGeometry && !window.iconGeometry->isEmpty();
}

} // namespace

bool isPlankWindow(const x11::TrackedWindow& window)
{
    return window.type == x11::WindowType::Dock && window.classInstance == u"plank";
}

PlankDock::PlankDock(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                     const QDBusConnection& bus)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry),
      m_bus(std::make_unique<PlankBus>(runLoop, bus))
{
    m_bus->setChanged([this] { rebuild(); });
}

PlankDock::~PlankDock() { *m_alive = false; }

// The dock is known by its window, at once; its items follow when it has answered.
void PlankDock::start()
{
    rebuild();
    m_bus->start();
}

std::vector<DockStatePtr> PlankDock::states() const
{
    const std::lock_guard lock(m_mutex);
    return m_state ? std::vector{m_state} : std::vector<DockStatePtr>();
}

// Everything is put together on the main thread, where D-Bus and the preferences answer.
void PlankDock::onMainThread(void (PlankDock::*step)())
{
    m_runLoop.performOnMainThread(
        [this, step, alive = m_alive] {
            if (*alive) {
                (this->*step)();
            }
        },
        false);
}

void PlankDock::refresh() { m_bus->refresh(); }

void PlankDock::pointerEntered() { onMainThread(&PlankDock::refresh); }

void PlankDock::synchronize() { rebuild(); }

void PlankDock::windowAdded(const x11::TrackedWindowPtr& window)
{
    if (isPlankWindow(*window)) {
        onMainThread(&PlankDock::rebuild);
        onMainThread(&PlankDock::refresh);
    }
}

void PlankDock::windowChanged(const x11::TrackedWindowPtr& before,
                              const x11::TrackedWindowPtr& after)
{
    if (isPlankWindow(*after) && (before->frameBounds != after->frameBounds ||
                                  before->frame != after->frame || before->type != after->type)) {
        onMainThread(&PlankDock::rebuild);
        onMainThread(&PlankDock::refresh);
    }
    const bool isOfInterest =
        m_hasUnnamed || (m_hides && isOnScreen(*before) != isOnScreen(*after));
    if (isOfInterest && before->iconGeometrySerial != after->iconGeometrySerial &&
        !m_isRebuildUnderWay.exchange(true)) {
        onMainThread(&PlankDock::rebuild);
    }
}

void PlankDock::windowRemoved(const x11::TrackedWindowPtr& last)
{
    if (isPlankWindow(*last)) {
        onMainThread(&PlankDock::rebuild);
    }
}

std::optional<PlankSettings::Values> PlankDock::readSettings()
{
    const QString& dock = m_bus->dockName();
    if (dock.isEmpty()) {
        return std::nullopt;
    }
    if (!m_settings || m_settingsName != dock) {
        m_settingsName = dock;
        m_settings = std::make_unique<PlankSettings>(dock, [this] {
            onMainThread(&PlankDock::rebuild);
            onMainThread(&PlankDock::refresh);
        });
    }
    return m_settings->read();
}

void PlankDock::rebuild()
{
    m_isRebuildUnderWay = false;
    DockStatePtr state = makeState();
    {
        const std::lock_guard lock(m_mutex);
        m_state = std::move(state);
    }
    notifyChanged();
}

bool PlankDock::hasSlidAway() const
{
    x11::TrackedWindowPtr latest;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows()) {
        if (window->iconGeometry &&
            (!latest || window->iconGeometryTime > latest->iconGeometryTime)) {
            latest = window;
        }
    }
    return latest && !isOnScreen(*latest);
}

// The middle of the icon as the dock tells it to the application's windows.
std::optional<int> PlankDock::iconCentre(const Application& application, DockEdge edge) const
{
    for (const xcb_window_t id : application.windows) {
        const x11::TrackedWindowPtr window = m_tracker.window(id);
        if (window && window->iconGeometry && isIconPlace(*window->iconGeometry)) {
            const QRect& icon = *window->iconGeometry;
            return isHorizontal(edge) ? icon.x() + icon.width() / 2 : icon.y() + icon.height() / 2;
        }
    }
    return std::nullopt;
}

// An application without a desktop entry goes by the path of its made-up URL.
std::vector<PlankItem> PlankDock::allItems(DockEdge edge, const PlankLook& look)
{
    const PlankItems& told = m_bus->items();
    std::vector<PlankItem> items = told.named;
    m_hasUnnamed = told.firstUnnamed.has_value();
    if (!told.firstUnnamed) {
        return items;
    }
    std::vector<QUrl> named;
    std::vector<int> centres;
    for (const PlankItem& item : told.named) {
        const QPoint point = item.hoverPoint;
        centres.push_back(isHorizontal(edge) ? point.x() : point.y());
        if (const auto application = m_registry.applicationForDesktopFile(item.desktopFile)) {
            named.push_back(application->running.bundleURL);
        }
    }
    std::vector<PlankUnnamed::Candidate> unnamed;
    for (const Application& application : m_registry.applications()) {
        const QUrl& url = application.running.bundleURL;
        if (application.isRegular && std::ranges::find(named, url) == named.end()) {
            unnamed.push_back(
                {url.toLocalFile(), iconCentre(application, edge), application.running.pid});
        }
    }
    // Those that ran before this program count as started in the order of their processes.
    std::ranges::stable_sort(unnamed, {}, &PlankUnnamed::Candidate::pid);
    const QPoint first = *told.firstUnnamed;
    const int firstCentre = isHorizontal(edge) ? first.x() : first.y();
    std::vector<int> known = centres;
    known.push_back(firstCentre);
    const int pitch = plankPitch(known, look.iconSize);
    const int count = std::min(static_cast<int>(unnamed.size()),
                               told.count - static_cast<int>(told.named.size()));
    const std::vector<int> free = plankFreeCentres(firstCentre, count, pitch, centres);
    const std::vector<QString> assigned = m_unnamed.assign(unnamed, free, pitch);
    for (std::size_t i = 0; i < assigned.size(); ++i) {
        items.push_back({assigned[i], isHorizontal(edge) ? QPoint(free[i], first.y())
                                                         : QPoint(first.x(), free[i])});
    }
    return items;
}

DockStatePtr PlankDock::makeState()
{
    auto state = std::make_shared<DockState>();
    for (const x11::TrackedWindowPtr& window : m_tracker.windows()) {
        if (isPlankWindow(*window)) {
            state->pid = window->pid.value_or(0);
            state->windows.push_back({window->id, window->frame, window->bounds});
        }
    }
    if (state->windows.empty()) {
        return nullptr;
    }
    state->edge = m_bus->edge();
    PlankLook look;
    if (const auto settings = readSettings()) {
        look = settings->look;
        state->magnifies = look.magnifies;
        state->hides = settings->hides;
        state->isHidden = settings->hides && hasSlidAway();
        m_hides = settings->hides;
        if (m_bus->items().named.empty()) {
            state->edge = settings->edge;
        }
    }
    std::vector<QPoint> points;
    const std::vector<PlankItem> items = allItems(state->edge, look);
    points.reserve(items.size());
    for (const PlankItem& item : items) {
        points.push_back(item.hoverPoint);
    }
    const auto places = plankPlaces(points, state->edge, state->windows.front().bounds, look);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QString& desktopFile = items[i].desktopFile;
        DockItemId& id = m_ids[desktopFile];
        if (id == 0) {
            id = newDockItemId();
        }
        state->items.push_back({.id = id,
                                .desktopFile = desktopFile,
                                .windows = {},
                                .isMinimizedWindow = false,
                                .rect = places[i].rect,
                                .magnified = places[i].magnified});
    }
    std::ranges::stable_sort(state->items, {}, [&](const DockItem& item) {
        return isHorizontal(state->edge) ? item.rect.x() : item.rect.y();
    });
    return state;
}

} // namespace lumbrix::platform
