// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The running applications, and operations on a whole application.
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
    QUrl bundleURL;     ///< compared with a Dock item's "AXURL"
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
    ActiveSpaceDidChange, ///< the pid is 0, as in the notifications below
    SystemUIModeDidChange,
    /// The Dock's items have changed or moved, or are now hidden or shown. Not sent on every
    /// platform.
    DockItemsDidChange,
    /// Screens were added, removed or moved, or another one is the main screen: coordinates have a
    /// new meaning.
    ScreensDidChange,
};

/// Ends the subscription when destroyed. Main thread.
class WorkspaceSubscription
{
public:
    virtual ~WorkspaceSubscription() = default;
};

/// Queries: any thread. Commands return at once if the platform allows it; failures are silent.
class Workspace
{
public:
    using Observer = std::function<void(std::int32_t pid)>;

    virtual ~Workspace() = default;

    /// All running applications, including background ones, the Dock and this program.
    virtual std::vector<RunningApplication> runningApplications() = 0;
    /// The process ids of the regular applications, which are those shown in a Dock.
    virtual std::vector<std::int32_t> launchedApplications() = 0;
    virtual std::optional<RunningApplication> runningApplication(std::int32_t pid) = 0;
    /// The role of the application with this bundle URL, running or not.
    virtual ApplicationRole roleOfApplication(const QUrl& bundleURL) = 0;
    /// This program's own bundle identifier.
    virtual QString ownBundleIdentifier() = 0;

    /// The display name of the application with this identifier, running or not; null if it is not
    /// known.
    virtual QString applicationName(const QString& bundleIdentifier) = 0;
    /// Its icon, fitted into a square with sides of `pixels`; null if it has none that can be read.
    /// Reads files, so do not call it on the main thread.
    virtual QImage applicationIcon(const QString& bundleIdentifier, int pixels) = 0;

    virtual bool isHidden(std::int32_t pid) = 0;
    virtual void hide(std::int32_t pid) = 0;
    virtual void activate(std::int32_t pid, std::uint32_t options) = 0;
    virtual void terminate(std::int32_t pid) = 0;
    /// By application name or by executable.
    virtual bool launchApplication(const QString& name) = 0;
    /// By its bundle or its executable; an application that is already running comes forward. An
    /// executable shared by several applications, such as an interpreter, matches none of them.
    virtual bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) = 0;

    /// 0 = normal; other values while an application is full screen on the screen with the Dock.
    virtual std::uint32_t systemUIMode() = 0;

    /// Called on the main thread, in the order things happened. Main thread.
    [[nodiscard]] virtual std::unique_ptr<WorkspaceSubscription>
    observe(WorkspaceNotification notification, Observer observer) = 0;
};

} // namespace lumbrix::platform
