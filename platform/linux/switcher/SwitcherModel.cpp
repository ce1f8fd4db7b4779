// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherModel.h"

#include <algorithm>
#include <utility>

#include "platform/linux/switcher/SwitcherChoice.h"
#include "platform/linux/x11/KeySymbols.h"

namespace lumbrix::platform
{

namespace
{

/// An outline is drawn in several steps, and the title is updated after it.
constexpr Seconds settleTime = 0.02;
/// A key without a visible effect may nevertheless have moved the selection.
constexpr Seconds keyTime = 0.06;

} // namespace

SwitcherModel::SwitcherModel(RunLoop& runLoop, x11::WindowTracker& tracker,
                             ApplicationRegistry& registry, const QDBusConnection* session,
                             HearKeys hearKeys, std::function<bool()> canCount)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry), m_hearKeys(std::move(hearKeys)),
      m_canCount(std::move(canCount)),
      m_title(session ? std::make_unique<SwitcherTitle>(*session) : nullptr), m_recent(tracker)
{
}

SwitcherModel::~SwitcherModel() { m_runLoop.cancelPreviousPerformRequests(&m_settling); }

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
    if (m_selection)
        m_picked = window;
}

void SwitcherModel::post(std::function<void()> action)
{
    m_runLoop.performOnMainThread(m_guard.ifAlive(std::move(action)), false);
}

void SwitcherModel::managerChanged(const x11::Manager& manager)
{
    // Without a dock, an observer needs a process to observe.
    m_registry.setDockStandIn(switcherReaderFor(manager.name) ? manager.pid : 0);
    post([this, manager] { takeManager(manager); });
}

void SwitcherModel::windowAdded(const x11::TrackedWindowPtr& window)
{
    post([this, window = window->id] { m_recent.added(window); });
}

void SwitcherModel::activeWindowChanged(xcb_window_t window)
{
    post([this, window] {
        m_recent.activated(window);
        // Without a list, each step takes effect at once, and the next one starts from there.
        if (!m_isUp)
            m_counted.restart();
    });
}

void SwitcherModel::compositorChanged(bool /*isRunning*/)
{
    post([this] { takeManager(m_manager); });
}

void SwitcherModel::keyPressed(xcb_keysym_t key, bool withShift)
{
    post([this, key, withShift] { takeKey(key, withShift); });
}

void SwitcherModel::keyRepeated(xcb_keysym_t key)
{
    post([this, key] {
        if (!x11::keysym::isModifier(key))
            moveUnseen();
    });
}

void SwitcherModel::pointerMoved(QPoint /*position*/, xcb_window_t childOfRoot)
{
    m_underPointer = childOfRoot;
}

// A click in the list selects an entry.
void SwitcherModel::buttonPressed(int /*button*/, QPoint /*position*/)
{
    post([this, clicked = m_underPointer] {
        if (std::ranges::count(m_manager.windows, clicked, &x11::ManagerWindow::id) > 0)
            moveUnseen();
    });
}

void SwitcherModel::takeManager(const x11::Manager& manager)
{
    m_manager = manager;
    const SwitcherReader* reader = switcherReaderFor(manager.name);
    if (reader && reader->isCounted && !m_canCount())
        reader = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        m_reader = reader;
    }
    hearKeys();
    if (reader && reader->look(manager.windows))
        lookAfter(settleTime);
    else if (m_isUp)
        closed();
}

void SwitcherModel::hearKeys()
{
    const bool isCounted = m_reader && m_reader->isCounted;
    const x11::KeyHearing which = isCounted ? x11::KeyHearing::WithModifier
                                  : m_isUp  ? x11::KeyHearing::All
                                            : x11::KeyHearing::None;
    if (std::exchange(m_hearing, which) != which)
        m_hearKeys(which);
}

void SwitcherModel::takeKey(xcb_keysym_t key, bool withShift)
{
    if (!m_isUp && x11::keysym::isAltOrSuper(key))
        m_counted.restart();
    m_counted.pressed(key, withShift);
    if (!m_isUp || x11::keysym::isModifier(key))
        return;
    m_isCancelled = key == x11::keysym::escape;
    m_steps += withShift ? -1 : 1;
    lookAfter(keyTime);
}

void SwitcherModel::lookAfter(Seconds delay)
{
    m_runLoop.cancelPreviousPerformRequests(&m_settling);
    m_runLoop.performAfterDelay(&m_settling, delay, [this] { look(); });
}

void SwitcherModel::look()
{
    const SwitcherReader* reader = m_reader;
    const auto sight = reader ? reader->look(m_manager.windows) : std::nullopt;
    if (!sight)
        return;
    if (!std::exchange(m_isUp, true)) {
        m_isCancelled = false;
        m_steps = 0;
        m_outline = QRect();
        m_start = m_tracker.activeWindow();
        m_order = m_recent.ringOfKWin();
        hearKeys();
    }
    if (reader->isCounted) {
        count(sight->list);
        return;
    }
    // The outline identifies the window unless another application has a window with the same
    // frame.
    const Windows outlined = windowsOutlinedBy(sight->outline, m_tracker.windows());
    const bool isClear =
        !outlined.empty() && std::ranges::all_of(outlined, [&](xcb_window_t window) {
            return ownerOf(window) == ownerOf(outlined.front());
        });
    if (isClear || reader->titleRole == 0 || !m_title) {
        choose(*sight, QString());
    } else {
        m_title->ask(m_manager.pid, reader->titleRole, [this, sight](const QString& title) {
            if (m_isUp)
                choose(*sight, title);
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
        if (isOutlined && isTitleOf(title, window->title))
            titled.push_back(window->id);
    }
    if (!titled.empty())
        candidates = std::move(titled);
    const auto before = selection();
    const xcb_window_t from = before ? before->window : m_tracker.activeWindow();
    const bool hasMoved = !before || m_steps != 0 || sight.outline != m_outline;
    const bool stays = !hasMoved && std::ranges::count(candidates, from) > 0;
    const xcb_window_t next = stays ? from : nextInRing(m_recent.ring(), from, m_steps, candidates);
    if (next == XCB_NONE)
        return; // it is being drawn
    m_steps = 0;
    m_outline = sight.outline;
    select(next, sight.list.isEmpty() ? sight.outline : sight.list);
}

// If the new position of the switcher is not known, no selection is reported.
void SwitcherModel::moveUnseen()
{
    if (m_isUp && m_reader && m_reader->isCounted) {
        m_counted.lose();
        loseSelection();
    }
}

void SwitcherModel::loseSelection()
{
    if (!selection())
        return;
    select(XCB_NONE, QRect());
    const std::lock_guard lock(m_mutex);
    m_selection.reset();
}

void SwitcherModel::count(const QRect& list)
{
    const auto steps = m_counted.count();
    const auto start = std::ranges::find(m_order, m_start);
    if (!steps || start == m_order.end()) {
        moveUnseen();
        return;
    }
    const auto size = static_cast<std::ptrdiff_t>(m_order.size());
    const std::ptrdiff_t place = (start - m_order.begin() + *steps) % size;
    select(m_order[static_cast<std::size_t>(place < 0 ? place + size : place)], list);
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
    if (isOther && m_selectionChanged)
        m_selectionChanged();
}

void SwitcherModel::closed()
{
    m_isUp = false;
    hearKeys();
    m_counted.restart();
    m_runLoop.cancelPreviousPerformRequests(&m_settling);
    if (m_title)
        m_title->forget();
    // Closing the switcher with the mouse on a preview picks that window; cancelling it does not.
    if (m_isCancelled)
        loseSelection();
    xcb_window_t again = XCB_NONE;
    {
        const std::lock_guard lock(m_mutex);
        m_selection.reset();
        again = std::exchange(m_picked, XCB_NONE);
    }
    if (again != XCB_NONE)
        m_tracker.activate(again);
}

} // namespace lumbrix::platform
