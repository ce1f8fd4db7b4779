// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/LinuxDesktop.h"

#include <QtDBus/QDBusConnection>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "platform/Log.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/ToolkitScale.h"
#include "platform/linux/accessibility/LinuxDockPreferences.h"
#include "platform/linux/accessibility/PlaceRequests.h"
#include "platform/linux/accessibility/X11Accessibility.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/applications/WindowRaiser.h"
#include "platform/linux/calendar/LinuxCalendarStore.h"
#include "platform/linux/defaults/IniDefaults.h"
#include "platform/linux/docks/DockModel.h"
#include "platform/linux/docks/DockTooltips.h"
#include "platform/linux/docks/PanelDock.h"
#include "platform/linux/docks/PlankDock.h"
#include "platform/linux/media/LinuxAppleEvents.h"
#include "platform/linux/session/AutostartItems.h"
#include "platform/linux/session/LinuxLook.h"
#include "platform/linux/session/LinuxPrivacy.h"
#include "platform/linux/session/PreviewsService.h"
#include "platform/linux/session/ProgramBundle.h"
#include "platform/linux/session/TrayWatcher.h"
#include "platform/linux/switcher/KWinSettings.h"
#include "platform/linux/switcher/SwitcherModel.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/ScreenWatch.h"
#include "platform/linux/x11/SentKey.h"
#include "platform/linux/x11/WindowPictures.h"
#include "platform/linux/x11/X11Core.h"
#include "platform/linux/x11/X11InputState.h"
#include "platform/linux/x11/X11WindowServer.h"
#include "platform/qt/QtWallClock.h"

namespace lumbrix::platform
{

namespace
{

class RegistryOwnerPids final : public x11::OwnerPids
{
public:
    explicit RegistryOwnerPids(ApplicationRegistry& registry) : m_registry(registry) {}
    std::int32_t ownerPidOf(const x11::TrackedWindow& window) const override
    {
        return m_registry.ownerPidOf(window);
    }

private:
    ApplicationRegistry& m_registry;
};

PlankInputAreas plankInputAreas(const x11::Connection& connection)
{
    if (!connection.extensions().shape.present)
        return nullptr;
    return [&connection](const std::vector<xcb_window_t>& windows) {
        return readInputAreas(connection.get(), windows);
    };
}

// In order of preference: a dock that reports its items comes before one whose buttons must be
// guessed.
DockModel::Providers makeDockProviders(RunLoop& runLoop, x11::X11Core& core,
                                       ApplicationRegistry& registry)
{
    DockModel::Providers providers;
    providers.push_back(std::make_unique<PlankDock>(runLoop, core.tracker(), registry,
                                                    QDBusConnection::sessionBus(),
                                                    plankInputAreas(core.connection())));
    providers.push_back(std::make_unique<PanelDock>(
        runLoop, core.tracker(), core.pointSpace(),
        std::make_unique<AccessibleButtons>(runLoop, core.tracker(), registry,
                                            QDBusConnection::sessionBus())));
    return providers;
}

/// At the start of a session the window manager may come later than we do.
constexpr Seconds timeForWindowManager = 5.0;

/// What a person should know who wonders why something is missing; once.
void say(const char* what) { std::fprintf(stderr, "lumbrix: %s\n", what); }

class LinuxDesktopImpl final : public LinuxDesktop
{
public:
    LinuxDesktopImpl(RunLoop& runLoop, const LinuxDesktopOptions& options,
                     std::unique_ptr<x11::X11Core> core)
        : m_runLoop(runLoop), m_core(std::move(core)),
          m_entries(DesktopEntries::defaultFolders(), localeSpellings(), clock(runLoop)),
          m_registry(m_core->tracker(), m_entries, readProcessNames,
                     {::getpid(), options.ownBundleIdentifier}, clock(runLoop)),
          m_raiser(m_core->tracker(), m_registry, clock(runLoop)),
          m_uiMode(m_core->tracker(),
                   [&space = m_core->pointSpace()] { return space.screens().front(); }),
          m_workspace(runLoop, m_core->tracker(), m_registry, m_entries, m_raiser, m_uiMode),
          m_docks(runLoop, m_core->tracker(), m_registry, m_entries,
                  makeDockProviders(runLoop, *m_core, m_registry)),
          m_tooltips(m_core->connection(), m_core->tracker(), ::getpid()),
          m_switcher(
              runLoop, m_core->tracker(), m_registry, &m_session,
              [this](x11::KeyHearing which) { m_core->hearKeys(which); },
              [this] {
                  return kwinLetsPreviewsBeSeen(configHome(), dataFolders(),
                                                m_core->screens().isCompositorRunning());
              }),
          m_dockPreferences(m_docks),
          m_accessibility({runLoop, m_core->tracker(), m_core->pointSpace(), m_registry,
                           m_workspace, m_raiser, m_docks, m_switcher}),
          m_requests({runLoop, m_core->tracker(), m_core->pointSpace(), m_registry, m_entries,
                      m_docks, [this] { return m_core->inputState().pointer(); }}),
          m_previews(m_requests, QDBusConnection::sessionBus()),
          m_privacy(m_entries, m_registry, m_core->pictures(), QDBusConnection::sessionBus()),
          m_look(runLoop, &m_core->theme(), QDBusConnection::sessionBus(), configHome()),
          m_defaults(IniDefaults::defaultPath()), m_loginItems(AutostartItems::defaultFolder()),
          m_tray(runLoop, m_core->trays(), QDBusConnection::sessionBus()),
          m_appleEvents(runLoop, QDBusConnection::sessionBus(), m_core->tracker(), m_registry,
                        [this](xcb_window_t window, const x11::Shortcut& shortcut) {
                            return x11::sendShortcut(m_core->connection(), window, shortcut);
                        }),
          m_calendarStore(runLoop, QDBusConnection::sessionBus(), IcalFolderPaths::defaults()),
          m_ownerPids(m_registry), m_ports{runLoop,
                                           m_accessibility,
                                           m_core->windowServer(),
                                           m_core->inputState(),
                                           m_workspace,
                                           m_defaults,
                                           m_dockPreferences,
                                           m_core->eventTaps(),
                                           m_core->keyboardLayout(),
                                           m_loginItems,
                                           m_bundle,
                                           m_tray,
                                           m_appleEvents,
                                           m_calendarStore,
                                           m_wallClock,
                                           m_requests,
                                           m_privacy,
                                           m_look}
    {
        m_core->windowServer().setOwnerPids(&m_ownerPids);
        for (x11::WindowListener* listener : std::initializer_list<x11::WindowListener*>{
                 m_accessibility.listenerBeforeRegistry(), &m_registry, &m_uiMode, &m_docks,
                 &m_requests, &m_tooltips, &m_workspace, &m_switcher,
                 m_accessibility.listenerAfterRegistry()})
            m_core->tracker().addListener(listener);
        m_docks.setPrefetch([this](const std::vector<xcb_window_t>& windows, bool isRowDue) {
            m_core->pictures().prefetch(windows, isRowDue);
        });
        m_docks.setChanged([this] { hintMainScreen(); });
        m_docks.setItemsChanged(
            [this] { m_workspace.tell(WorkspaceNotification::DockItemsDidChange, 0); });
        m_docks.start();
        hintMainScreen();
        m_uiMode.start();
        m_core->start();
        sayWhatIsMissing();
    }

    // Listeners must be destroyed after the thread that calls them.
    ~LinuxDesktopImpl() override
    {
        m_runLoop.cancelPreviousPerformRequests(this);
        m_core->stop();
        m_core->windowServer().setOwnerPids(nullptr);
    }

    const Desktop& ports() const override { return m_ports; }
    void stop() override { m_core->stop(); }

private:
    static std::function<double()> clock(RunLoop& runLoop)
    {
        return [&runLoop] { return runLoop.now(); };
    }

    void sayWhatIsMissing()
    {
        if (!m_session.isConnected())
            say("there is no session bus: Plank, media players, most trays and a second start of "
                "Lumbrix are not noticed");
        if (!m_core->connection().extensions().randr.present)
            say("the X server lacks the extension RANDR: all monitors count as one");
        m_runLoop.performAfterDelay(this, timeForWindowManager, [this] {
            if (!m_core->isWindowManagerRunning())
                say("there is no window manager: previews come as soon as there is one");
        });
    }

    // The main screen, where coordinates have their origin, is the one that holds the dock.
    void hintMainScreen()
    {
        const DockStatePtr dock = m_docks.firstDock();
        const QRect bounds =
            dock && !dock->windows.empty() ? dock->windows.front().bounds : QRect();
        if (bounds != m_hint && !bounds.isEmpty()) {
            m_hint = bounds;
            m_core->screens().setMainScreenHint(bounds);
        }
    }

    RunLoop& m_runLoop;
    const std::unique_ptr<x11::X11Core> m_core;
    DesktopEntries m_entries;
    ApplicationRegistry m_registry;
    WindowRaiser m_raiser;
    SystemUIMode m_uiMode;
    LinuxWorkspace m_workspace;
    DockModel m_docks;
    DockTooltips m_tooltips;
    const QDBusConnection m_session = QDBusConnection::sessionBus();
    SwitcherModel m_switcher;
    LinuxDockPreferences m_dockPreferences;
    X11Accessibility m_accessibility;
    PlaceRequests m_requests;
    PreviewsService m_previews;
    LinuxPrivacy m_privacy;
    LinuxLook m_look;
    IniDefaults m_defaults;
    AutostartItems m_loginItems;
    ProgramBundle m_bundle;
    TrayWatcher m_tray;
    LinuxAppleEvents m_appleEvents;
    LinuxCalendarStore m_calendarStore;
    QtWallClock m_wallClock;
    const RegistryOwnerPids m_ownerPids;
    const Desktop m_ports;
    QRect m_hint;
    const ToolkitScale m_scale{[this](double pixelsPerPoint) {
        m_core->setPixelsPerPoint(pixelsPerPoint);
        m_workspace.tell(WorkspaceNotification::DockItemsDidChange, 0); // in points they have
    }};
};

} // namespace

std::unique_ptr<LinuxDesktop>
LinuxDesktop::create(RunLoop& runLoop, const LinuxDesktopOptions& options, QString& error)
{
    auto core = x11::X11Core::create(
        runLoop, {.pixelsPerPoint = options.pixelsPerPoint, .displayName = {}},
        // As the toolkit does if it notices first.
        [&runLoop] { runLoop.performOnMainThread([] { std::exit(1); }, false); }, error);
    if (!core)
        return nullptr;
    const x11::Extensions& extensions = core->connection().extensions();
    qCDebug(log::session,
            "a point has %g pixels; the session bus is %s; the X server has XInput %u.%u%s%s%s%s",
            options.pixelsPerPoint,
            QDBusConnection::sessionBus().isConnected() ? "there" : "not there",
            extensions.xinput.majorVersion, extensions.xinput.minorVersion,
            extensions.shape.present ? ", SHAPE" : "", extensions.shm.present ? ", MIT-SHM" : "",
            extensions.randr.present ? ", RANDR" : "",
            extensions.resource.present ? ", X-Resource" : "");
    return std::make_unique<LinuxDesktopImpl>(runLoop, options, std::move(core));
}

} // namespace lumbrix::platform
