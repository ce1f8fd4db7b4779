// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "platform/StringLiterals.h"
#include "tests/support/SimulatedPorts.h"

namespace lumbrix::test
{

using platform::RunningApplication;

namespace
{

RunningApplication snapshot(const SimulatedApplication& application)
{
    return {application.pid,       application.bundleIdentifier, application.name,
            application.bundleURL, application.executableURL,    application.role};
}

} // namespace

std::vector<RunningApplication> SimulatedWorkspace::runningApplications()
{
    const std::lock_guard lock(m_state.mutex);
    std::vector<RunningApplication> applications;
    std::transform(m_state.applications.begin(), m_state.applications.end(),
                   std::back_inserter(applications), snapshot);
    return applications;
}

std::vector<std::int32_t> SimulatedWorkspace::launchedApplications()
{
    const std::lock_guard lock(m_state.mutex);
    std::vector<std::int32_t> pids;
    for (const SimulatedApplication& application : m_state.applications)
        if (application.isRegular)
            pids.push_back(application.pid);
    return pids;
}

std::optional<RunningApplication> SimulatedWorkspace::runningApplication(std::int32_t pid)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* application = m_state.application(pid);
    return application ? std::optional(snapshot(*application)) : std::nullopt;
}

platform::ApplicationRole SimulatedWorkspace::roleOfApplication(const QUrl& bundleURL)
{
    const std::lock_guard lock(m_state.mutex);
    for (const auto* applications : {&m_state.applications, &m_state.installed}) {
        for (const SimulatedApplication& application : *applications)
            if (application.bundleURL == bundleURL)
                return application.role;
    }
    return platform::ApplicationRole::Other;
}

QString SimulatedWorkspace::ownBundleIdentifier()
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* self = m_state.application(m_state.ownPid);
    return self ? self->bundleIdentifier : QString();
}

const SimulatedApplication* SimulatedWorkspace::known(const QString& bundleIdentifier) const
{
    for (const auto* list : {&m_state.applications, &m_state.installed}) {
        const auto found =
            std::ranges::find(*list, bundleIdentifier, &SimulatedApplication::bundleIdentifier);
        if (found != list->end())
            return &*found;
    }
    return nullptr;
}

QString SimulatedWorkspace::applicationName(const QString& bundleIdentifier)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* application = known(bundleIdentifier);
    return application ? application->name : QString();
}

QImage SimulatedWorkspace::applicationIcon(const QString& bundleIdentifier, int pixels)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* application = known(bundleIdentifier);
    if (!application || !application->iconColor.isValid())
        return {};
    QImage icon(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    icon.fill(application->iconColor);
    return icon;
}

bool SimulatedWorkspace::isHidden(std::int32_t pid)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* application = m_state.application(pid);
    return application && application->isHidden;
}

void SimulatedWorkspace::hide(std::int32_t pid)
{
    const std::lock_guard lock(m_state.mutex);
    m_state.commands.push_back(u"hide %1"_s.arg(pid));
    m_state.setHidden(pid, true);
}

void SimulatedWorkspace::activate(std::int32_t pid, std::uint32_t options)
{
    const std::lock_guard lock(m_state.mutex);
    m_state.commands.push_back(u"activate %1 %2"_s.arg(pid).arg(options));
    m_state.activate(pid);
}

void SimulatedWorkspace::terminate(std::int32_t pid)
{
    const std::lock_guard lock(m_state.mutex);
    m_state.commands.push_back(u"terminate %1"_s.arg(pid));
    m_state.quit(pid);
}

bool SimulatedWorkspace::launchApplication(const QString& name)
{
    const std::lock_guard lock(m_state.mutex);
    m_state.commands.push_back(u"launch "_s + name);
    return launchOrActivate([&](const SimulatedApplication& each) {
        return each.name == name || each.executableURL.fileName() == name;
    });
}

bool SimulatedWorkspace::launchApplicationAtURL(const QUrl& url, std::uint32_t options)
{
    const std::lock_guard lock(m_state.mutex);
    m_state.commands.push_back(u"launch %1 0x%2"_s.arg(url.toString()).arg(options, 0, 16));
    return launchOrActivate([&](const SimulatedApplication& each) {
        return each.bundleURL == url || each.executableURL == url;
    });
}

bool SimulatedWorkspace::launchOrActivate(
    const std::function<bool(const SimulatedApplication&)>& isWanted)
{
    const auto& running = m_state.applications;
    const auto found = std::find_if(running.begin(), running.end(), isWanted);
    if (found != running.end()) {
        m_state.activate(found->pid);
        return true;
    }
    const auto& installed = m_state.installed;
    const auto known = std::find_if(installed.begin(), installed.end(), isWanted);
    if (known == installed.end())
        return false;
    m_state.activate(m_state.launch(SimulatedApplication(*known)));
    return true;
}

std::unique_ptr<platform::WorkspaceSubscription>
SimulatedWorkspace::observe(platform::WorkspaceNotification notification, Observer observer)
{
    using Registration =
        SimulatedState::Registration<platform::WorkspaceSubscription, SimulatedSubscription>;
    return std::make_unique<Registration>(m_state, m_state.subscriptions,
                                          SimulatedSubscription{notification, std::move(observer)});
}

} // namespace lumbrix::test
