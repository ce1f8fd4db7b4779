// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/PrefsController.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <array>

#include "app/filters/IgnoreTable.h"
#include "app/preferences/CalendarPicker.h"
#include "app/preferences/ColorWell.h"
#include "app/preferences/HotKeyRecorders.h"
#include "app/preferences/NoteLabel.h"
#include "app/preferences/PreferencesHost.h"
#include "app/preferences/SRRecorderControl.h"
#include "app/preferences/SettingsBinding.h"
#include "engine/LXHandler.h"
#include "platform/Accessibility.h"
#include "platform/ApplicationBundle.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"
#include "platform/KeyboardLayout.h"
#include "platform/StringLiterals.h"
#include "preview/InterfaceFile.h"

namespace lumbrix
{
namespace
{

struct Pane {
    const char* identifier;
    const char* interfaceFile;
};
/// In the order of the toolbar.
constexpr std::array panes{
    Pane{QT_TRANSLATE_NOOP("PrefsController", "General"), "PreferencesGeneral"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Filters"), "PreferencesFilters"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Appearance"), "PreferencesAppearance"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Badges"), "PreferencesBadges"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Dock Icon"), "PreferencesDockIcon"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Hotkeys"), "PreferencesHotkeys"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Advanced"), "PreferencesAdvanced"},
    Pane{QT_TRANSLATE_NOOP("PrefsController", "Updates"), "PreferencesUpdates"},
};

template <class Widget> QWidget* make(QWidget* parent) { return new Widget(parent); }

constexpr std::array widgetClasses{
    InterfaceClass{QLatin1String("ColorWell"), make<ColorWell>},
    InterfaceClass{QLatin1String("NoteLabel"), make<NoteLabel>},
    InterfaceClass{QLatin1String("SRRecorderControl"), make<SRRecorderControl>},
};

PreferencesHost* sharedHost = nullptr;
/// A child of the application: a static instance would be destroyed after the toolkit's own objects
/// when exit() is called.
QPointer<PrefsController> sharedInstance;

WindowCountBadger& badger() { return *LXHandler::sharedHandler().companions().windowCountBadger; }

/// Combo boxes that choose a modifier key; the settings store the index.
void fillModifierNames(QWidget& pane)
{
    using namespace platform::ModifierFlag;
    const auto boxes = pane.findChildren<QComboBox*>();
    for (QComboBox* box : boxes) {
        if (!box->property("modifierNames").toBool())
            continue;
        for (const std::uint32_t flag : {command, option, control, shift})
            box->addItem(platform::desktop().keyboardLayout.nameOfModifier(flag));
        box->setProperty("settingsElse", 0);
    }
}

} // namespace

PrefsController& PrefsController::sharedPrefsWindowController()
{
    if (!sharedInstance) {
        sharedInstance = new PrefsController(*sharedHost);
        sharedInstance->setParent(QCoreApplication::instance());
    }
    return *sharedInstance;
}

void PrefsController::setHost(PreferencesHost* host) { sharedHost = host; }

void PrefsController::releaseSharedPrefsWindowController() { delete sharedInstance; }

QWidget* PrefsController::openWindow()
{
    return sharedInstance ? sharedInstance->window() : nullptr;
}

void PrefsController::settingsDidChange()
{
    if (sharedInstance)
        sharedInstance->refresh();
}

PrefsController::~PrefsController() { closeWindow(); }

void PrefsController::setupToolbar()
{
    for (const Pane& pane : panes) {
        auto view =
            loadInterface(platform::desktop(), QLatin1String(pane.interfaceFile), widgetClasses);
        if (view)
            awakeFromNib(*view);
        addView(std::move(view), QLatin1String(pane.identifier),
                QCoreApplication::translate("PrefsController", pane.identifier));
    }
    setCrossFade(true);
    setShiftSlowsAnimation(false);
}

void PrefsController::awakeFromNib(QWidget& pane)
{
    fillModifierNames(pane);
    for (SettingsBinding* binding : bindPane(pane, m_host))
        m_bindings.emplace_back(binding);
    if (pane.findChild<SRRecorderControl*>())
        m_recorders = new HotKeyRecorders(pane, m_host);
    if (auto* well = pane.findChild<ColorWell*>()) {
        connect(well, &ColorWell::colorChanged, this,
                [this](const QColor& color) { m_host.updateColorOfWindowBadges(color); });
    }
    if (pane.objectName() == QLatin1String("preferencesFilters"))
        new IgnoreTable(pane);
    if (auto* button = pane.findChild<QPushButton*>(u"chooseCalendars"_s)) {
        auto* picker = new CalendarPicker(&pane);
        connect(button, &QPushButton::clicked, picker,
                [picker, &pane] { picker->showSheet(*pane.window()); });
    }
    if (auto* label = pane.findChild<QLabel*>(u"versionLabel"_s))
        m_host.setVersionLabel(label);
    if (auto* label = pane.findChild<QLabel*>(u"delayLabel"_s))
        m_host.setDelayLabel(label);
    if (auto* label = pane.findChild<QLabel*>(u"exitDelayLabel"_s))
        m_host.setExitDelayLabel(label);
}

void PrefsController::windowWillShow()
{
    window()->installEventFilter(this);
    refresh();
}

void PrefsController::refresh()
{
    if (!window())
        return;
    for (const QPointer<SettingsBinding>& binding : m_bindings)
        binding->refresh();
    m_recorders->refresh();
    // Another window manager, with a different switcher, may have been started since.
    const bool tellsSwitcher = platform::desktop().accessibility.tellsSwitcher();
    if (auto* box = window()->findChild<QCheckBox*>(u"showInTab"_s))
        box->setEnabled(tellsSwitcher);
    if (auto* note = window()->findChild<QLabel*>(u"showInTabNote"_s))
        note->setVisible(!tellsSwitcher);
    const bool isInstalled = platform::desktop().applicationBundle.isInstalled();
    if (auto* box = window()->findChild<QCheckBox*>(u"startAtLogin"_s))
        box->setEnabled(isInstalled);
    if (auto* note = window()->findChild<QLabel*>(u"startAtLoginNote"_s))
        note->setVisible(!isInstalled);
    const QColor color = badger().getCurrentColor();
    if (auto* well = window()->findChild<ColorWell*>(); well && color.isValid())
        well->setColor(color);
}

bool PrefsController::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
        refresh(); // shows changes by other programs, and values restored by a sheet
        break;
    case QEvent::Show:
        window()->windowHandle()->installEventFilter(this); // for the events below
        break;
    case QEvent::Expose:
    case QEvent::WindowStateChange:
        tellRecorders();
        break;
    default:
        break;
    }
    return DBPrefsWindowController::eventFilter(watched, event);
}

void PrefsController::currentViewDidChange() { tellRecorders(); }

QString PrefsController::titleForLabel(const QString& label) const
{
    return QCoreApplication::translate("PrefsController", "%1 – Lumbrix Preferences").arg(label);
}

/// To the toolkit a window that is minimised or on another workspace is visible, and with an icon
/// in the Dock closing the window minimises it.
void PrefsController::tellRecorders()
{
    if (!m_recorders || !window())
        return;
    const QWindow* native = window()->windowHandle();
    const bool isSeen = native && native->isExposed() && !window()->isMinimized();
    m_recorders->setShown(isSeen && currentIdentifier() == QLatin1String("Hotkeys"));
}

void PrefsController::windowWillClose() { m_bindings.clear(); }

} // namespace lumbrix
