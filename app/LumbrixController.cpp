// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/LumbrixController.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include "app/Defaults.h"
#include "app/HotKeyIdentifiers.h"
#include "app/SGHotKeyCenter.h"
#include "app/preferences/PrefsController.h"
#include "engine/LXHandler.h"
#include "model/AXNames.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"
#include "preview/BubbleWrapper.h"

namespace lumbrix
{
namespace
{
/// A restarted Dock is found again within this time.
constexpr platform::Seconds dockObserverInterval = 3.0;
/// How long a busy application may keep us waiting for an answer.
constexpr float messagingTimeout = 0.2F;

LumbrixController* theDelegate = nullptr;

WindowCountBadger& badger() { return *LXHandler::sharedHandler().companions().windowCountBadger; }

float storedBadgeSizeExtra()
{
    return platform::desktop().userDefaults.floatForKey(QStringLiteral("badgeSizeExtra"));
}
} // namespace

LumbrixController::LumbrixController() : m_hotKeyCenter(std::make_shared<SGHotKeyCenter>())
{
    theDelegate = this;
}

LumbrixController::~LumbrixController()
{
    PrefsController::releaseSharedPrefsWindowController();
    theDelegate = nullptr;
}

LumbrixController* LumbrixController::applicationDelegate() { return theDelegate; }

bool LumbrixController::awakeFromNib()
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    if (!accessibility.apiEnabled())
        return false;
    accessibility.setMessagingTimeout(messagingTimeout);
    Companions companions;
    companions.hotKeyCenter = m_hotKeyCenter;
    companions.helpBubble = std::make_shared<BubbleWrapper>();
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
    PrefsController::releaseSharedPrefsWindowController();
    m_samplePreview.closeWindow();
    LXHandler& handler = LXHandler::sharedHandler();
    handler.removeAllScreenViewsNOW();
    handler.setApplicationDelegate(nullptr);
    m_hotKeyCenter->tearDown();
}

void LumbrixController::updateState(const QString& senderTitle)
{
    retrieveDefaults(senderTitle);
    registerHotKeys();
    badger().setBadgeSizeExtra(storedBadgeSizeExtra());
    updateDelayLabels();
    PrefsController::settingsDidChange();
}

void LumbrixController::updateWindowSize()
{
    retrieveDefaults();
    m_samplePreview.show(true);
}

void LumbrixController::updateDistanceFromDock()
{
    retrieveDefaults();
    m_samplePreview.show(false);
}

void LumbrixController::updateDockBadgeSize()
{
    badger().setBadgeSizeExtra(storedBadgeSizeExtra());
    badger().updateBadgeSizes();
}

void LumbrixController::updateColorOfWindowBadges(const QColor& color)
{
    badger().setCurrentColor(color);
}

void LumbrixController::showPreferences()
{
    PrefsController::sharedPrefsWindowController().showWindow();
}

void LumbrixController::showAbout() {}

void LumbrixController::quitApp() { QCoreApplication::quit(); }

void LumbrixController::setVersionLabel(QLabel* label)
{
    m_versionLabel = label;
    if (label)
        label->setText(tr("Version %1").arg(QCoreApplication::applicationVersion()));
}

void LumbrixController::setDelayLabel(QLabel* label)
{
    m_delayLabel = label;
    updateDelayLabels();
}

void LumbrixController::setExitDelayLabel(QLabel* label)
{
    m_exitDelayLabel = label;
    updateDelayLabels();
}

void LumbrixController::updateDelayLabels()
{
    const auto show = [](QLabel* label, double seconds) {
        if (label)
            label->setText(QString::number(seconds, 'f', 1));
    };
    show(m_delayLabel, m_displayDelay);
    show(m_exitDelayLabel,
         platform::desktop().userDefaults.floatForKey(QStringLiteral("exitDelay")));
}

std::unique_ptr<Alert> LumbrixController::createAlert(const QString& title, const QString& text,
                                                      const QStringList& buttons,
                                                      bool suppressionEnabled,
                                                      const QString& suppressionText)
{
    auto alert = std::make_unique<Alert>(title, text, buttons);
    if (suppressionEnabled)
        alert->showSuppressionButton(suppressionText);
    return alert;
}

void LumbrixController::retrieveDefaults(const QString& /*senderTitle*/)
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
