// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ApplicationRegistry.h"

#include <QtCore/QFileInfo>

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

// How long windows may take to become iconic before hiding counts as refused.
constexpr double HideGrace = 1.0;

QUrl bundleUrl(const DesktopEntryPtr& entry, const QString& key)
{
    if (entry) {
        return QUrl::fromLocalFile(entry->path);
    }
    // A file URL, because callers compare paths; no such file exists.
    QString name = key;
    name.replace(u'/', u'_');
    return QUrl::fromLocalFile(QStringLiteral("/.application/") + name);
}

} // namespace

bool isApplicationWindow(const x11::TrackedWindow& window)
{
    switch (window.type) {
    case x11::WindowType::Normal:
    case x11::WindowType::Dialog:
    case x11::WindowType::Utility:
    case x11::WindowType::Toolbar:
    case x11::WindowType::Splash:
        return true;
    case x11::WindowType::Dock:
    case x11::WindowType::Desktop:
    case x11::WindowType::Other:
        break;
    }
    return false;
}

ApplicationRegistry::Window* ApplicationRegistry::Group::find(xcb_window_t id)
{
    const auto it =
        std::ranges::find_if(windows, [id](const auto& window) { return window.first == id; });
    return it == windows.end() ? nullptr : &it->second;
}

bool ApplicationRegistry::Group::isRegular() const
{
    return std::ranges::any_of(windows,
                               [](const auto& window) { return !window.second.skipTaskbar; });
}

bool ApplicationRegistry::Group::isHidden(double now) const
{
    bool any = false;
    for (const auto& [id, window] : windows) {
        if (!window.wasHidden) {
            continue;
        }
        any = true;
        const bool underWay = !window.wasIconicSinceHidden && now - hiddenAt < HideGrace;
        if (!window.isIconic && !underWay) {
            return false;
        }
    }
    return any;
}

ApplicationRegistry::ApplicationRegistry(x11::WindowTracker& tracker, DesktopEntries& entries,
                                         ProcessReader reader, Own own, Clock clock)
    : m_tracker(tracker), m_entries(entries), m_reader(std::move(reader)), m_own(std::move(own)),
      m_clock(std::move(clock))
{
    auto group = std::make_unique<Group>();
    group->key = QStringLiteral("own");
    const DesktopEntryPtr entry = m_entries.byId(m_own.bundleIdentifier);
    group->running = {.pid = m_own.pid,
                      .bundleIdentifier = m_own.bundleIdentifier,
                      .localizedName = entry ? entry->name : QStringLiteral("Lumbrix"),
                      .bundleURL = bundleUrl(entry, m_own.bundleIdentifier),
                      .executableURL = QUrl::fromLocalFile(m_reader(m_own.pid).executablePath)};
    m_groups.push_back(std::move(group));
}

void ApplicationRegistry::setSink(Sink sink) { m_sink = std::move(sink); }

void ApplicationRegistry::tell(WorkspaceNotification notification, std::int32_t pid)
{
    if (m_sink) {
        m_sink(notification, pid);
    }
}

DesktopEntryPtr ApplicationRegistry::entryFor(const x11::TrackedWindow& window,
                                              const ProcessNames& names)
{
    // The instance first: web applications of one browser differ only there.
    for (const QString& half : {window.classInstance, window.className}) {
        if (DesktopEntryPtr entry = m_entries.byStartupWmClass(half)) {
            return entry;
        }
    }
    for (const QString& half : {window.className, window.classInstance}) {
        if (DesktopEntryPtr entry = m_entries.byApplicationId(half)) {
            return entry;
        }
    }
    for (const QString& program : names.programs()) {
        if (DesktopEntryPtr entry = m_entries.byExecutable(program)) {
            return entry;
        }
    }
    return m_entries.byExecutable(window.classInstance);
}

ApplicationRegistry::Identity ApplicationRegistry::identify(const x11::TrackedWindow& window)
{
    Identity identity;
    if (window.pid && *window.pid == m_own.pid) {
        identity.key = m_groups.front()->key;
        return identity;
    }
    const ProcessNames names = window.pid ? m_reader(*window.pid) : ProcessNames();
    identity.executablePath = names.executablePath;
    identity.className = window.className.isEmpty() ? window.classInstance : window.className;
    identity.entry = entryFor(window, names);
    if (identity.entry) {
        identity.key = QStringLiteral("entry:") + identity.entry->id;
    } else if (!identity.className.isEmpty()) {
        identity.key = QStringLiteral("class:") + identity.className.toLower();
    } else if (!identity.executablePath.isEmpty()) {
        identity.key = QStringLiteral("program:") + identity.executablePath;
    } else {
        identity.key = QStringLiteral("window:%1").arg(window.id);
    }
    return identity;
}

bool ApplicationRegistry::isPidFree(std::int32_t pid) const
{
    return pid > 0 && pid != m_dockPid && std::ranges::none_of(m_groups, [pid](const auto& group) {
               return group->running.pid == pid;
           });
}

std::int32_t ApplicationRegistry::pidFor(const x11::TrackedWindow& window)
{
    return window.pid && isPidFree(*window.pid) ? *window.pid : m_nextSyntheticPid++;
}

ApplicationRegistry::Group& ApplicationRegistry::insert(const x11::TrackedWindow& window,
                                                        Identity identity)
{
    Group* group = nullptr;
    // A dialog that says nothing of itself belongs where its parent belongs.
    if (!identity.entry && identity.className.isEmpty() && window.transientFor != XCB_NONE) {
        group = groupOf(window.transientFor);
    }
    for (const auto& known : m_groups) {
        if (group == nullptr && known->key == identity.key) {
            group = known.get();
        }
    }
    const bool isNew = group == nullptr;
    if (isNew) {
        m_groups.push_back(std::make_unique<Group>());
        group = m_groups.back().get();
        group->key = identity.key;
        const QString program = QFileInfo(identity.executablePath).fileName();
        QString name = identity.entry ? identity.entry->name : identity.className;
        if (name.isEmpty()) {
            name = program.isEmpty() ? QStringLiteral("window") : program;
        }
        group->running = {.pid = pidFor(window),
                          .bundleIdentifier = identity.entry ? identity.entry->id : name,
                          .localizedName = name,
                          .bundleURL = bundleUrl(identity.entry, identity.key),
                          .executableURL = identity.executablePath.isEmpty()
                                               ? QUrl()
                                               : QUrl::fromLocalFile(identity.executablePath)};
    }
    group->windows.emplace_back(
        window.id, Window{.skipTaskbar = window.skipTaskbar, .isIconic = window.isIconic});
    m_groupOfWindow.insert(window.id, group);
    if (isNew) {
        tell(WorkspaceNotification::DidLaunchApplication, group->running.pid);
    }
    return *group;
}

void ApplicationRegistry::remove(xcb_window_t id)
{
    Group* group = m_groupOfWindow.take(id);
    if (group == nullptr) {
        return;
    }
    std::erase_if(group->windows, [id](const auto& window) { return window.first == id; });
    if (!group->windows.empty() || group == m_groups.front().get()) {
        return;
    }
    const std::int32_t pid = group->running.pid;
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
        m_groups, [pid](const auto& group) { return group->running.pid == pid; });
    return it == m_groups.end() ? nullptr : it->get();
}

// The tracker knows windows before its listeners do; an answer must not depend on who is faster.
void ApplicationRegistry::meetAll()
{
    for (const x11::TrackedWindowPtr& window : m_tracker.windows()) {
        meet(*window);
    }
}

std::int32_t ApplicationRegistry::ownerPidOf(const x11::TrackedWindow& window)
{
    const std::lock_guard lock(m_mutex);
    return meet(window);
}

std::int32_t ApplicationRegistry::meet(const x11::TrackedWindow& window)
{
    if (!isApplicationWindow(window)) {
        return window.pid.value_or(0);
    }
    if (const Group* group = groupOf(window.id)) {
        return group->running.pid;
    }
    // Asked under our lock: if the tracker still has it, its removal is yet to be told to us.
    if (!m_tracker.window(window.id)) {
        return window.pid.value_or(0);
    }
    return insert(window, identify(window)).running.pid;
}

Application ApplicationRegistry::snapshot(const Group& group) const
{
    Application result{.running = group.running,
                       .isRegular = group.isRegular(),
                       .isHidden = group.isHidden(m_clock()),
                       .windows = {}};
    for (const auto& [id, window] : group.windows) {
        result.windows.push_back(id);
    }
    return result;
}

std::optional<Application> ApplicationRegistry::dockApplication() const
{
    if (m_dockPid == 0) {
        return std::nullopt;
    }
    return Application{.running = {.pid = m_dockPid,
                                   .bundleIdentifier = QStringLiteral("com.apple.dock"),
                                   .localizedName = QStringLiteral("Dock"),
                                   .bundleURL = QUrl(QStringLiteral("file:///.application/dock")),
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
    if (auto dock = dockApplication()) {
        result.push_back(std::move(*dock));
    }
    for (const auto& group : m_groups) {
        result.push_back(snapshot(*group));
    }
    return result;
}

std::optional<Application> ApplicationRegistry::application(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    if (pid == m_dockPid) {
        return dockApplication();
    }
    const Group* group = groupWithPid(pid);
    if (group == nullptr) {
        meetAll();
        group = groupWithPid(pid);
    }
    return group != nullptr ? std::optional(snapshot(*group)) : std::nullopt;
}

std::optional<Application> ApplicationRegistry::applicationForDesktopFile(const QString& path)
{
    const DesktopEntryPtr entry = m_entries.byPath(path);
    QStringList keys;
    if (entry) {
        keys << QStringLiteral("entry:") + entry->id;
        for (const DesktopEntryPtr& other : {m_entries.byExecutable(entry->executable()),
                                             m_entries.byStartupWmClass(entry->startupWmClass)}) {
            if (other) {
                keys << QStringLiteral("entry:") + other->id;
            }
        }
        if (!entry->startupWmClass.isEmpty()) {
            keys << QStringLiteral("class:") + entry->startupWmClass.toLower();
        }
    }
    const QUrl url = QUrl::fromLocalFile(path);
    const std::lock_guard lock(m_mutex);
    for (const auto& group : m_groups) {
        if (group->running.bundleURL == url) {
            return snapshot(*group);
        }
    }
    for (const QString& key : keys) {
        for (const auto& group : m_groups) {
            if (group->key == key) {
                return snapshot(*group);
            }
        }
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
    if (pid == m_dockPid) {
        return;
    }
    if (m_dockPid != 0) {
        tell(WorkspaceNotification::DidTerminateApplication, m_dockPid);
    }
    // A window of the dock program (its preferences) may have come first and taken the number.
    Group* group = pid != 0 ? groupWithPid(pid) : nullptr;
    if (group != nullptr && group != m_groups.front().get()) {
        tell(WorkspaceNotification::DidTerminateApplication, pid);
        group->running.pid = m_nextSyntheticPid++;
        tell(WorkspaceNotification::DidLaunchApplication, group->running.pid);
    }
    m_dockPid = pid;
    if (pid != 0) {
        tell(WorkspaceNotification::DidLaunchApplication, pid);
    }
}

void ApplicationRegistry::markHidden(std::int32_t pid, const std::vector<xcb_window_t>& windows)
{
    const std::lock_guard lock(m_mutex);
    Group* group = groupWithPid(pid);
    if (group == nullptr) {
        return;
    }
    group->hiddenAt = m_clock();
    for (auto& [id, window] : group->windows) {
        window.wasHidden = std::ranges::find(windows, id) != windows.end();
        window.wasIconicSinceHidden = false;
    }
}

std::vector<xcb_window_t> ApplicationRegistry::takeHidden(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    std::vector<xcb_window_t> result;
    Group* group = groupWithPid(pid);
    if (group == nullptr) {
        return result;
    }
    const bool wasHidden = group->isHidden(m_clock());
    for (auto& [id, window] : group->windows) {
        if (wasHidden && window.wasHidden) {
            result.push_back(id);
        }
        window.wasHidden = false;
    }
    return result;
}

void ApplicationRegistry::windowAdded(const x11::TrackedWindowPtr& window) { ownerPidOf(*window); }

void ApplicationRegistry::windowChanged(const x11::TrackedWindowPtr& before,
                                        const x11::TrackedWindowPtr& after)
{
    const std::lock_guard lock(m_mutex);
    const bool sameOwner =
        before->className == after->className && before->classInstance == after->classInstance &&
        before->pid == after->pid && isApplicationWindow(*before) == isApplicationWindow(*after);
    if (!sameOwner) {
        remove(after->id);
        meet(*after);
        return;
    }
    Group* group = groupOf(after->id);
    Window* window = group != nullptr ? group->find(after->id) : nullptr;
    if (window == nullptr) {
        return;
    }
    window->skipTaskbar = after->skipTaskbar;
    window->isIconic = after->isIconic;
    window->wasIconicSinceHidden |= after->isIconic;
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
    const std::int32_t pid = group != nullptr ? group->running.pid : 0;
    if (pid == m_activePid) {
        return;
    }
    m_activePid = pid;
    if (pid != 0) {
        tell(WorkspaceNotification::DidActivateApplication, pid);
    }
}

void ApplicationRegistry::currentDesktopChanged(int)
{
    const std::lock_guard lock(m_mutex);
    tell(WorkspaceNotification::ActiveSpaceDidChange, 0);
}

} // namespace lumbrix::platform
