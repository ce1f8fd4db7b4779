// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/StringLiterals.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

// An office suite's word processor and spreadsheet are one program, but their windows have
// different classes.
bool areParts(const DesktopEntry& one, const DesktopEntry& other)
{
    return !one.startupWmClass.isEmpty() && !other.startupWmClass.isEmpty() &&
           one.startupWmClass.compare(other.startupWmClass, Qt::CaseInsensitive) != 0;
}

} // namespace

ApplicationRegistry::ApplicationRegistry(x11::WindowTracker& tracker, DesktopEntries& entries,
                                         ProcessReader reader, Own own, Clock clock)
    : m_tracker(tracker), m_entries(entries), m_reader(std::move(reader)), m_own(std::move(own)),
      m_clock(std::move(clock))
{
    const DesktopEntryPtr entry = m_entries.byId(m_own.bundleIdentifier);
    auto group = std::make_unique<Group>(
        u"own"_s, RunningApplication{.pid = m_own.pid,
                                     .bundleIdentifier = m_own.bundleIdentifier,
                                     .localizedName = entry ? entry->name : u"Lumbrix"_s,
                                     .bundleURL = bundleUrlOf(entry, m_own.bundleIdentifier),
                                     .executableURL =
                                         QUrl::fromLocalFile(m_reader(m_own.pid).executablePath)});
    m_groups.push_back(std::move(group));
}

void ApplicationRegistry::setSink(Sink sink) { m_sink = std::move(sink); }

void ApplicationRegistry::tell(WorkspaceNotification notification, std::int32_t pid)
{
    if (m_sink)
        m_sink(notification, pid);
}

ApplicationIdentity ApplicationRegistry::identify(const x11::TrackedWindow& window)
{
    if (window.pid && *window.pid == m_own.pid)
        return {.key = m_groups.front()->key(), .entry = {}, .className = {}, .executablePath = {}};
    return identifyApplication(window, m_entries, m_reader);
}

bool ApplicationRegistry::isPidFree(std::int32_t pid) const
{
    return pid > 0 && pid != m_dockPid && std::ranges::none_of(m_groups, [pid](const auto& group) {
               return group->running().pid == pid;
           });
}

std::int32_t ApplicationRegistry::pidFor(const x11::TrackedWindow& window)
{
    return window.pid && isPidFree(*window.pid) ? *window.pid : m_nextSyntheticPid++;
}

ApplicationRegistry::Group& ApplicationRegistry::insert(const x11::TrackedWindow& window,
                                                        const ApplicationIdentity& identity)
{
    Group* group = nullptr;
    // A dialog without information about its owner belongs to its parent's application.
    if (!identity.entry && identity.className.isEmpty() && window.transientFor != XCB_NONE)
        group = groupOf(window.transientFor);
    for (const auto& known : m_groups)
        if (!group && known->key() == identity.key)
            group = known.get();
    const bool isNew = !group;
    if (isNew) {
        const QUrl program = identity.executablePath.isEmpty()
                                 ? QUrl()
                                 : QUrl::fromLocalFile(identity.executablePath);
        m_groups.push_back(std::make_unique<Group>(
            identity.key, RunningApplication{.pid = pidFor(window),
                                             .bundleIdentifier = identity.bundleIdentifier(),
                                             .localizedName = identity.localizedName(),
                                             .bundleURL = identity.bundleUrl(),
                                             .executableURL = program,
                                             .role = identity.role()}));
        group = m_groups.back().get();
    }
    group->add(window.id, window.skipTaskbar, window.isIconic);
    m_groupOfWindow.insert(window.id, group);
    if (isNew)
        tell(WorkspaceNotification::DidLaunchApplication, group->running().pid);
    return *group;
}

void ApplicationRegistry::remove(xcb_window_t id)
{
    Group* group = m_groupOfWindow.take(id);
    if (!group)
        return;
    group->remove(id);
    if (!group->isEmpty() || group == m_groups.front().get())
        return;
    const std::int32_t pid = group->running().pid;
    std::erase_if(m_groups, [group](const auto& known) { return known.get() == group; });
    tell(WorkspaceNotification::DidTerminateApplication, pid);
}

ApplicationRegistry::Group* ApplicationRegistry::groupOf(xcb_window_t id)
{
    return m_groupOfWindow.value(id, nullptr);
}

ApplicationRegistry::Group* ApplicationRegistry::groupWithPid(std::int32_t pid)
{
    const auto it = std::ranges::find_if(
        m_groups, [pid](const auto& group) { return group->running().pid == pid; });
    return it == m_groups.end() ? nullptr : it->get();
}

// The tracker knows windows before its listeners do; the result must not depend on that order.
void ApplicationRegistry::meetAll()
{
    for (const x11::TrackedWindowPtr& window : m_tracker.windows())
        meet(*window);
}

std::int32_t ApplicationRegistry::ownerPidOf(const x11::TrackedWindow& window)
{
    const std::lock_guard lock(m_mutex);
    return meet(window);
}

std::optional<RunningApplication> ApplicationRegistry::ownerOf(const x11::TrackedWindow& window)
{
    const std::lock_guard lock(m_mutex);
    meet(window);
    const Group* group = groupOf(window.id);
    return group ? std::optional(group->running()) : std::nullopt;
}

std::int32_t ApplicationRegistry::meet(const x11::TrackedWindow& window)
{
    if (!isApplicationWindow(window))
        return window.pid.value_or(0);
    if (const Group* group = groupOf(window.id))
        return group->running().pid;
    // Checked under our lock: if the tracker still has the window, we will be told of its removal
    // later.
    if (!m_tracker.window(window.id))
        return window.pid.value_or(0);
    return insert(window, identify(window)).running().pid;
}

Application ApplicationRegistry::snapshot(const Group& group) const
{
    return {.running = group.running(),
            .isRegular = group.isRegular(),
            .isHidden = group.isHidden(m_clock()),
            .windows = group.windows()};
}

std::optional<Application> ApplicationRegistry::dockApplication() const
{
    if (m_dockPid == 0)
        return std::nullopt;
    return Application{.running = {.pid = m_dockPid,
                                   .bundleIdentifier = u"com.apple.dock"_s,
                                   .localizedName = u"Dock"_s,
                                   .bundleURL = QUrl(u"file:///.application/dock"_s),
                                   .executableURL = {}},
                       .isRegular = false,
                       .isHidden = false,
                       .windows = {}};
}

std::vector<Application> ApplicationRegistry::applications()
{
    const std::lock_guard lock(m_mutex);
    meetAll();
    std::vector<Application> result;
    if (auto dock = dockApplication())
        result.push_back(std::move(*dock));
    for (const auto& group : m_groups)
        result.push_back(snapshot(*group));
    return result;
}

std::optional<Application> ApplicationRegistry::application(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    if (pid == m_dockPid)
        return dockApplication();
    const Group* group = groupWithPid(pid);
    if (!group) {
        meetAll();
        group = groupWithPid(pid);
    }
    return group ? std::optional(snapshot(*group)) : std::nullopt;
}

std::optional<Application> ApplicationRegistry::applicationForDesktopFile(const QString& path)
{
    const DesktopEntryPtr entry = m_entries.byPath(path);
    QStringList keys;
    if (entry) {
        keys << u"entry:"_s + entry->id;
        for (const DesktopEntryPtr& other : {m_entries.byExecutable(entry->executable()),
                                             m_entries.byStartupWmClass(entry->startupWmClass)})
            if (other && !areParts(*entry, *other))
                keys << u"entry:"_s + other->id;
        // Windows that were grouped before the entry was known.
        for (const QString& name : {entry->startupWmClass, entry->executable(), entry->id})
            keys << u"class:"_s + name.toLower();
    }
    const QUrl url = QUrl::fromLocalFile(path);
    const std::lock_guard lock(m_mutex);
    for (const auto& group : m_groups)
        if (group->running().bundleURL == url)
            return snapshot(*group);
    for (const QString& key : keys) {
        for (const auto& group : m_groups)
            if (group->key() == key)
                return snapshot(*group);
    }
    return std::nullopt;
}

std::int32_t ApplicationRegistry::dockPid() const
{
    const std::lock_guard lock(m_mutex);
    return m_dockPid;
}

void ApplicationRegistry::setDock(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    m_runningDock = pid;
    changeDock(pid != 0 ? pid : m_dockStandIn);
}

void ApplicationRegistry::setDockStandIn(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    m_dockStandIn = pid;
    changeDock(m_runningDock != 0 ? m_runningDock : pid);
}

void ApplicationRegistry::changeDock(std::int32_t pid)
{
    if (pid == m_dockPid)
        return;
    if (m_dockPid != 0)
        tell(WorkspaceNotification::DidTerminateApplication, m_dockPid);
    // A window of the dock program (its preferences) may have appeared first and taken the process
    // id.
    Group* group = pid != 0 ? groupWithPid(pid) : nullptr;
    if (group && group != m_groups.front().get()) {
        tell(WorkspaceNotification::DidTerminateApplication, pid);
        group->setPid(m_nextSyntheticPid++);
        tell(WorkspaceNotification::DidLaunchApplication, group->running().pid);
    }
    m_dockPid = pid;
    if (pid != 0)
        tell(WorkspaceNotification::DidLaunchApplication, pid);
}

void ApplicationRegistry::markHidden(std::int32_t pid, const std::vector<xcb_window_t>& windows)
{
    const std::lock_guard lock(m_mutex);
    if (Group* group = groupWithPid(pid))
        group->markHidden(windows, m_clock());
}

std::vector<xcb_window_t> ApplicationRegistry::takeHidden(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    Group* group = groupWithPid(pid);
    return group ? group->takeHidden(m_clock()) : std::vector<xcb_window_t>();
}

void ApplicationRegistry::windowAdded(const x11::TrackedWindowPtr& window) { ownerPidOf(*window); }

void ApplicationRegistry::windowChanged(const x11::TrackedWindowPtr& before,
                                        const x11::TrackedWindowPtr& after)
{
    const std::lock_guard lock(m_mutex);
    if (!isSameOwner(*before, *after)) {
        remove(after->id);
        meet(*after);
        return;
    }
    if (Group* group = groupOf(after->id))
        group->update(after->id, after->skipTaskbar, after->isIconic);
}

void ApplicationRegistry::windowRemoved(const x11::TrackedWindowPtr& last)
{
    const std::lock_guard lock(m_mutex);
    remove(last->id);
}

void ApplicationRegistry::activeWindowChanged(xcb_window_t window)
{
    const std::lock_guard lock(m_mutex);
    const Group* group = groupOf(window);
    const std::int32_t pid = group ? group->running().pid : 0;
    if (pid == m_activePid)
        return;
    m_activePid = pid;
    if (pid != 0)
        tell(WorkspaceNotification::DidActivateApplication, pid);
}

void ApplicationRegistry::currentDesktopChanged(int)
{
    const std::lock_guard lock(m_mutex);
    tell(WorkspaceNotification::ActiveSpaceDidChange, 0);
}

} // namespace lumbrix::platform
