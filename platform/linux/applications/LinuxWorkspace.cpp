// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/LinuxWorkspace.h"

#include <QtGui/QIcon>

#include <algorithm>
#include <map>

#include "platform/linux/applications/ApplicationRoles.h"
#include "platform/linux/applications/IconFile.h"
#include "platform/linux/applications/Launcher.h"

namespace lumbrix::platform
{

/// Main thread only. Outlives the workspace while a notification or a subscription still refers to
/// it.
class LinuxWorkspace::Subscribers
{
public:
    struct Entry {
        WorkspaceNotification notification;
        Observer observer;
    };

    int add(Entry entry)
    {
        m_entries.emplace(++m_lastId, std::make_shared<Entry>(std::move(entry)));
        return m_lastId;
    }
    void remove(int id) { m_entries.erase(id); }
    void removeAll() { m_entries.clear(); }

    void notify(WorkspaceNotification notification, std::int32_t pid)
    {
        // An observer may end its own or another subscription.
        const auto entries = m_entries;
        for (const auto& [id, entry] : entries)
            if (entry->notification == notification && m_entries.contains(id))
                entry->observer(pid);
    }

private:
    std::map<int, std::shared_ptr<Entry>> m_entries;
    int m_lastId = 0;
};

class LinuxWorkspace::Subscription final : public WorkspaceSubscription
{
public:
    Subscription(std::weak_ptr<Subscribers> subscribers, int id)
        : m_subscribers(std::move(subscribers)), m_id(id)
    {
    }
    ~Subscription() override
    {
        if (const auto subscribers = m_subscribers.lock())
            subscribers->remove(m_id);
    }

private:
    const std::weak_ptr<Subscribers> m_subscribers;
    const int m_id;
};

LinuxWorkspace::LinuxWorkspace(RunLoop& runLoop, x11::WindowTracker& tracker,
                               ApplicationRegistry& registry, DesktopEntries& entries,
                               WindowRaiser& raiser, SystemUIMode& uiMode)
    : m_runLoop(runLoop), m_tracker(tracker), m_registry(registry), m_entries(entries),
      m_raiser(raiser), m_uiMode(uiMode), m_icons(IconTheme::defaultFolders(), QIcon::themeName()),
      m_subscribers(std::make_shared<Subscribers>())
{
    m_registry.setSink(
        [this](WorkspaceNotification notification, std::int32_t pid) { tell(notification, pid); });
    m_uiMode.setChanged([this] { tell(WorkspaceNotification::SystemUIModeDidChange, 0); });
}

void LinuxWorkspace::tell(WorkspaceNotification notification, std::int32_t pid)
{
    m_runLoop.performOnMainThread(
        [weak = std::weak_ptr(m_subscribers), notification, pid] {
            if (const auto subscribers = weak.lock())
                subscribers->notify(notification, pid);
        },
        false);
}

LinuxWorkspace::~LinuxWorkspace() { m_subscribers->removeAll(); }

std::vector<RunningApplication> LinuxWorkspace::runningApplications()
{
    std::vector<RunningApplication> result;
    for (Application& application : m_registry.applications())
        result.push_back(std::move(application.running));
    return result;
}

std::vector<std::int32_t> LinuxWorkspace::launchedApplications()
{
    std::vector<std::int32_t> result;
    for (const Application& application : m_registry.applications())
        if (application.isRegular)
            result.push_back(application.running.pid);
    return result;
}

std::optional<RunningApplication> LinuxWorkspace::runningApplication(std::int32_t pid)
{
    auto application = m_registry.application(pid);
    return application ? std::optional(std::move(application->running)) : std::nullopt;
}

ApplicationRole LinuxWorkspace::roleOfApplication(const QUrl& bundleURL)
{
    if (const DesktopEntryPtr entry = m_entries.byPath(bundleURL.toLocalFile()))
        return roleOfEntry(*entry);
    for (const Application& application : m_registry.applications())
        if (application.running.bundleURL == bundleURL)
            return application.running.role;
    return ApplicationRole::Other;
}

QString LinuxWorkspace::ownBundleIdentifier() { return m_registry.own().bundleIdentifier; }

QString LinuxWorkspace::applicationName(const QString& bundleIdentifier)
{
    if (const DesktopEntryPtr entry = m_entries.byId(bundleIdentifier))
        return entry->name;
    for (const Application& application : m_registry.applications())
        if (application.running.bundleIdentifier == bundleIdentifier)
            return application.running.localizedName;
    // An application without a desktop entry is named by the class of its windows.
    return bundleIdentifier;
}

QImage LinuxWorkspace::applicationIcon(const QString& bundleIdentifier, int pixels)
{
    const DesktopEntryPtr entry = m_entries.byId(bundleIdentifier);
    const QString path = entry ? m_icons.find(entry->icon, pixels) : QString();
    return path.isEmpty() ? QImage() : readIconFile(path, pixels);
}

bool LinuxWorkspace::isHidden(std::int32_t pid)
{
    const auto application = m_registry.application(pid);
    return application && application->isHidden;
}

void LinuxWorkspace::hide(std::int32_t pid)
{
    const auto application = m_registry.application(pid);
    if (!application || application->isHidden)
        return;
    std::vector<xcb_window_t> shown;
    for (const xcb_window_t id : application->windows) {
        const x11::TrackedWindowPtr window = m_tracker.window(id);
        if (window && !window->isIconic)
            shown.push_back(id);
    }
    m_registry.markHidden(pid, shown);
    for (const xcb_window_t id : shown)
        m_tracker.iconify(id);
}

void LinuxWorkspace::unhide(std::int32_t pid)
{
    for (const xcb_window_t id : m_registry.takeHidden(pid))
        m_tracker.deiconify(id);
}

void LinuxWorkspace::activate(std::int32_t pid, std::uint32_t) { m_raiser.activate(pid); }

void LinuxWorkspace::terminate(std::int32_t pid)
{
    const auto application = m_registry.application(pid);
    if (!application || pid == m_registry.own().pid || pid == m_registry.dockPid())
        return; // neither may be ended because its name resembles another
    for (const xcb_window_t id : application->windows)
        m_tracker.close(id);
}

bool LinuxWorkspace::launchApplication(const QString& name)
{
    return !name.isEmpty() && launchByName(m_entries, name);
}

bool LinuxWorkspace::launchApplicationAtURL(const QUrl& url, std::uint32_t)
{
    const auto applications = m_registry.applications();
    const auto running = [&](QUrl RunningApplication::*place) {
        std::vector<const Application*> found;
        for (const Application& application : applications)
            if (!url.isEmpty() && application.running.*place == url)
                found.push_back(&application);
        return found;
    };
    auto meant = running(&RunningApplication::bundleURL);
    if (meant.empty())
        meant = running(&RunningApplication::executableURL);
    // Several applications share the executable, as with an interpreter: choosing one could bring
    // the wrong program forward.
    if (meant.size() > 1)
        return false;
    // Starting the executable of a running application would often start a second instance, and for
    // a script only its interpreter.
    if (!meant.empty() && !meant.front()->windows.empty()) {
        m_raiser.activate(meant.front()->running.pid);
        return true;
    }
    if (launchUrl(m_entries, url))
        return true;
    // A running application without a desktop entry has a made-up URL.
    return !meant.empty() && !meant.front()->running.executableURL.isEmpty() &&
           launchExecutable(meant.front()->running.executableURL.toLocalFile());
}

std::unique_ptr<WorkspaceSubscription> LinuxWorkspace::observe(WorkspaceNotification notification,
                                                               Observer observer)
{
    const int id = m_subscribers->add({notification, std::move(observer)});
    return std::make_unique<Subscription>(m_subscribers, id);
}

} // namespace lumbrix::platform
