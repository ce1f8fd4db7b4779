// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherModel.h"

#include <algorithm>
#include <utility>

#include "platform/linux/switcher/SwitcherChoice.h"

namespace lumbrix::platform
{

namespace
{

/// An outline is drawn in some steps, and the title is written after it.
constexpr Seconds SettleTime = 0.02;
/// A key that moves nothing that can be seen may have moved the selection all the same.
constexpr Seconds KeyTime = 0.06;
constexpr std::size_t MaximalRecent = 200;

constexpr xcb_keysym_t EscapeKey = 0xff1b;
// Shift, Control, locks, Alt, Super and the like; those of further levels.
bool isModifier(xcb_keysym_t key)
{
    return (key >= 0xffe1 && key <= 0xffee) || (key >= 0xfe01 && key <= 0xfe0f);
}

} // namespace

SwitcherModel::SwitcherModel(RunLoop& runLoop, x11::WindowTracker& tracker,
                             ApplicationRegistry& registry, const QDBusConnection* session,
                             HearKeys hearKeys)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry), m_hearKeys(std::move(hearKeys)),
      m_title(session != nullptr ? std::make_unique<SwitcherTitle>(*session) : nullptr),
      m_recent{tracker.activeWindow()}
{
}

SwitcherModel::~SwitcherModel()
{
    *m_alive = false;
    m_runLoop.cancelPreviousPerformRequests(&m_settling);
}

std::optional<SwitcherModel::Selection> SwitcherModel::selection() const
{
    const std::lock_guard lock(m_mutex);
    return m_selection;
}

bool SwitcherModel::canRead() const
{
    const std::lock_guard lock(m_mutex);
    return m_reader != nullptr;
}

void SwitcherModel::picked(xcb_window_t window)
{
    const std::lock_guard lock(m_mutex);
    if (m_selection) {
        m_picked = window;
    }
}

void SwitcherModel::post(std::function<void()> action)
{
    m_runLoop.performOnMainThread(
        [alive = m_alive, action = std::move(action)] {
            if (*alive) {
                action();
            }
        },
        false);
}

void SwitcherModel::managerChanged(const x11::Manager& manager)
{
    // Who looks on without having been told of a dock needs a process to observe.
    m_registry.setDockStandIn(switcherReaderFor(manager.name) != nullptr ? manager.pid : 0);
    post([this, manager] { takeManager(manager); });
}

void SwitcherModel::activeWindowChanged(xcb_window_t window)
{
    post([this, window] {
        std::erase(m_recent, window);
        m_recent.insert(m_recent.begin(), window);
        m_recent.resize(std::min(m_recent.size(), MaximalRecent));
    });
}

void SwitcherModel::keyPressed(xcb_keysym_t key, bool withShift)
{
    post([this, key, withShift] { takeKey(key, withShift); });
}

void SwitcherModel::takeManager(const x11::Manager& manager)
{
    m_manager = manager;
    const SwitcherReader* reader = switcherReaderFor(manager.name);
    {
        const std::lock_guard lock(m_mutex);
        m_reader = reader;
    }
    if (reader != nullptr && reader->look(manager.windows)) {
        lookAfter(SettleTime);
    } else if (m_isUp) {
        closed();
    }
}

void SwitcherModel::takeKey(xcb_keysym_t key, bool withShift)
{
    if (!m_isUp || isModifier(key)) {
        return;
    }
    m_isCancelled = key == EscapeKey;
    m_steps += withShift ? -1 : 1;
    lookAfter(KeyTime);
}

void SwitcherModel::lookAfter(Seconds delay)
{
    m_runLoop.cancelPreviousPerformRequests(&m_settling);
    m_runLoop.performAfterDelay(&m_settling, delay, [this] { look(); });
}

void SwitcherModel::look()
{
    const SwitcherReader* reader = switcherReaderFor(m_manager.name);
    const auto sight = reader != nullptr ? reader->look(m_manager.windows) : std::nullopt;
    if (!sight) {
        return;
    }
    if (!std::exchange(m_isUp, true)) {
        m_isCancelled = false;
        m_steps = 0;
        m_outline = QRect();
        m_hearKeys(true);
    }
    // The outline tells the window where no other application has one just there.
    const Windows outlined = windowsOutlinedBy(sight->outline, m_tracker.windows());
    const bool isClear =
        !outlined.empty() && std::ranges::all_of(outlined, [&](xcb_window_t window) {
            return ownerOf(window) == ownerOf(outlined.front());
        });
    if (isClear || reader->titleRole == 0 || !m_title) {
        choose(*sight, QString());
    } else {
        m_title->ask(m_manager.pid, reader->titleRole, [this, sight](const QString& title) {
            if (m_isUp) {
                choose(*sight, title);
            }
        });
    }
}

void SwitcherModel::choose(const SwitcherSight& sight, const QString& title)
{
    const std::vector<x11::TrackedWindowPtr> windows = m_tracker.windows();
    Windows candidates = windowsOutlinedBy(sight.outline, windows);
    Windows titled;
    for (const x11::TrackedWindowPtr& window : windows) {
        const bool isOutlined = candidates.empty() || std::ranges::count(candidates, window->id);
        if (isOutlined && isTitleOf(title, window->title)) {
            titled.push_back(window->id);
        }
    }
    if (!titled.empty()) {
        candidates = std::move(titled);
    }
    const auto before = selection();
    const xcb_window_t from = before ? before->window : m_tracker.activeWindow();
    const bool hasMoved = !before || m_steps != 0 || sight.outline != m_outline;
    const bool stays = !hasMoved && std::ranges::count(candidates, from) > 0;
    const xcb_window_t next = stays ? from : nextInRing(ring(), from, m_steps, candidates);
    if (next == XCB_NONE) {
        return; // it is just being drawn
    }
    m_steps = 0;
    m_outline = sight.outline;
    select(next, sight.list.isEmpty() ? sight.outline : sight.list);
}

// Window managers go through the windows in the order in which they were active last.
SwitcherModel::Windows SwitcherModel::ring() const
{
    Windows result;
    const std::vector<x11::TrackedWindowPtr> windows = m_tracker.windows();
    const int desktop = m_tracker.currentDesktop();
    for (const x11::TrackedWindowPtr& window : windows) {
        const bool isHere = window->desktop < 0 || window->desktop == desktop;
        if (isApplicationWindow(*window) && !window->skipTaskbar && isHere) {
            result.push_back(window->id);
        }
    }
    std::ranges::stable_sort(result, {}, [this](xcb_window_t window) {
        return std::ranges::find(m_recent, window) - m_recent.begin();
    });
    return result;
}

std::int32_t SwitcherModel::ownerOf(xcb_window_t window) const
{
    const x11::TrackedWindowPtr tracked = m_tracker.window(window);
    return tracked && isApplicationWindow(*tracked) ? m_registry.ownerPidOf(*tracked) : 0;
}

void SwitcherModel::select(xcb_window_t window, const QRect& list)
{
    const std::int32_t pid = ownerOf(window);
    bool isOther = false;
    {
        const std::lock_guard lock(m_mutex);
        isOther = !m_selection || m_selection->pid != pid;
        m_selection = {.pid = pid, .window = window, .list = list};
    }
    if (isOther && m_selectionChanged) {
        m_selectionChanged();
    }
}

void SwitcherModel::closed()
{
    m_isUp = false;
    m_hearKeys(false);
    m_runLoop.cancelPreviousPerformRequests(&m_settling);
    if (m_title) {
        m_title->forget();
    }
    // Letting the switcher go with the mouse on a preview picks that window; giving up does not.
    if (m_isCancelled && selection()) {
        select(XCB_NONE, QRect());
    }
    xcb_window_t again = XCB_NONE;
    {
        const std::lock_guard lock(m_mutex);
        m_selection.reset();
        again = std::exchange(m_picked, XCB_NONE);
    }
    if (again != XCB_NONE) {
        m_tracker.activate(again);
    }
}

} // namespace lumbrix::platform
