// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/AccessibleButtons.h"

#include <algorithm>
#include <cmath>

namespace lumbrix::platform
{

namespace
{

constexpr Seconds patience = 1.5;    ///< for a whole reading
constexpr Seconds settleTime = 0.05; ///< panels need time to handle a change, too
constexpr Seconds minimumSpacing = 0.25;
constexpr Seconds maximumSpacing = 2.0; ///< while a panel reports changes without effect
constexpr Seconds maximumPause = 64.0;  ///< after failures
constexpr Seconds resolution = 0.001;   ///< timer resolution; no timer is set for less
constexpr int maximumFailures = 5;      ///< after that only when windows change
constexpr int looks = 3;

} // namespace

bool isTask(const x11::TrackedWindow& window, int desktop)
{
    return isApplicationWindow(window) && !window.skipTaskbar &&
           (window.desktop < 0 || window.desktop == desktop);
}

AccessibleButtons::AccessibleButtons(RunLoop& runLoop, x11::WindowTracker& tracker,
                                     ApplicationRegistry& registry, const QDBusConnection& session)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry), m_bus(session)
{
    m_bus.setMoved([this](const QString& application) { moved(application); });
    m_bus.setLost([this] { lost(); });
}

AccessibleButtons::~AccessibleButtons()
{
    m_runLoop.cancelPreviousPerformRequests(&m_deadline);
    m_runLoop.cancelPreviousPerformRequests(&m_wake);
}

void AccessibleButtons::want(const std::set<std::int32_t>& pids)
{
    const auto forgotten = std::erase_if(
        m_programs, [&](const auto& program) { return !pids.contains(program.first); });
    if (forgotten > 0 && pids.empty()) {
        m_walk.reset();
        m_bus.close();
        endTurn();
    }
    for (const std::int32_t pid : pids) {
        const auto [it, isNew] = m_programs.try_emplace(pid);
        if (isNew) {
            it->second.due = m_runLoop.now() + settleTime;
            it->second.looks = looks;
        }
    }
    if (forgotten > 0)
        watchLists();
    step();
}

void AccessibleButtons::refresh()
{
    const Seconds now = m_runLoop.now();
    for (auto& [pid, program] : m_programs) {
        program.due = program.isStale ? program.due : std::max(program.due, now + settleTime);
        if (program.failures == 0)
            program.due = std::min(program.due, now + minimumSpacing);
        program.isStale = true;
        program.spacing = minimumSpacing;
        program.looks = looks;
    }
    step();
}

const std::vector<PlacedWindow>* AccessibleButtons::places(xcb_window_t panel) const
{
    for (const auto& [pid, program] : m_programs) {
        const auto it = program.panels.find(panel);
        if (it != program.panels.end() && !it->second.lists.empty())
            return &it->second.places;
    }
    return nullptr;
}

void AccessibleButtons::step()
{
    m_runLoop.cancelPreviousPerformRequests(&m_wake);
    if (m_isBusy)
        return;
    const Programs::value_type* next = nullptr;
    for (const auto& program : m_programs)
        if (program.second.isStale && (!next || program.second.due < next->second.due))
            next = &program;
    if (!next)
        return;
    const Seconds wait = next->second.due - m_runLoop.now();
    if (wait > resolution)
        m_runLoop.performAfterDelay(&m_wake, wait, [this] { step(); });
    else
        begin(next->first);
}

void AccessibleButtons::begin(std::int32_t pid)
{
    m_isBusy = true;
    Program& program = m_programs[pid];
    program.isStale = false;
    m_runLoop.performAfterDelay(&m_deadline, patience, [this, pid] {
        m_walk.reset();
        if (!m_bus.isOpen())
            m_bus.close();
        failed(pid);
    });
    if (!m_bus.isOpen())
        connectBus(pid);
    else if (program.name.isEmpty())
        find(pid);
    else
        walk(pid);
}

void AccessibleButtons::connectBus(std::int32_t pid)
{
    m_bus.open([this, pid, turn = m_turn](bool isOpen) {
        if (turn != m_turn)
            return;
        if (isOpen)
            find(pid);
        else
            failed(pid);
    });
}

void AccessibleButtons::find(std::int32_t pid)
{
    m_bus.findApplication(pid, [this, pid, turn = m_turn](const QString& name) {
        if (turn != m_turn)
            return;
        const auto it = m_programs.find(pid);
        if (name.isEmpty() || it == m_programs.end()) {
            failed(pid);
        } else {
            it->second.name = name;
            walk(pid);
        }
    });
}

void AccessibleButtons::walk(std::int32_t pid)
{
    const Program& program = m_programs[pid];
    m_walk = std::make_unique<PanelWalk>(
        m_bus, program.name, panelsOf(pid), program.roles,
        [this, pid](PanelWalk::Result result) { read(pid, std::move(result)); });
    m_walk->start();
}

void AccessibleButtons::read(std::int32_t pid, PanelWalk::Result result)
{
    m_walk.reset();
    const auto it = m_programs.find(pid);
    if (it == m_programs.end() || !result.isAnswered) {
        failed(pid);
        return;
    }
    Program& program = it->second;
    const bool isChanged = update(pid, program, std::move(result));
    program.failures = 0;
    program.spacing = isChanged ? minimumSpacing
                                : std::clamp(program.spacing * 2, minimumSpacing, maximumSpacing);
    program.due = m_runLoop.now() + program.spacing;
    watchLists();
    endTurn();
    if (isChanged && m_changed)
        m_changed();
    step();
}

// A panel whose window is not among the program's windows, or is just being resized, keeps its
// former state.
bool AccessibleButtons::update(std::int32_t pid, Program& program, PanelWalk::Result result)
{
    const std::vector<DockWindow> docks = panelsOf(pid);
    bool isChanged =
        std::erase_if(program.panels, [&](const auto& panel) {
            return std::ranges::find(docks, panel.first, &DockWindow::id) == docks.end();
        }) > 0;
    const std::vector<ButtonWindow> all = windows();
    for (auto& [id, buttons] : result.panels) {
        Panel& panel = program.panels[id];
        Panel next = match(std::move(buttons), all, panel);
        isChanged = isChanged || next != panel;
        panel = std::move(next);
    }
    program.roles = std::move(result.roles);
    const bool isComplete = std::ranges::all_of(all, [&](const ButtonWindow& window) {
        return std::ranges::any_of(program.panels, [&](const auto& panel) {
            return std::ranges::find(panel.second.places, window.id, &PlacedWindow::window) !=
                   panel.second.places.end();
        });
    });
    // The panel may be slower than we are, and it reports changes only of lists that we watch.
    if (!isComplete && program.looks > 0) {
        --program.looks;
        program.isStale = true;
    }
    return isChanged;
}

AccessibleButtons::Panel AccessibleButtons::match(std::vector<PanelButton> buttons,
                                                  const std::vector<ButtonWindow>& windows,
                                                  const Panel& before)
{
    std::ranges::sort(buttons, {}, &PanelButton::ref);
    Panel panel{
        .windows = matchButtons(buttons, windows, before.windows), .places = {}, .lists = {}};
    for (const PanelButton& button : buttons) {
        const auto known = panel.windows.find(button.ref);
        if (known == panel.windows.end())
            continue;
        for (const xcb_window_t window : known->second)
            panel.places.push_back({.window = window, .place = button.place});
        panel.lists.insert(button.list);
    }
    if (panel.lists.empty())
        panel.lists = before.lists; // where the next button will appear
    return panel;
}

void AccessibleButtons::failed(std::int32_t pid)
{
    const auto it = m_programs.find(pid);
    if (it != m_programs.end()) {
        Program& program = it->second;
        program.name.clear();
        program.due = m_runLoop.now() + std::min(std::exp2(program.failures), maximumPause);
        program.isStale = ++program.failures < maximumFailures;
    }
    const bool areAllGone = std::ranges::all_of(
        m_programs, [](const auto& program) { return program.second.failures >= maximumFailures; });
    if (areAllGone)
        m_bus.close();
    endTurn();
    step();
}

void AccessibleButtons::endTurn()
{
    m_runLoop.cancelPreviousPerformRequests(&m_deadline);
    m_isBusy = false;
    ++m_turn;
}

void AccessibleButtons::moved(const QString& application)
{
    for (auto& [pid, program] : m_programs) {
        if (program.name == application && !program.isStale) {
            program.isStale = true;
            program.due = std::max(program.due, m_runLoop.now() + settleTime);
        }
    }
    step();
}

void AccessibleButtons::lost()
{
    m_walk.reset();
    for (auto& [pid, program] : m_programs) {
        program.name.clear();
        program.isStale = true;
        program.failures = 1;
        program.due = m_runLoop.now() + 1.0;
    }
    endTurn();
    step();
}

void AccessibleButtons::watchLists()
{
    std::set<AccessibleRef> lists;
    for (const auto& [pid, program] : m_programs)
        for (const auto& [id, panel] : program.panels)
            lists.insert(panel.lists.begin(), panel.lists.end());
    m_bus.watch(lists);
}

std::vector<ButtonWindow> AccessibleButtons::windows() const
{
    std::vector<ButtonWindow> result;
    const int desktop = m_tracker.currentDesktop();
    for (const Application& application : m_registry.applications()) {
        for (const xcb_window_t id : application.windows) {
            const x11::TrackedWindowPtr window = m_tracker.window(id);
            if (window && isTask(*window, desktop)) {
                result.push_back({.id = id,
                                  .title = window->title,
                                  .application = application.running.pid,
                                  .applicationNames = {application.running.localizedName,
                                                       window->className, window->classInstance},
                                  .isIconic = window->isIconic});
            }
        }
    }
    return result;
}

std::vector<DockWindow> AccessibleButtons::panelsOf(std::int32_t pid) const
{
    std::vector<DockWindow> result;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows())
        if (window->type == x11::WindowType::Dock && window->pid == pid)
            result.push_back({window->id, window->frame, window->bounds});
    return result;
}

} // namespace lumbrix::platform
