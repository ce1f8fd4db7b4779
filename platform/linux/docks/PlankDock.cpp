// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankDock.h"

#include <algorithm>

#include "platform/linux/docks/IconGeometry.h"

namespace lumbrix::platform
{

namespace
{

/// Maximum number of remembered docks or items that no longer exist.
constexpr std::size_t maximumKept = 1000;
/// After the pointer has entered the dock, or left it.
constexpr Seconds leisure = 0.15;

int along(QPoint point, DockEdge edge) { return isHorizontal(edge) ? point.x() : point.y(); }

} // namespace

bool isPlankWindow(const x11::TrackedWindow& window)
{
    return window.type == x11::WindowType::Dock && window.classInstance == u"plank";
}

PlankDock::PlankDock(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                     const QDBusConnection& bus, PlankInputAreas inputAreas)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry),
      m_inputAreas(std::move(inputAreas)), m_bus(std::make_unique<PlankBus>(runLoop, bus))
{
    m_bus->setChanged([this] { rebuild(); });
}

PlankDock::~PlankDock() { m_runLoop.cancelPreviousPerformRequests(this); }

// A dock is found by its window at once; its items follow when it has answered.
void PlankDock::start()
{
    rebuild();
    m_bus->start();
}

std::vector<DockStatePtr> PlankDock::states() const
{
    const std::lock_guard lock(m_mutex);
    return m_states;
}

// States are derived on the main thread, where D-Bus and the preferences are available.
void PlankDock::onMainThread(void (PlankDock::*step)())
{
    m_runLoop.performOnMainThread(m_guard.ifAlive([this, step] { (this->*step)(); }), false);
}

void PlankDock::refresh() { m_bus->refresh(); }

void PlankDock::lookForDocks()
{
    rebuild();
    m_bus->lookForDocks();
    m_bus->refresh();
}

// Plank tells nobody that the user has moved an icon. It takes a quarter of a millisecond to tell
// where one is, just when it has to draw the icon that the pointer is on, and so has the row.
void PlankDock::refreshAtLeisure()
{
    m_runLoop.cancelPreviousPerformRequests(this);
    m_runLoop.performAfterDelay(this, leisure, [this] { refresh(); });
}

void PlankDock::pointerCrossed() { onMainThread(&PlankDock::refreshAtLeisure); }

void PlankDock::synchronize() { rebuild(); }

void PlankDock::windowAdded(const x11::TrackedWindowPtr& window)
{
    if (isPlankWindow(*window))
        onMainThread(&PlankDock::lookForDocks);
}

void PlankDock::windowChanged(const x11::TrackedWindowPtr& before,
                              const x11::TrackedWindowPtr& after)
{
    if (isPlankWindow(*after) &&
        (before->frameBounds != after->frameBounds || before->frame != after->frame ||
         before->type != after->type || before->resizeStep != after->resizeStep)) {
        onMainThread(&PlankDock::rebuild);
        onMainThread(&PlankDock::refresh);
    }
    const Interest interest = m_interest;
    const bool isOfInterest =
        interest == Interest::All ||
        (interest == Interest::ComingAndGoing && isShownByDock(*before) != isShownByDock(*after));
    if (isOfInterest && before->iconGeometrySerial != after->iconGeometrySerial &&
        !m_isRebuildUnderWay.exchange(true))
        onMainThread(&PlankDock::rebuild);
}

void PlankDock::windowRemoved(const x11::TrackedWindowPtr& last)
{
    if (isPlankWindow(*last))
        onMainThread(&PlankDock::lookForDocks);
}

std::vector<PlankWindow> PlankDock::readWindows() const
{
    std::vector<PlankWindow> windows;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows()) {
        if (isPlankWindow(*window)) {
            windows.push_back({.window = {window->id, window->frame, window->bounds},
                               .pid = window->pid.value_or(0),
                               .scale = plankScaleOf(*window),
                               .touched = {}});
        }
    }
    if (windows.size() > 1 && m_inputAreas) { // to distinguish them
        std::vector<xcb_window_t> ids;
        ids.reserve(windows.size());
        for (const PlankWindow& window : windows)
            ids.push_back(window.window.id);
        const std::vector<QRect> areas = m_inputAreas(ids);
        for (std::size_t i = 0; i < windows.size(); ++i)
            windows[i].touched = areas[i].translated(windows[i].window.bounds.topLeft());
    }
    return windows;
}

PlankDock::Kept& PlankDock::keptOf(const PlankOnBus& dock)
{
    Kept& kept = m_kept[{dock.plank, dock.name}];
    if (!kept.settings) {
        kept.settings = std::make_unique<PlankSettings>(dock.name, [this] {
            onMainThread(&PlankDock::rebuild);
            onMainThread(&PlankDock::refresh);
        });
    }
    return kept;
}

std::vector<PlankDock::Known> PlankDock::knownDocks()
{
    std::vector<PlankOnBus> all = m_bus->docks();
    if (m_kept.size() > std::max(maximumKept, all.size())) {
        std::erase_if(m_kept, [&](const auto& kept) {
            return std::ranges::none_of(all, [&](const PlankOnBus& told) {
                return kept.first == std::pair(told.plank, told.name);
            });
        });
    }
    std::vector<Known> docks;
    for (PlankOnBus& told : all) {
        Known dock;
        dock.told = std::move(told);
        dock.kept = &keptOf(dock.told);
        dock.settings = dock.kept->settings->read();
        const DockEdge otherwise = dock.settings ? dock.settings->edge : DockEdge::Bottom;
        dock.edge = dock.told.items.edge.value_or(otherwise);
        docks.push_back(std::move(dock));
    }
    return docks;
}

void PlankDock::giveWindows(std::vector<Known>& docks, std::vector<PlankWindow>& windows)
{
    std::vector<PlankWithoutWindow> wanting;
    wanting.reserve(docks.size());
    for (const Known& dock : docks)
        wanting.push_back({dock.told.pid, dock.edge, dock.told.items.points()});
    const auto given = windowsOfPlanks(wanting, windows);
    for (std::size_t i = 0; i < docks.size(); ++i)
        if (given[i])
            docks[i].window = windows[*given[i]];
    std::erase_if(docks, [](const Known& dock) { return dock.window.window.id == XCB_NONE; });
    std::erase_if(windows, [&](const PlankWindow& window) {
        return std::ranges::any_of(
            docks, [&](const Known& dock) { return dock.window.window.id == window.window.id; });
    });
}

void PlankDock::rebuild()
{
    m_isRebuildUnderWay = false;
    std::vector<PlankWindow> windows = readWindows();
    std::vector<Known> docks = knownDocks();
    giveWindows(docks, windows);
    bool hides = false;
    bool hasUnnamed = false;
    for (Known& dock : docks) {
        placeItems(dock);
        hides = hides || (dock.settings && dock.settings->hides);
        hasUnnamed = hasUnnamed || dock.told.items.firstUnnamed;
    }
    m_interest = hasUnnamed || (hides && docks.size() > 1) ? Interest::All
                 : hides                                   ? Interest::ComingAndGoing
                                                           : Interest::None;
    noteSlides(docks);
    std::vector<DockStatePtr> states;
    states.reserve(docks.size() + windows.size());
    for (const Known& dock : docks)
        states.push_back(makeState(dock));
    for (const PlankWindow& window : windows) {
        auto state = std::make_shared<DockState>();
        state->pid = window.pid;
        state->windows.push_back(window.window);
        states.push_back(std::move(state));
    }
    {
        const std::lock_guard lock(m_mutex);
        m_states = std::move(states);
    }
    notifyChanged();
}

// The middle of the icon, as the dock writes it to the application's windows.
std::optional<int> PlankDock::iconCentreOf(const Application& application, const Known& dock) const
{
    for (const xcb_window_t id : application.windows) {
        const x11::TrackedWindowPtr window = m_tracker.window(id);
        if (!window || !window->iconGeometry || !isIconPlace(*window->iconGeometry))
            continue;
        const QPoint centre = iconCentre(*window->iconGeometry, dock.window.scale);
        if (dock.window.window.bounds.contains(centre))
            return along(centre, dock.edge);
    }
    return std::nullopt;
}

// An application without a desktop entry is identified by the path of its made-up URL.
std::vector<PlankItem> PlankDock::allItems(const Known& dock, const PlankItems& told) const
{
    std::vector<PlankItem> items = told.named;
    if (!told.firstUnnamed)
        return items;
    std::vector<QUrl> named;
    std::vector<int> centres;
    for (const PlankItem& item : told.named) {
        centres.push_back(along(item.hoverPoint, dock.edge));
        if (const auto application = m_registry.applicationForDesktopFile(item.desktopFile))
            named.push_back(application->running.bundleURL);
    }
    std::vector<PlankUnnamed::Candidate> unnamed;
    for (const Application& application : m_registry.applications()) {
        const QUrl& url = application.running.bundleURL;
        if (application.isRegular && std::ranges::find(named, url) == named.end()) {
            unnamed.push_back(
                {url.toLocalFile(), iconCentreOf(application, dock), application.running.pid});
        }
    }
    // Applications that ran before this program are ordered by process id.
    std::ranges::stable_sort(unnamed, {}, &PlankUnnamed::Candidate::pid);
    const QPoint first = *told.firstUnnamed;
    const int firstCentre = along(first, dock.edge);
    std::vector<int> known = centres;
    known.push_back(firstCentre);
    const int pitch = plankPitch(known, dock.look.iconSize);
    const int count = std::min(static_cast<int>(unnamed.size()),
                               told.count - static_cast<int>(told.named.size()));
    const std::vector<int> free = plankFreeCentres(firstCentre, count, pitch, centres);
    const std::vector<QString> assigned = dock.kept->unnamed.assign(unnamed, free, pitch);
    for (std::size_t i = 0; i < assigned.size(); ++i) {
        items.push_back({assigned[i], isHorizontal(dock.edge) ? QPoint(free[i], first.y())
                                                              : QPoint(first.x(), free[i])});
    }
    return items;
}

// From here on everything is in root pixels.
void PlankDock::placeItems(Known& dock) const
{
    if (dock.settings)
        dock.look = dock.settings->look;
    dock.look.iconSize *= dock.window.scale;
    dock.items = allItems(dock, dock.told.items.scaledBy(dock.window.scale));
    std::vector<QPoint> points;
    points.reserve(dock.items.size());
    for (const PlankItem& item : dock.items)
        points.push_back(item.hoverPoint);
    dock.places = plankPlaces(points, dock.edge, dock.window.window.bounds, dock.look);
}

void PlankDock::noteSlides(const std::vector<Known>& docks)
{
    std::vector<PlankSlides::Dock> writers;
    for (const Known& dock : docks) {
        QRect extent;
        for (const PlankPlace& place : dock.places)
            extent |= place.rect;
        writers.push_back(
            {dock.kept->number, dock.window.window.bounds, extent, dock.window.scale});
    }
    m_slides.note(m_tracker.windows(), writers);
}

DockStatePtr PlankDock::makeState(const Known& dock) const
{
    auto state = std::make_shared<DockState>();
    state->pid = dock.window.pid;
    state->windows.push_back(dock.window.window);
    state->edge = dock.edge;
    if (dock.settings) {
        state->settingsPath = plankSettingsPath(dock.told.name);
        state->magnifies = dock.look.magnifies;
        state->hides = dock.settings->hides;
        state->isHidden = state->hides && m_slides.isAway(dock.kept->number);
    }
    for (std::size_t i = 0; i < dock.items.size(); ++i) {
        const QString& desktopFile = dock.items[i].desktopFile;
        DockItemId& id = dock.kept->ids[desktopFile];
        if (id == 0)
            id = newDockItemId();
        state->items.push_back({.id = id,
                                .desktopFile = desktopFile,
                                .windows = {},
                                .isMinimizedWindow = false,
                                .rect = dock.places[i].rect,
                                .magnified = dock.places[i].magnified});
    }
    if (dock.kept->ids.size() > std::max(maximumKept, state->items.size())) {
        std::erase_if(dock.kept->ids, [&](const auto& kept) {
            return std::ranges::find(state->items, kept.second, &DockItem::id) ==
                   state->items.end();
        });
    }
    std::ranges::stable_sort(state->items, {}, [edge = dock.edge](const DockItem& item) {
        return isHorizontal(edge) ? item.rect.x() : item.rect.y();
    });
    return state;
}

} // namespace lumbrix::platform
