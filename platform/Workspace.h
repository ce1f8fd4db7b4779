// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which applications run, and what can be done with a whole application.
#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QImage>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace lumbrix::platform
{

/// What an application is to its user, where a platform has other programs of the kind than those
/// that the rules know by their own identifiers. Every standard window of a music player is its
/// main window, whatever its title says.
enum class ApplicationRole {
    Other,
    MusicPlayer,
    MoviePlayer,
    VLC,
    Mail,
    Calendar,
    PasswordManager, ///< or what else shows secrets for a living
};

/// A snapshot; pid identifies the application.
struct RunningApplication {
    std::int32_t pid = 0;
    QString bundleIdentifier;
    QString localizedName;
    QUrl bundleURL;     ///< what a Dock item's "AXURL" is compared with
    QUrl executableURL; ///< may be empty
    ApplicationRole role = ApplicationRole::Other;
};

/// Activation options, as bits.
inline constexpr std::uint32_t activateIgnoringOtherApps = 2;

/// Options of launchApplication, as bits.
namespace LaunchOption
{
inline constexpr std::uint32_t withoutAddingToRecents = 0x00100;
inline constexpr std::uint32_t async = 0x10000;
inline constexpr std::uint32_t allowingClassicStartup = 0x20000;
} // namespace LaunchOption

enum class WorkspaceNotification {
    DidLaunchApplication,
    DidTerminateApplication,
    DidActivateApplication,
    ActiveSpaceDidChange, ///< the pid is 0, as in what follows
    SystemUIModeDidChange,
    /// The Dock has other items, in other places, or hides them. Not told on every platform.
    DockItemsDidChange,
    /// There are other screens, in other places, or another one is the main one: all coordinates
    /// mean something else.
    ScreensDidChange,
    /// The computer goes to sleep, after which the screen may be locked. Not told on every
    /// platform.
    WillSleep,
};

/// Ends the subscription when destroyed. Main thread.
class WorkspaceSubscription
{
public:
    virtual ~WorkspaceSubscription() = default;
};

/// Queries: any thread. Commands return at once where the platform allows; failures are silent.
class Workspace
{
public:
    using Observer = std::function<void(std::int32_t pid)>;

    virtual ~Workspace() = default;

    /// Every running application, background ones, the Dock and this program included.
    virtual std::vector<RunningApplication> runningApplications() = 0;
    /// The process ids of the regular applications, those that show in a Dock.
    virtual std::vector<std::int32_t> launchedApplications() = 0;
    virtual std::optional<RunningApplication> runningApplication(std::int32_t pid) = 0;
    /// The role of the application with this bundle URL, whether it runs or not.
    virtual ApplicationRole roleOfApplication(const QUrl& bundleURL) = 0;
    /// This program's own bundle identifier.
    virtual QString ownBundleIdentifier() = 0;

    /// What people call the application with this identifier, whether it runs or not; null when
    /// nothing is known of it.
    virtual QString applicationName(const QString& bundleIdentifier) = 0;
    /// Its icon, fitted into a square of so many pixels; null when it has none that can be read.
    /// Reads files, so not for the main thread.
    virtual QImage applicationIcon(const QString& bundleIdentifier, int pixels) = 0;

    virtual bool isHidden(std::int32_t pid) = 0;
    virtual void hide(std::int32_t pid) = 0;
    virtual void activate(std::int32_t pid, std::uint32_t options) = 0;
    virtual void terminate(std::int32_t pid) = 0;
    /// By application name or by executable.
    virtual bool launchApplication(const QString& name) = 0;
    /// By its bundle or its executable; one that runs already comes forward. An executable that
    /// several applications run from, such as an interpreter, stands for none of them.
    virtual bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) = 0;

    /// 0 = normal; anything else while an application has the screen with the Dock for itself.
    virtual std::uint32_t systemUIMode() = 0;

    /// Called on the main thread, in the order things happened. Main thread.
    [[nodiscard]] virtual std::unique_ptr<WorkspaceSubscription>
    observe(WorkspaceNotification notification, Observer observer) = 0;
};

} // namespace lumbrix::platform
