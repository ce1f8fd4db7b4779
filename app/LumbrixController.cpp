// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/LumbrixController.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtGui/QColor>
#include <QtWidgets/QLabel>

#include "app/AboutWindow.h"
#include "app/Defaults.h"
#include "app/DockIcon.h"
#include "app/HotKeyIdentifiers.h"
#include "app/SGHotKeyCenter.h"
#include "app/SenderTitles.h"
#include "app/StatusItem.h"
#include "app/StatusMenu.h"
#include "app/preferences/HotKeyText.h"
#include "app/preferences/PrefsController.h"
#include "engine/LXHandler.h"
#include "model/AXNames.h"
#include "platform/ApplicationBundle.h"
#include "platform/Desktop.h"
#include "platform/LoginItems.h"
#include "platform/StringLiterals.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{
namespace
{
platform::UserDefaults& defaults() { return platform::desktop().userDefaults; }

WindowCountBadger& badger() { return *LXHandler::sharedHandler().companions().windowCountBadger; }

float storedBadgeSizeExtra() { return defaults().floatForKey(u"badgeSizeExtra"_s); }
} // namespace

LumbrixController::LumbrixController()
    : m_hotKeyCenter(std::make_shared<SGHotKeyCenter>()), m_palette(platform::desktop().desktopLook)
{
    PrefsController::setHost(this);
}

LumbrixController::~LumbrixController()
{
    m_dockIcon = nullptr;
    PrefsController::releaseSharedPrefsWindowController();
    PrefsController::setHost(nullptr);
}

bool LumbrixController::applicationShouldHandleReopen()
{
    // Without a place for a status item this is the only way to reach the preferences.
    showPreferences();
    return false;
}

void LumbrixController::applicationWillTerminate()
{
    m_statusItem = nullptr;
    m_aboutWindow = nullptr;
    m_dockIcon = nullptr;
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
    enforceRunAtLogin();
    registerHotKeys();
    displayStatusIcon();
    badger().setBadgeSizeExtra(storedBadgeSizeExtra());
    updateDelayLabels();
    if (senderTitle == SenderTitle::HideMenuIcon && m_hideMenuIcon)
        beginSheet(tr("Hide the menu icon"),
                   tr("You won't be able to easily access the Preferences and About window with "
                      "the menu icon hidden. If you want to reach either of them, run Lumbrix from "
                      "within Finder."),
                   {tr("Okay")});
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

void LumbrixController::showAbout()
{
    if (!m_aboutWindow)
        m_aboutWindow = std::make_unique<AboutWindow>();
    m_aboutWindow->makeKeyAndOrderFront();
}

void LumbrixController::quitApp()
{
    m_isQuitting = true;
    // Not quit(), which asks every window to close first.
    QCoreApplication::exit();
}

void LumbrixController::setVersionLabel(QLabel* label)
{
    m_versionLabel = label;
    if (label)
        label->setText(
            tr("Version %1").arg(platform::desktop().applicationBundle.shortVersionString()));
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
            label->setText(QLocale().toString(seconds, 'f', 1));
    };
    show(m_delayLabel, m_displayDelay);
    show(m_exitDelayLabel, defaults().floatForKey(u"exitDelay"_s));
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

void LumbrixController::retrieveDefaults(const QString& senderTitle)
{
    m_hideMenuIcon = integerSetting(defaults(), u"hideIcon"_s);
    m_displayDelay = defaults().floatForKey(u"displayDelay"_s);
    m_dontDelayIfOpen = integerSetting(defaults(), u"dontDelayIfOpen"_s);
    m_monoChrome = integerSetting(defaults(), u"monoChrome"_s);
    mirrorSettings(defaults(), LXHandler::sharedHandler());
    LXHandler::sharedHandler().settingsDidChange();
    if (senderTitle == SenderTitle::ShowIconInDock)
        beginSheet(tr("Relaunch required"),
                   tr("Lumbrix needs to restart in order for this setting to take effect."),
                   {tr("Apply and Relaunch"), tr("Cancel")},
                   [this](int returnCode) { showDockIconAlertDidEnd(returnCode); });
    if (senderTitle == SenderTitle::BadgeDockIcons)
        badgeDockIconsChanged();
    defaults().synchronize();
}

void LumbrixController::badgeDockIconsChanged()
{
    badger().badgeDockItems();
    platform::DockPreferences& dock = platform::desktop().dockPreferences;
    if (badger().shouldBadgeDock() &&
        (LXHandler::isDockMagnificationEnabled(dock) || LXHandler::isDockAutoHidingEnabled(dock)))
        beginSheet(tr("Badge Dock Icons"),
                   tr("Please note that this feature doesn't work very well when Dock "
                      "Magnification/Hiding are enabled."),
                   {tr("Okay")});
}

void LumbrixController::beginSheet(const QString& title, const QString& text,
                                   const QStringList& buttons, std::function<void(int)> didEnd)
{
    if (QWidget* window = PrefsController::openWindow())
        createAlert(title, text, buttons)->beginSheetModalForWindow(*window, std::move(didEnd));
}

bool LumbrixController::showsIconInDock()
{
    return defaults().integerForKey(u"showIconInDock"_s) != 0;
}

void LumbrixController::enforceDockIcon()
{
    platform::desktop().applicationBundle.setShowsInDock(showsIconInDock());
}

void LumbrixController::showDockIconAlertDidEnd(int returnCode)
{
    if (returnCode == Alert::secondButtonReturn) {
        defaults().setInteger(showsIconInDock() ? 0 : 1, u"showIconInDock"_s);
        defaults().synchronize();
        enforceDockIcon();
        PrefsController::settingsDidChange();
        return;
    }
    const QString relaunched = u"relaunchedForIcon"_s;
    defaults().setBool(true, relaunched);
    defaults().synchronize();
    enforceDockIcon();
    if (platform::desktop().applicationBundle.relaunch()) {
        quitApp();
        return;
    }
    // Nothing would start the program again, so it keeps running. The next start is the user's, and
    // must not open the preferences as one after a relaunch does.
    defaults().setBool(false, relaunched);
    defaults().synchronize();
    beginSheet(tr("Lumbrix could not be relaunched"),
               tr("The icon in the Dock will change the next time you start Lumbrix."),
               {tr("Okay")});
}

void LumbrixController::enforceRunAtLogin()
{
    // A new user has not chosen yet. Treating that as "off" would remove an existing login item,
    // and with it the user's changes to it, just before the initial values write it again.
    if (!defaults().boolForKey(u"firstRun"_s))
        return;
    const QString path = platform::desktop().applicationBundle.path();
    platform::LoginItems& items = platform::desktop().loginItems;
    if (defaults().integerForKey(u"startAtLogin"_s) == 0)
        items.remove(path);
    else if (platform::desktop().applicationBundle.isInstalled())
        items.insert(path);
}

void LumbrixController::displayStatusIcon()
{
    if (m_hideMenuIcon) {
        m_statusItem = nullptr;
        return;
    }
    if (!m_statusItem) {
        auto menu = std::make_unique<StatusMenu>();
        connect(menu.get(), &StatusMenu::toggleChosen, this, &LumbrixController::toggleDisabled);
        connect(menu.get(), &StatusMenu::preferencesChosen, this,
                &LumbrixController::showPreferences);
        connect(menu.get(), &StatusMenu::aboutChosen, this, &LumbrixController::showAbout);
        connect(menu.get(), &StatusMenu::quitChosen, this, &LumbrixController::quitApp);
        m_statusMenu = menu.get();
        m_statusItem = std::make_unique<StatusItem>(std::move(menu));
    }
    const bool isDisabled = LXHandler::sharedHandler().settings().disabled != 0;
    const auto toggleKey = m_hotKeyCenter->hotKeyWithIdentifier(HotKeyIdentifier::EnableDisable);
    m_statusMenu->update(isDisabled, toggleKey ? hotKeyText(toggleKey->keyCombo) : QString());
    const char* image = m_monoChrome ? (isDisabled ? "menuIconMonoDisabled" : "menuIconMono")
                                     : (isDisabled ? "menuIconDisabled" : "menuIcon");
    m_statusItem->setImages(QString::fromLatin1(image), u"menuIconAlt"_s);
    m_statusItem->setToolTip(isDisabled ? tr("Lumbrix: previews are turned off") : u"Lumbrix"_s);
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
        {HotKeyIdentifier::OpenRow, [] { LXHandler::sharedHandler().toggleKeyboardRow(); }},
    };
    for (const auto& [identifier, action] : rows) {
        const QVariantMap stored = defaults().dictionaryForKey(identifier).value_or(QVariantMap());
        m_hotKeys.push_back(std::make_shared<SGHotKey>(
            SGHotKey{identifier, SGKeyCombo::initWithPlistRepresentation(stored), action}));
    }
    for (const auto& hotKey : m_hotKeys)
        m_hotKeyCenter->registerHotKey(hotKey);
    m_hotKeyCenter->setUpEventHandler();
}

void LumbrixController::toggleDisabled()
{
    const bool disable = LXHandler::sharedHandler().settings().disabled == 0;
    defaults().setInteger(disable ? 1 : 0, u"disabled"_s);
    defaults().synchronize();
    updateState();
}

void LumbrixController::addDockObserver()
{
    const std::int32_t pid = SWElement::getDockPid(platform::desktop());
    if (pid == 0 || (m_dockObserver && m_dockObserver->isEqualTo(pid)))
        return;
    m_dockObserver =
        SWObserver::observerWithPid(platform::desktop().accessibility, pid, handleAXNotification);
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
    badger().badgeDockItems(); // not every Dock tells that its items have come
}

} // namespace lumbrix
