// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/LumbrixController.h"

#include "app/Defaults.h"
#include "app/HotKeyIdentifiers.h"
#include "app/SGHotKeyCenter.h"
#include "engine/LXHandler.h"
#include "model/AXNames.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{
namespace
{
/// A restarted Dock is found again within this time.
constexpr platform::Seconds dockObserverInterval = 3.0;
/// How long a busy application may keep us waiting for an answer.
constexpr float messagingTimeout = 0.2F;
} // namespace

LumbrixController::LumbrixController() : m_hotKeyCenter(std::make_shared<SGHotKeyCenter>()) {}

LumbrixController::~LumbrixController() = default;

bool LumbrixController::awakeFromNib()
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    if (!accessibility.apiEnabled())
        return false;
    accessibility.setMessagingTimeout(messagingTimeout);
    Companions companions;
    companions.hotKeyCenter = m_hotKeyCenter;
    LXHandler::installCompanions(companions);
    LXHandler::sharedHandler().setApplicationDelegate(this);
    updateState();
    return true;
}

void LumbrixController::applicationDidFinishLaunching()
{
    firstRunCheck();
    addDockObserver();
    m_dockObserverTimer = platform::desktop().runLoop.scheduleTimer(dockObserverInterval, true,
                                                                    [this] { addDockObserver(); });
    updateState();
}

void LumbrixController::applicationWillTerminate()
{
    m_launches = nullptr;
    m_dockObserverTimer = nullptr;
    m_dockObserver = nullptr;
    LXHandler& handler = LXHandler::sharedHandler();
    handler.removeAllScreenViewsNOW();
    handler.setApplicationDelegate(nullptr);
    m_hotKeyCenter->tearDown();
}

void LumbrixController::updateState()
{
    retrieveDefaults();
    registerHotKeys();
}

void LumbrixController::retrieveDefaults()
{
    platform::UserDefaults& defaults = platform::desktop().userDefaults;
    m_displayDelay = defaults.floatForKey(QStringLiteral("displayDelay"));
    m_dontDelayIfOpen = integerSetting(defaults, QStringLiteral("dontDelayIfOpen"));
    mirrorSettings(defaults, LXHandler::sharedHandler());
    defaults.synchronize();
}

void LumbrixController::registerHotKeys()
{
    for (const auto& former : m_hotKeys)
        m_hotKeyCenter->unregisterHotKey(former);
    m_hotKeys.clear();

    const std::pair<QString, std::function<void()>> rows[] = {
        {HotKeyIdentifier::CloseAllWindows, [] { LXHandler::sharedHandler().closeAllWindows(); }},
        {HotKeyIdentifier::EnableDisable, [this] { toggleDisabled(); }},
        {HotKeyIdentifier::HideAllPreviews,
         [] { LXHandler::sharedHandler().removeAllScreenViews(); }},
    };
    const platform::UserDefaults& defaults = platform::desktop().userDefaults;
    for (const auto& [identifier, action] : rows) {
        const QVariantMap stored = defaults.dictionaryForKey(identifier).value_or(QVariantMap());
        m_hotKeys.push_back(std::make_shared<SGHotKey>(
            SGHotKey{identifier, SGKeyCombo::initWithPlistRepresentation(stored), action}));
    }
    for (const auto& hotKey : m_hotKeys)
        m_hotKeyCenter->registerHotKey(hotKey);
    m_hotKeyCenter->setUpEventHandler();
}

void LumbrixController::toggleDisabled()
{
    platform::UserDefaults& defaults = platform::desktop().userDefaults;
    LXHandler& handler = LXHandler::sharedHandler();
    const bool disable = handler.settings().disabled == 0;
    if (disable)
        handler.removeAllScreenViews();
    defaults.setInteger(disable ? 1 : 0, QStringLiteral("disabled"));
    defaults.synchronize();
    updateState();
}

void LumbrixController::addDockObserver()
{
    const std::int32_t pid = SWElement::getDockPid();
    if (pid == 0 || (m_dockObserver && m_dockObserver->isEqualTo(pid)))
        return;
    m_dockObserver = SWObserver::observerWithPid(pid);
    if (!m_dockObserver)
        return;
    const platform::ElementRef dock = platform::desktop().accessibility.createApplication(pid);
    if (!dock)
        return;
    platform::AXObserver& observer = m_dockObserver->observer();
    observer.addNotification(dock, AX::SelectedChildrenChanged, this);
    observer.addNotification(dock, AX::MenuOpened, this);
    observer.addNotification(dock, AX::FocusedUIElementChanged, this);
    observer.addToRunLoop();
}

} // namespace lumbrix
