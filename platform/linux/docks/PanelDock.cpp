// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PanelDock.h"

#include <algorithm>
#include <unordered_map>

#include "platform/linux/docks/PlankDock.h"

namespace lumbrix::platform
{

namespace
{

// Panels that animate their buttons write a place every 17 ms.
constexpr double settleTime = 0.030;

bool isDock(const x11::TrackedWindow& window) { return window.type == x11::WindowType::Dock; }

// Plank reports wrong positions; it has a provider of its own.
bool isPanel(const x11::TrackedWindow& window) { return isDock(window) && !isPlankWindow(window); }

bool isShownOn(const x11::TrackedWindow& window, int desktop)
{
    return window.desktop < 0 || window.desktop == desktop;
}

/// Those that were read of these windows, in the windows' order.
std::vector<PlacedWindow> placesRead(const std::vector<PlacedWindow>& read,
                                     const std::vector<x11::TrackedWindowPtr>& shown)
{
    std::unordered_map<xcb_window_t, const PlacedWindow*> byWindow;
    for (const PlacedWindow& each : read)
        byWindow.try_emplace(each.window, &each);
    std::vector<PlacedWindow> placed;
    for (const x11::TrackedWindowPtr& window : shown) {
        if (const auto it = byWindow.find(window->id); it != byWindow.end()) {
            placed.push_back(*it->second);
            placed.back().isIconic = window->isIconic;
        }
    }
    return placed;
}

} // namespace

PanelDock::PanelDock(RunLoop& runLoop, x11::WindowTracker& tracker, const x11::PointSpace& space,
                     std::unique_ptr<AccessibleButtons> buttons)
    : m_runLoop(runLoop), m_tracker(tracker), m_space(space), m_buttons(std::move(buttons))
{
    if (m_buttons)
        m_buttons->setChanged([this] { derive(); });
}

PanelDock::~PanelDock() { m_runLoop.cancelPreviousPerformRequests(this); }

void PanelDock::start()
{
    updateDocks();
    for (const x11::TrackedWindowPtr& window : m_tracker.windows())
        notePlace(*window, m_runLoop.now() - 1.0); // written before our start, so stable
    derive();
}

std::vector<DockStatePtr> PanelDock::states() const
{
    const std::lock_guard lock(m_mutex);
    return m_states;
}

void PanelDock::synchronize() { derive(); }

void PanelDock::updateDocks()
{
    std::vector<xcb_window_t> docks;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows())
        if (isDock(*window))
            docks.push_back(window->id);
    const std::lock_guard lock(m_mutex);
    m_docks = std::move(docks);
}

std::vector<DockWindow> PanelDock::dockWindows() const
{
    std::vector<xcb_window_t> ids;
    {
        const std::lock_guard lock(m_mutex);
        ids = m_docks;
    }
    std::vector<DockWindow> docks;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows(ids))
        if (isDock(*window))
            docks.push_back({window->id, window->frame, window->bounds});
    return docks;
}

void PanelDock::notePlace(const x11::TrackedWindow& window, double writtenAt)
{
    if (!window.iconGeometry || !isIconPlace(*window.iconGeometry) || isDock(window))
        return;
    // Among all docks: a rectangle on a dock of another provider must not be assigned to a nearby
    // panel.
    const std::vector<DockWindow> docks = dockWindows();
    const int index = dockOfIcon(*window.iconGeometry, docks);
    if (index < 0)
        return;
    const DockWindow& dock = docks[static_cast<std::size_t>(index)];
    const x11::TrackedWindowPtr writer = m_tracker.window(dock.id);
    if (writer && writer->pid)
        m_writers.wrote(*writer->pid);
    const std::lock_guard lock(m_mutex);
    Placement& placement = m_placements[window.id][dock.id];
    placement.writtenAt = writtenAt;
    placement.latest.window = window.id;
    placement.latest.place =
        placeOnDock(*window.iconGeometry, dock.bounds, placement.latest.isOffPanel);
}

void PanelDock::noteMissingPlaces()
{
    for (const x11::TrackedWindowPtr& window : m_tracker.windows()) {
        bool isMissing = false;
        {
            const std::lock_guard lock(m_mutex);
            const auto known = m_placements.find(window->id);
            isMissing = known == m_placements.end() || known->second.empty();
        }
        if (isMissing)
            notePlace(*window, m_runLoop.now());
    }
}

void PanelDock::windowAdded(const x11::TrackedWindowPtr& window)
{
    if (isDock(*window)) {
        updateDocks();
        noteMissingPlaces();
    } else {
        notePlace(*window, m_runLoop.now());
    }
    m_hasChanged = true;
    scheduleDerivation();
}

void PanelDock::windowChanged(const x11::TrackedWindowPtr& before,
                              const x11::TrackedWindowPtr& after)
{
    if (isDock(*before) != isDock(*after))
        updateDocks();
    const bool isPlaced = before->iconGeometrySerial != after->iconGeometrySerial;
    if (isPlaced)
        notePlace(*after, m_runLoop.now());
    const bool isDockMoved = (isDock(*after) || isDock(*before)) &&
                             (before->bounds != after->bounds || before->frame != after->frame ||
                              before->type != after->type);
    if (isDockMoved && isIconPlace(after->bounds) && !isIconPlace(before->bounds))
        noteMissingPlaces();
    const bool isShownOtherwise =
        isDockMoved || before->strut != after->strut || before->isIconic != after->isIconic ||
        before->desktop != after->desktop || before->skipTaskbar != after->skipTaskbar;
    if (isShownOtherwise)
        m_hasChanged = true;
    if (isPlaced || isShownOtherwise)
        scheduleDerivation();
}

void PanelDock::windowRemoved(const x11::TrackedWindowPtr& last)
{
    if (isDock(*last))
        updateDocks();
    {
        const std::lock_guard lock(m_mutex);
        m_placements.erase(last->id);
        for (auto& [window, placements] : m_placements)
            placements.erase(last->id);
    }
    m_hasChanged = true;
    scheduleDerivation();
}

void PanelDock::currentDesktopChanged(int)
{
    m_hasChanged = true;
    scheduleDerivation();
}

void PanelDock::screensChanged()
{
    m_hasChanged = true;
    scheduleDerivation();
}

void PanelDock::scheduleDerivation()
{
    if (m_isScheduled.exchange(true))
        return;
    const auto schedule = m_guard.ifAlive([this] {
        m_runLoop.performAfterDelay(this, settleTime, [this] {
            m_isScheduled = false;
            derive();
        });
    });
    m_runLoop.performOnMainThread(schedule, false);
}

bool PanelDock::settle(double now)
{
    bool anyFresh = false;
    for (auto& [window, placements] : m_placements) {
        for (auto& [panel, placement] : placements)
            if (now - placement.writtenAt >= settleTime)
                placement.settled = placement.latest;
            else
                anyFresh = true;
    }
    return anyFresh;
}

void PanelDock::derive()
{
    const std::vector<x11::TrackedWindowPtr> windows = m_tracker.windows();
    bool anyFresh = false;
    {
        const std::lock_guard lock(m_mutex);
        anyFresh = settle(m_runLoop.now());
    }
    if (m_buttons)
        updateButtons(windows);
    const int desktop = m_tracker.currentDesktop();
    std::vector<x11::TrackedWindowPtr> shown = windows;
    std::erase_if(shown, [desktop](const x11::TrackedWindowPtr& window) {
        return !isShownOn(*window, desktop) || window->skipTaskbar;
    });
    auto placed = placesByPanel(shown);
    std::vector<DockStatePtr> states;
    for (const x11::TrackedWindowPtr& window : windows) {
        if (isPanel(*window)) {
            if (const auto* read = m_buttons ? m_buttons->places(window->id) : nullptr)
                placed[window->id] = placesRead(*read, shown);
            states.push_back(makeState(*window, placed[window->id]));
            if (!states.back()->items.empty())
                m_everUsed.insert(window->id);
        }
    }
    // A panel with a task bar comes before one with just a clock, even while no window is open.
    std::stable_partition(states.begin(), states.end(), [this](const DockStatePtr& state) {
        return m_everUsed.contains(state->windows.front().id);
    });
    {
        const std::lock_guard lock(m_mutex);
        m_states = std::move(states);
    }
    notifyChanged();
    if (anyFresh)
        scheduleDerivation();
}

void PanelDock::updateButtons(const std::vector<x11::TrackedWindowPtr>& windows)
{
    std::vector<x11::TrackedWindowPtr> docks;
    std::ranges::copy_if(windows, std::back_inserter(docks),
                         [](const x11::TrackedWindowPtr& window) { return isDock(*window); });
    std::set<xcb_window_t> withPlaces;
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& [window, placements] : m_placements)
            for (const auto& [dock, placement] : placements)
                withPlaces.insert(dock);
    }
    std::set<std::int32_t> placed;
    for (const x11::TrackedWindowPtr& dock : docks)
        if (dock->pid && withPlaces.contains(dock->id))
            placed.insert(*dock->pid);
    const int desktop = m_tracker.currentDesktop();
    const bool areThereTasks =
        std::ranges::any_of(windows, [desktop](const x11::TrackedWindowPtr& window) {
            return isTask(*window, desktop);
        });
    const PlaceWriters::Doubt doubt =
        m_writers.doubt(docks, placed, areThereTasks, m_runLoop.now());
    m_buttons->want(doubt.pids);
    if (m_hasChanged.exchange(false))
        m_buttons->refresh();
    if (doubt.lookAgain > 0)
        m_runLoop.performAfterDelay(this, doubt.lookAgain, [this] { derive(); });
}

std::map<xcb_window_t, std::vector<PlacedWindow>>
PanelDock::placesByPanel(const std::vector<x11::TrackedWindowPtr>& shown) const
{
    std::map<xcb_window_t, std::vector<PlacedWindow>> places;
    const std::lock_guard lock(m_mutex);
    for (const x11::TrackedWindowPtr& window : shown) {
        const auto known = m_placements.find(window->id);
        if (known == m_placements.end())
            continue;
        for (const auto& [panel, placement] : known->second) {
            if (placement.settled) {
                places[panel].push_back(*placement.settled);
                places[panel].back().isIconic = window->isIconic;
            }
        }
    }
    return places;
}

DockStatePtr PanelDock::makeState(const x11::TrackedWindow& panel,
                                  const std::vector<PlacedWindow>& placed)
{
    auto state = std::make_shared<DockState>();
    state->pid = panel.pid.value_or(0);
    state->edge =
        edgeOfDock(panel.bounds, screenOf(panel.bounds), panel.strut.value_or(QMargins()));
    state->hides = panel.strut && panel.strut->isNull();
    // Hidden panels leave a strip, or a part of their window, at the edge to be touched by the
    // pointer.
    state->isHidden = !isIconPlace(panel.bounds & screenOf(panel.bounds));
    state->windows.push_back({panel.id, panel.frame, panel.bounds});

    const std::lock_guard lock(m_mutex);
    std::vector<DockItem> previous;
    for (const DockStatePtr& old : m_states)
        if (old->windows.front().id == panel.id)
            previous = old->items;
    state->items = deriveItems(placed, panel.bounds, state->edge, previous);
    return state;
}

QRect PanelDock::screenOf(const QRect& panel) const
{
    const std::vector<QRect> screens = m_space.screens();
    return *std::ranges::min_element(
        screens, {}, [&](const QRect& screen) { return squaredDistance(panel.center(), screen); });
}

} // namespace lumbrix::platform
