// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The applications of the simulated desktop, as the program sees and commands them.
#pragma once

#include <algorithm>

#include "tests/support/SimulatedState.h"

namespace lumbrix::test
{

class SimulatedWorkspace final : public platform::Workspace
{
public:
    explicit SimulatedWorkspace(SimulatedState& state) : m_state(state) {}

    std::vector<platform::RunningApplication> runningApplications() override
    {
        const auto state = m_state.locked();
        std::vector<platform::RunningApplication> applications;
        std::ranges::transform(state->applications, std::back_inserter(applications), snapshot);
        return applications;
    }
    std::vector<std::int32_t> launchedApplications() override
    {
        const auto state = m_state.locked();
        std::vector<std::int32_t> pids;
        for (const SimulatedApplication& application : state->applications)
            if (application.isRegular)
                pids.push_back(application.pid);
        return pids;
    }
    std::optional<platform::RunningApplication> runningApplication(std::int32_t pid) override
    {
        const auto state = m_state.locked();
        const SimulatedApplication* application = state->application(pid);
        return application ? std::optional(snapshot(*application)) : std::nullopt;
    }
    platform::ApplicationRole roleOfApplication(const QUrl& bundleURL) override
    {
        const auto state = m_state.locked();
        const SimulatedApplication* application =
            known(bundleURL, &SimulatedApplication::bundleURL);
        return application ? application->role : platform::ApplicationRole::Other;
    }
    QString ownBundleIdentifier() override
    {
        const auto state = m_state.locked();
        const SimulatedApplication* self = state->application(state->ownPid);
        return self ? self->bundleIdentifier : QString();
    }
    QString applicationName(const QString& bundleIdentifier) override
    {
        const auto state = m_state.locked();
        const auto* found = known(bundleIdentifier, &SimulatedApplication::bundleIdentifier);
        return found ? found->name : QString();
    }
    /// One colour all over, as the application has it.
    QImage applicationIcon(const QString& bundleIdentifier, int pixels) override
    {
        const auto state = m_state.locked();
        const auto* found = known(bundleIdentifier, &SimulatedApplication::bundleIdentifier);
        if (!found || !found->iconColor.isValid())
            return {};
        QImage icon(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        icon.fill(found->iconColor);
        return icon;
    }
    bool isHidden(std::int32_t pid) override
    {
        const auto state = m_state.locked();
        const SimulatedApplication* application = state->application(pid);
        return application && application->isHidden;
    }
    void hide(std::int32_t pid) override
    {
        const auto state = m_state.locked();
        state->commands.push_back(u"hide %1"_s.arg(pid));
        state->setHidden(pid, true);
    }
    void activate(std::int32_t pid, std::uint32_t options) override
    {
        const auto state = m_state.locked();
        state->commands.push_back(u"activate %1 %2"_s.arg(pid).arg(options));
        state->activate(pid);
    }
    void terminate(std::int32_t pid) override
    {
        const auto state = m_state.locked();
        state->commands.push_back(u"terminate %1"_s.arg(pid));
        state->quit(pid);
    }
    bool launchApplication(const QString& name) override
    {
        return launch(name, [&](const SimulatedApplication& each) {
            return each.name == name || each.executableURL.fileName() == name;
        });
    }
    bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) override
    {
        return launch(u"%1 0x%2"_s.arg(url.toString()).arg(options, 0, 16),
                      [&](const SimulatedApplication& each) {
                          return each.bundleURL == url || each.executableURL == url;
                      });
    }
    std::uint32_t systemUIMode() override { return m_state.locked()->systemUIMode; }
    std::unique_ptr<platform::WorkspaceSubscription>
    observe(platform::WorkspaceNotification notification, Observer observer) override
    {
        using Registration =
            SimulatedState::Registration<platform::WorkspaceSubscription, SimulatedSubscription>;
        return std::make_unique<Registration>(
            m_state, m_state.subscriptions,
            SimulatedSubscription{notification, std::move(observer)});
    }

private:
    static platform::RunningApplication snapshot(const SimulatedApplication& application)
    {
        return {application.pid,       application.bundleIdentifier, application.name,
                application.bundleURL, application.executableURL,    application.role};
    }
    /// Running or installed; null when it is neither. The lock is held.
    template <class Field>
    const SimulatedApplication* known(const Field& value, Field SimulatedApplication::*field) const
    {
        for (const auto* list : {&m_state.applications, &m_state.installed})
            if (const auto found = std::ranges::find(*list, value, field); found != list->end())
                return &*found;
        return nullptr;
    }
    /// Brings one to the front that runs, or is installed; whether there is one.
    template <class Wanted> bool launch(const QString& what, Wanted isWanted)
    {
        const auto state = m_state.locked();
        state->commands.push_back(u"launch "_s + what);
        if (const auto found = std::ranges::find_if(state->applications, isWanted);
            found != state->applications.end()) {
            state->activate(found->pid);
            return true;
        }
        const auto found = std::ranges::find_if(state->installed, isWanted);
        if (found == state->installed.end())
            return false;
        state->activate(state->launch(SimulatedApplication(*found)));
        return true;
    }

    SimulatedState& m_state;
};

} // namespace lumbrix::test
