// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The running applications of an X11 desktop, and operations on a whole application.
#pragma once

#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/IconTheme.h"
#include "platform/linux/applications/SystemUIMode.h"
#include "platform/linux/applications/WindowRaiser.h"

namespace lumbrix::platform
{

/// Hiding an application makes all its windows iconic together.
class LinuxWorkspace final : public Workspace, public x11::WindowListener
{
public:
    /// Must be called before the event thread starts. Registers for the events of the registry and
    /// the mode.
    LinuxWorkspace(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                   DesktopEntries& entries, WindowRaiser& raiser, SystemUIMode& uiMode);
    ~LinuxWorkspace() override;

    std::vector<RunningApplication> runningApplications() override;
    std::vector<std::int32_t> launchedApplications() override;
    std::optional<RunningApplication> runningApplication(std::int32_t pid) override;
    ApplicationRole roleOfApplication(const QUrl& bundleURL) override;
    QString ownBundleIdentifier() override;
    QString applicationName(const QString& bundleIdentifier) override;
    QImage applicationIcon(const QString& bundleIdentifier, int pixels) override;

    bool isHidden(std::int32_t pid) override;
    void hide(std::int32_t pid) override;
    void unhide(std::int32_t pid);
    std::uint32_t systemUIMode() override { return m_uiMode.mode(); }
    /// Tells the observers, in a later pass of the main loop. Any thread.
    void tell(WorkspaceNotification notification, std::int32_t pid);
    void activate(std::int32_t pid, std::uint32_t options) override;
    void terminate(std::int32_t pid) override;
    bool launchApplication(const QString& name) override;
    bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) override;

    [[nodiscard]] std::unique_ptr<WorkspaceSubscription> observe(WorkspaceNotification notification,
                                                                 Observer observer) override;

    void screensChanged() override { tell(WorkspaceNotification::ScreensDidChange, 0); }

private:
    class Subscribers;
    class Subscription;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    DesktopEntries& m_entries;
    WindowRaiser& m_raiser;
    SystemUIMode& m_uiMode;
    IconTheme m_icons;
    const std::shared_ptr<Subscribers> m_subscribers;
};

} // namespace lumbrix::platform
