// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/LXHandler.h"

#include <algorithm>
#include <mutex>

#include "engine/PrivateChoices.h"
#include "model/AXNames.h"
#include "preview/SafariPreview.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds scanInterval = 2.5;

/// Recursive, so that setUp() may call sharedHandler().
std::recursive_mutex sharedLock;
std::unique_ptr<LXHandler> sharedInstance;

struct Parts {
    const platform::Desktop& ports;
    const Companions companions;
};
std::optional<Parts> installedParts;

} // namespace

void handleAXNotification(platform::AXObserver&, const platform::ElementRef& element,
                          const QString& notification, platform::NotificationContext* context)
{
    LXHandler::sharedHandler().intake().handle(element, notification,
                                               dynamic_cast<const HoverDelays*>(context));
}

LXHandler& LXHandler::sharedHandler()
{
    const std::lock_guard lock(sharedLock);
    if (!sharedInstance) {
        if (!installedParts)
            qFatal("no companions are installed");
        sharedInstance =
            std::make_unique<LXHandler>(installedParts->ports, installedParts->companions);
        sharedInstance->setUp();
    }
    return *sharedInstance;
}

void LXHandler::releaseSharedHandler()
{
    const std::lock_guard lock(sharedLock);
    sharedInstance.reset();
    installedParts.reset();
    SafariPreview::releaseSharedPreview();
}

void LXHandler::installCompanions(const platform::Desktop& ports, const Companions& companions)
{
    const std::lock_guard lock(sharedLock);
    installedParts.emplace(Parts{ports, companions});
}

LXHandler::LXHandler(const platform::Desktop& ports, const Companions& companions)
    : m_ports(ports), m_companions(companions), m_inventory(ports, m_settings, *this),
      m_hovered(ports, [this](const SWElementPtr& item) { m_hover.iconHovered(item); }),
      m_row(ports, *this, m_settings, m_companions, m_hovered), m_context{ports,        m_settings,
                                                                          m_companions, m_inventory,
                                                                          m_hovered,    m_timers,
                                                                          m_row},
      m_dismissal(m_context), m_updater(m_context, m_dismissal),
      m_hover(m_context, m_dismissal, m_updater), m_switcher(m_context, m_dismissal, m_updater),
      m_requestedRow(m_context, m_dismissal),
      m_keyboardRow(m_context, m_dismissal, m_updater, m_requestedRow),
      m_intake(m_context, m_dismissal, m_hover, m_switcher)
{
    m_observers.reserve(5);
}

LXHandler::~LXHandler()
{
    m_ports.privacy.setObserver({});
    m_companions.windowCountBadger->tearDown();
    SWElement::setFilterLevels(nullptr);
}

void LXHandler::setUp()
{
    m_filters.setFilters(FilterTable::getFiltersDictionary(m_ports.userDefaults));
    SWElement::setFilterLevels(&m_filters);
    m_privateChoices = PrivateChoices::stored(m_ports.userDefaults);
    m_ports.privacy.setChoices(m_privateChoices);
    m_ports.privacy.setObserver([this] { awayChanged(); });
    SafariPreview::sharedPreview(m_ports.runLoop);

    using platform::WorkspaceNotification;
    const auto observe = [this](WorkspaceNotification notification, auto action) {
        m_subscriptions.push_back(m_ports.workspace.observe(notification, std::move(action)));
    };
    observe(WorkspaceNotification::DidLaunchApplication,
            [this](std::int32_t pid) { appLaunched(pid); });
    observe(WorkspaceNotification::DidTerminateApplication,
            [this](std::int32_t pid) { appTerminated(pid); });
    observe(WorkspaceNotification::ActiveSpaceDidChange,
            [this](std::int32_t) { m_inventory.windowScanner(); });
    observe(WorkspaceNotification::DidActivateApplication,
            [this](std::int32_t) { appActivated(); });
    observe(WorkspaceNotification::DockItemsDidChange,
            [this](std::int32_t) { m_updater.dockItemsDidChange(); });
    observe(WorkspaceNotification::ScreensDidChange,
            [this](std::int32_t) { m_updater.screensDidChange(); });

    for (const std::int32_t pid : m_ports.workspace.launchedApplications())
        addObserverForApp(pid);
    m_ports.runLoop.detachThread(
        "window-scanner", [this](const platform::Thread& self) { windowScannerThread(self); });
    m_companions.windowCountBadger->setUp(*this);
    m_requestedRow.setUp();
}

void LXHandler::setFilters(const QVariantMap& filters)
{
    m_filters.setFilters(filters);
    // On a thread, so that a busy application does not block the user who is editing the levels.
    m_ports.runLoop.detachThread("filter-scan",
                                 [this](const platform::Thread&) { m_inventory.windowScanner(); });
    if (isShowingPreviews())
        m_updater.updateNow();
}

void LXHandler::setPrivateChoices(const platform::Privacy::Choices& choices)
{
    m_privateChoices = choices;
    m_ports.privacy.setChoices(choices);
    forgetPictures();
}

void LXHandler::awayChanged()
{
    if (m_ports.privacy.isAway())
        forgetPictures();
}

void LXHandler::forgetPictures()
{
    m_dismissal.endAtOnce("no picture may be kept now");
    clearCache(); // what was painted stays with a panel
}

void LXHandler::windowScannerThread(const platform::Thread& self)
{
    while (!self.isCancelled()) {
        m_inventory.windowScanner();
        m_ports.runLoop.sleep(scanInterval);
    }
}

void LXHandler::settingsDidChange()
{
    if (!m_settings.disabled) {
        m_updater.settingsDidChange();
        return;
    }
    // From now on notifications are ignored, so nothing else would remove the row.
    m_hovered.cancelPending();
    m_dismissal.removeAllScreenViews("previews have been turned off");
}

ScreenyView& LXHandler::meantBy(ScreenyView& clicked)
{
    const ScreenyViewPtr chosen = m_row.selection().chosen();
    return chosen ? *chosen : clicked;
}

bool LXHandler::isObserving(std::int32_t pid) const
{
    return std::any_of(m_observers.begin(), m_observers.end(),
                       [pid](const auto& observer) { return observer->isEqualTo(pid); });
}

void LXHandler::addObserverForApp(std::int32_t pid)
{
    auto observer = SWObserver::observerWithPid(m_ports.accessibility, pid, handleAXNotification);
    if (!observer || isObserving(pid))
        return;
    const platform::ElementRef application = m_ports.accessibility.createApplication(pid);
    observer->observer().addNotification(application, AX::WindowCreated, this);
    observer->observer().addNotification(application, AX::UIElementDestroyed, this);
    observer->observer().addToRunLoop();
    m_observers.push_back(std::move(observer));
}

void LXHandler::windowsChanged()
{
    // Does not wait: the main thread must not block the scanner. However many windows a scan finds,
    // they are counted once.
    if (m_isBadgingRequested.exchange(true))
        return;
    const auto count = m_guard.ifAlive([this] {
        m_isBadgingRequested = false;
        m_companions.windowCountBadger->badgeDockItems();
    });
    m_ports.runLoop.performOnMainThread(count, false);
}

void LXHandler::appLaunched(std::int32_t pid)
{
    m_inventory.addAppWindows(pid, m_inventory.copyWindowList());
    addObserverForApp(pid);
}

void LXHandler::appTerminated(std::int32_t pid)
{
    std::erase_if(m_observers, [pid](const auto& observer) { return observer->isEqualTo(pid); });
    m_companions.windowCountBadger->badgeDockItems();
}

void LXHandler::appActivated()
{
    if (m_settings.closeOnClick && m_hovered.element())
        m_dismissal.removeAllScreenViews("an application has come forward; closeOnClick is set");
}

} // namespace lumbrix
