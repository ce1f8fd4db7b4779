// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The part of the controller that starts the program.
#include "app/LumbrixController.h"

#include <QtCore/QCoreApplication>

#include "app/Defaults.h"
#include "app/DockIcon.h"
#include "app/SGHotKeyCenter.h"
#include "app/preferences/PrefsController.h"
#include "badges/WinNumberBadger.h"
#include "engine/CalPreview.h"
#include "engine/LXHandler.h"
#include "platform/ApplicationBundle.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"
#include "platform/KeyboardLayout.h"
#include "platform/StringLiterals.h"
#include "platform/UserDefaults.h"
#include "platform/WindowServer.h"
#include "preview/BubbleWrapper.h"
#include "preview/MediaControls.h"

namespace lumbrix
{
namespace
{

/// How often to look for a restarted Dock.
constexpr platform::Seconds dockObserverInterval = 3.0;
/// How long to wait for an answer of a busy application.
constexpr float messagingTimeout = 0.2F;
/// While the user grants access in the system's settings: how often to check, and for how long.
constexpr platform::Seconds accessInterval = 0.5;
constexpr int accessLooks = 80;

platform::UserDefaults& defaults() { return platform::desktop().userDefaults; }

} // namespace

bool LumbrixController::awakeFromNib()
{
    if (!checkAXAPI())
        return false;
    const platform::Desktop& desktop = platform::desktop();
    Companions companions;
    companions.hotKeyCenter = m_hotKeyCenter;
    companions.calendarPreview = CalPreview::sharedPreview(desktop);
    companions.helpBubble = std::make_shared<BubbleWrapper>(desktop);
    companions.windowCountBadger = std::make_shared<WinNumberBadger>(desktop);
    companions.playerControls = std::make_shared<MediaControls>(desktop);
    LXHandler::installCompanions(desktop, companions);
    LXHandler::sharedHandler().setApplicationDelegate(this);
    updateState();
    return true;
}

void LumbrixController::applicationDidFinishLaunching()
{
    showDockIcon();
    firstRunCheck();
    addDockObserver();
    m_dockObserverTimer = platform::desktop().runLoop.scheduleTimer(dockObserverInterval, true,
                                                                    [this] { addDockObserver(); });
    updateState();
}

bool LumbrixController::checkAXAPI()
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    if (!accessibility.apiEnabled() && wantsAPI()) {
        accessibility.enableAPI();
        if (!accessibility.apiEnabled())
            accessibility.openAPIPreferences();
        for (int look = 0; look < accessLooks && !accessibility.apiEnabled() && !m_isQuitting;
             ++look) {
            platform::desktop().runLoop.sleep(accessInterval);
            QCoreApplication::processEvents(); // so that QuitSignals can act
        }
    }
    if (!accessibility.apiEnabled() || m_isQuitting) {
        quitApp();
        return false;
    }
    accessibility.setMessagingTimeout(messagingTimeout);
    return true;
}

bool LumbrixController::wantsAPI()
{
    const QString text =
        tr("You need to enable support for assistive devices.\n\n"
           "Support for assistive devices is a Mac OS feature which allows applications to "
           "interact with one another. In this case, it allows Lumbrix to extend Dock "
           "functionalities.\n\n"
           "You can enable support for assistive devices by opening the Universal Access pane in "
           "System Preferences. The checkbox you are looking for there is called \"Enable access "
           "for assistive devices\".\n\n"
           "If you want, Lumbrix can enable it for you.");
    return createAlert(tr("Error"), text, {tr("Enable"), tr("Quit")})->runModal() ==
           Alert::firstButtonReturn;
}

/// The keys, and what Lumbrix did on its own, are nowhere to be seen: said here or never found.
QString LumbrixController::welcomeText()
{
    using platform::ModifierFlag::command;
    const platform::Desktop& desktop = platform::desktop();
    QStringList paragraphs{
        tr("Hello there! You can now hover your mouse over applications in the Dock and "
           "see window previews. There is also a new icon in your menu bar, use it to "
           "control Lumbrix.\n\n"
           "Lumbrix works great by default, but if you want to change something, check "
           "out the Preferences.\n\n"
           "Note to users of Spaces: Lumbrix has to see a window at least once before "
           "being able to display previews for it. \n\n"
           "This is usually not a problem since you would have Lumbrix already running "
           "when the windows are created. However, this is the first time you run "
           "Lumbrix and you might have some windows already open."),
        tr("To pick a preview by a key, hold %1 and press the number that is on it.")
            .arg(desktop.keyboardLayout.nameOfModifier(command))};
    if (desktop.applicationBundle.isInstalled())
        paragraphs << tr("From now on Lumbrix starts when you log in. To change that, uncheck "
                         "“Start at login” in the General pane of these preferences.");
    return paragraphs.join(QLatin1String("\n\n"));
}

void LumbrixController::firstRunCheck()
{
    if (seedFirstRun(defaults())) {
        showPreferences();
        defaults().synchronize();
        beginSheet(tr("Welcome to Lumbrix!"), welcomeText(), {tr("Okay")},
                   [this](int) { tellOfUnseenWindows(); });
    } else {
        tellOfUnseenWindows();
    }
    const QString relaunched = u"relaunchedForIcon"_s;
    if (defaults().boolForKey(relaunched)) {
        defaults().setBool(false, relaunched);
        defaults().synchronize();
        showPreferences();
        PrefsController::sharedPrefsWindowController().displayViewForIdentifier(u"Dock Icon"_s,
                                                                                false);
    }
    seedBadgeRun(defaults());
}

void LumbrixController::tellOfUnseenWindows()
{
    const QString told = u"toldOfUnseenWindows"_s;
    const QString unseen = platform::desktop().windowServer.unseenWindows();
    if (unseen.isEmpty() || defaults().boolForKey(told))
        return;
    defaults().setBool(true, told);
    defaults().synchronize();
    showPreferences();
    beginSheet(tr("Not every window has a preview here"), unseen, {tr("Okay")});
}

void LumbrixController::showDockIcon()
{
    platform::ApplicationBundle& bundle = platform::desktop().applicationBundle;
    if (showsIconInDock()) {
        bundle.transformToForegroundApplication();
        if (bundle.isShownByWindows())
            m_dockIcon = std::make_unique<DockIcon>(
                PrefsController::sharedPrefsWindowController().loadWindow());
    }
    enforceDockIcon();
}

} // namespace lumbrix
