// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/inspect/Inspector.h"

#include <algorithm>

#include "app/Defaults.h"
#include "engine/PrivateChoices.h"
#include "engine/StripArranger.h"
#include "model/AXRead.h"
#include "model/VisibilityRules.h"
#include "platform/InputState.h"
#include "platform/PrintableText.h"
#include "platform/Privacy.h"
#include "platform/StringLiterals.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::RunningApplication;
using platform::WindowID;
using platform::WindowList;

namespace
{

constexpr QSize smallPicture(64, 64); ///< pixels

std::vector<ChangedSetting> settingsThatMatter(const platform::UserDefaults& defaults)
{
    static constexpr const char* names[] = {
        "disabled",           "ignoreHidden",
        "ignoreMinimized",    "ignoreOneWindow",
        "onlyIfPressed",      "onlyIfKeycode",
        "hidePreviews",       "hidePreviewsKeycode",
        "tempDisableFilters", "tempDisableFiltersKeycode",
        "neverClose",         "showOthersInDockIcon",
    };
    std::vector<ChangedSetting> result;
    if (integerSetting(defaults, u"showInDock"_s) == 0)
        result.push_back({u"showInDock"_s, 0});
    for (const char* name : names) {
        const QString key = QString::fromLatin1(name);
        if (const auto value = integerSetting(defaults, key))
            result.push_back({key, static_cast<double>(value)});
    }
    if (const float delay = defaults.floatForKey(u"displayDelay"_s); delay > 0)
        result.push_back({u"displayDelay"_s, static_cast<double>(delay)});
    return result;
}

/// 0 when it is not known.
WindowID numberOf(const SWElement& window, const platform::Desktop& ports)
{
    return window.wid() != 0 ? window.wid()
                             : ports.accessibility.windowIDOf(window.element()).value_or(0);
}

std::vector<SWElementPtr> windowsOf(std::int32_t pid, const platform::Desktop& ports)
{
    return SWElement::elementsForElementRef(ports, ports.accessibility.createApplication(pid));
}

} // namespace

Inspector::Inspector()
{
    const platform::UserDefaults& defaults = m_ports.userDefaults;
    mirrorEngineSettings(defaults, m_settings);
    m_hasRun = defaults.boolForKey(u"firstRun"_s);
    m_showsCalendars = integerSetting(defaults, u"shouldShowCal"_s) != 0;
    if (!m_hasRun) {
        // As the first start will set them.
        m_settings.showInDock = 1;
        m_showsCalendars = true;
    }
    m_filters.setFilters(FilterTable::getFiltersDictionary(defaults));
    SWElement::setFilterLevels(&m_filters);
    m_ports.privacy.setChoices(PrivateChoices::stored(defaults));
}

Inspector::~Inspector() { SWElement::setFilterLevels(nullptr); }

void Inspector::aim()
{
    m_pointer =
        m_utilities.carbonScreenPointFromCocoaScreenPoint(m_ports.inputState.mouseLocation());
    const platform::AXResult hit = m_ports.accessibility.copyElementAtPosition(
        static_cast<float>(m_pointer.x()), static_cast<float>(m_pointer.y()));
    m_element = hit.as<ElementRef>() ? *hit.as<ElementRef>() : nullptr;
    m_pointsAtItem = isDockItem(m_element);
    if (m_pointsAtItem) {
        m_item = m_element;
        const SWElement item(m_ports, m_item);
        if (SWElement::checkIfMinimizedWindowIcon(m_ports, m_item)) {
            m_inventory.windowScanner();
            m_window = m_inventory.windowForMinimizedIcon(item);
            m_application = m_window ? m_window->runningApplicationForWindow() : std::nullopt;
        } else {
            m_application = item.runningApplicationForDockElement();
        }
    } else if (m_element) {
        m_window = SWElement::elementAtPosition(m_pointer, SWElement::systemWideElement(m_ports));
        const auto pid = m_ports.accessibility.pidOf(m_element);
        m_application = pid ? m_ports.workspace.runningApplication(*pid) : std::nullopt;
        m_item = m_application ? itemOf(*m_application) : nullptr;
    }
    if (!m_application)
        return;
    for (const std::int32_t pid : m_inventory.processesBehindIcon(*m_application)) {
        for (const SWElementPtr& window : windowsOf(pid, m_ports))
            if (const WindowID number = numberOf(*window, m_ports))
                m_ports.windowServer.captureWindow(number, smallPicture);
    }
}

bool Inspector::isDockItem(const ElementRef& element) const
{
    const std::int32_t dock = SWElement::getDockPid(m_ports);
    return element && dock != 0 && m_ports.accessibility.pidOf(element) == dock &&
           AX::equals(m_ports.accessibility, element, AX::Role, AX::DockItemRole);
}

ElementRef Inspector::itemOf(const RunningApplication& application) const
{
    for (const SWElementPtr& item :
         SWElement::runningApps(m_ports).value_or(std::vector<SWElementPtr>{})) {
        const auto owner = item->runningApplicationForDockElement();
        if (owner && owner->pid == application.pid)
            return item->element();
    }
    return nullptr;
}

Inspection Inspector::inspect()
{
    Inspection result;
    result.pointer = m_pointer;
    result.screens = m_ports.windowServer.screens();
    result.element = m_utilities.stringDescriptionOfUIElement(m_element, printableText);
    result.pointsAtItem = m_pointsAtItem;
    result.hasRun = m_hasRun;
    result.unseen = m_ports.windowServer.unseenWindows();
    if (m_hasRun)
        result.settings = settingsThatMatter(m_ports.userDefaults);
    result.isDisabled = m_settings.disabled != 0;
    result.hidingKey = m_settings.hidePreviewsKeycode;
    result.showingKey = m_settings.onlyIfKeycode;
    result.unfilteringKey = m_settings.tempDisableFiltersKeycode;
    result.dock = inspectDock();
    if (m_item)
        result.item = inspectItem();
    if (m_application)
        inspectApplication(result);
    result.verdict = judgeHover(result);
    return result;
}

InspectedDock Inspector::inspectDock() const
{
    InspectedDock dock;
    dock.pid = SWElement::getDockPid(m_ports);
    const ElementRef application =
        dock.pid != 0 ? m_ports.accessibility.createApplication(dock.pid) : nullptr;
    const auto lists = AX::readElements(m_ports.accessibility, application, AX::Children);
    if (lists.empty()) { // a stand-in process: there is a switcher, but no Dock
        dock.pid = 0;
        return dock;
    }
    dock.name = m_utilities.descriptionOfAXDescriptionOfUIElement(application);
    dock.edge = StripArranger::getDockOrientation(
        m_ports.dockPreferences, SWElement::elementWithElementRef(m_ports, m_item));
    dock.displays = m_ports.dockPreferences.ownDisplays(m_item);
    for (const ElementRef& list : lists)
        dock.items += AX::readElements(m_ports.accessibility, list, AX::Children).size();
    return dock;
}

InspectedItem Inspector::inspectItem() const
{
    const SWElement element(m_ports, m_item);
    InspectedItem item;
    item.title = element.getTitle().value_or(QString());
    item.dock = m_utilities.descriptionOfAXDescriptionOfUIElement(m_item);
    item.kind = kindOfDockItem(m_ports, m_item, m_showsCalendars);
    item.isRunning = SWElement::checkIfAppIsRunning(m_ports, m_item);
    return item;
}

void Inspector::inspectApplication(Inspection& result)
{
    const auto scanned = m_inventory.scannedApplications();
    const WindowList list = m_inventory.copyWindowList();
    InspectedApplication application;
    application.name = m_application->localizedName;
    application.identifier = m_application->bundleIdentifier;
    application.pid = m_application->pid;
    application.isHidden = m_ports.workspace.isHidden(application.pid);
    application.level = SWElement::filterLevelOf(application.identifier);
    const ElementRef element = m_ports.accessibility.createApplication(application.pid);
    application.answers =
        element && m_ports.accessibility.copyAttributeValue(element, AX::Windows).error !=
                       platform::AXError::CannotComplete;
    result.application = application;

    std::vector<SWElementPtr> windows;
    for (const std::int32_t pid : m_inventory.processesBehindIcon(*m_application)) {
        const bool isScanned = std::ranges::count(scanned, pid) != 0;
        for (const SWElementPtr& window : windowsOf(pid, m_ports)) {
            windows.push_back(window);
            result.windows.push_back(inspectWindow(window, isScanned, list));
        }
    }
    // The windows that the engine would show, asked of its inventory.
    auto shown = m_inventory.windowsBehindIcon(*m_application);
    result.previewable = shown.size();
    shown.resize(std::min(shown.size(), maxPreviews));
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const bool isShown = std::ranges::any_of(
            shown, [&](const SWElementPtr& each) { return each->isEqualTo(windows[i]); });
        if (!isShown && result.windows[i].verdict == WindowVerdict::Good)
            result.windows[i].verdict = WindowVerdict::BeyondMost;
    }
}

InspectedWindow Inspector::inspectWindow(const SWElementPtr& found, bool isScanned,
                                         const WindowList& list)
{
    InspectedWindow result;
    result.verdict = isScanned ? m_inventory.processWindow(found, list) : WindowVerdict::NotScanned;
    // The inventory may have another record of the window, one that was matched.
    SWElementPtr window = found;
    for (const SWElementPtr& known : m_inventory.windowsArray())
        if (known->isEqualTo(found))
            window = known;
    const std::int32_t pid = m_ports.accessibility.pidOf(found->element()).value_or(0);
    const VisibilityRules rules(m_ports, m_settings);
    if (result.verdict == WindowVerdict::Good)
        result.verdict = rules.verdictForApplication(pid);
    if (result.verdict == WindowVerdict::Good)
        result.verdict = rules.verdictForWindow(*window);

    if (pid != m_application->pid) {
        const auto owner = m_ports.workspace.runningApplication(pid);
        result.owner = owner ? owner->localizedName : QString::number(pid);
    }
    result.level = window->getFilterLevel();
    result.title = window->getTitle().value_or(QString());
    result.subrole = AX::read<QString>(m_ports.accessibility, window->element(), AX::Subrole)
                         .value_or(QString());
    result.frame = window->getRect();
    result.number = numberOf(*window, m_ports);
    const auto listed = std::ranges::find(list, result.number, &platform::WindowInfo::number);
    if (result.number != 0 && listed != list.end())
        result.listed = *listed;
    result.space = SWElement::spaceNumberOfWindow(m_ports, result.number);
    result.isMinimized = window->checkIfMinimized();
    result.isUnderPointer = !m_pointsAtItem && window->isEqualTo(m_window);
    return result;
}

HoverVerdict Inspector::judgeHover(const Inspection& result) const
{
    const HoverVerdict verdict = HoverRules::verdictBeforeWindows(m_ports.inputState, m_settings);
    if (verdict != HoverVerdict::Shows)
        return verdict;
    if (m_item && HoverRules::verdictForPlace(m_ports.dockPreferences,
                                              SWElement::elementWithElementRef(m_ports, m_item)) !=
                      HoverVerdict::Shows)
        return HoverVerdict::NoPlace;
    if (result.pointsAtItem && result.item->kind == DockItemKind::MinimizedWindow)
        return m_window ? HoverVerdict::Shows : HoverVerdict::NoWindows;
    const bool areOthers = m_application && m_inventory.standsForOthers(*m_application);
    return HoverRules::verdictForWindows(m_ports.inputState, m_settings, result.previewable,
                                         areOthers);
}

} // namespace lumbrix
