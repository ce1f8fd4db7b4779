// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The queries of SWElement about the Dock, the window server and whole applications, as opposed to
// a single record.
#include "model/AXRead.h"
#include "model/BundleIdentifiers.h"
#include "model/SWElement.h"
#include "model/UIElementUtilities.h"
#include "platform/InputState.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::RunningApplication;
using platform::WindowID;

namespace
{

SWElementPtr wrapped(const platform::Desktop& ports, const ElementRef& element)
{
    return element ? std::make_shared<SWElement>(ports, element) : nullptr;
}

ElementRef firstOf(const std::vector<ElementRef>& elements)
{
    return elements.empty() ? nullptr : elements.front();
}

ElementRef dockApplication(const platform::Desktop& ports)
{
    const std::int32_t pid = SWElement::getDockPid(ports);
    return pid ? ports.accessibility.createApplication(pid) : nullptr;
}

ElementRef dockItemList(const platform::Desktop& ports)
{
    return firstOf(AX::readElements(ports.accessibility, dockApplication(ports), AX::Children));
}

ElementRef dockFocusedElement(const platform::Desktop& ports)
{
    return AX::readElement(ports.accessibility, dockApplication(ports), AX::FocusedUIElement);
}

} // namespace

SWElementPtr SWElement::systemWideElement(const platform::Desktop& ports)
{
    return wrapped(ports, ports.accessibility.createSystemWide());
}

SWElementPtr SWElement::elementWithElementRef(const platform::Desktop& ports,
                                              const ElementRef& element)
{
    return wrapped(ports, element);
}

SWElementPtr SWElement::elementAtPosition(QPointF point, const SWElementPtr& systemWide)
{
    if (!systemWide)
        return nullptr;
    const platform::Desktop& ports = systemWide->m_ports;
    const platform::AXResult hit = ports.accessibility.copyElementAtPosition(
        static_cast<float>(point.x()), static_cast<float>(point.y()));
    const ElementRef* element = hit.as<ElementRef>();
    if (!element || !*element)
        return nullptr;
    if (const ElementRef window = AX::readElement(ports.accessibility, *element, AX::Window))
        return wrapped(ports, window);
    // An element that does not report its role is kept, because it may be a window.
    const auto role = AX::read<QString>(ports.accessibility, *element, AX::Role);
    return !role || *role == AX::WindowRole ? wrapped(ports, *element) : nullptr;
}

SWElementPtr SWElement::elementOfFocusedWindow(const platform::Desktop& ports)
{
    const SWElementPtr systemWide = systemWideElement(ports);
    if (!systemWide)
        return nullptr;
    const ElementRef application =
        AX::readElement(ports.accessibility, systemWide->element(), AX::FocusedApplication);
    SWElementPtr window =
        wrapped(ports, AX::readElement(ports.accessibility, application, AX::FocusedWindow));
    if (window)
        window->setPid(ports.accessibility.pidOf(window->element()).value_or(0));
    return window;
}

std::vector<SWElementPtr> SWElement::elementsForElementRef(const platform::Desktop& ports,
                                                           const ElementRef& application)
{
    std::vector<SWElementPtr> elements;
    for (const ElementRef& window : AX::readElements(ports.accessibility, application, AX::Windows))
        if (SWElementPtr element = wrapped(ports, window))
            elements.push_back(std::move(element));
    return elements;
}

std::int32_t SWElement::getDockPid(const platform::Desktop& ports)
{
    for (const RunningApplication& application : ports.workspace.runningApplications())
        if (application.bundleIdentifier == BundleIdentifier::Dock)
            return application.pid;
    return 0;
}

SWElementPtr SWElement::getFirstDockElement(const platform::Desktop& ports)
{
    return wrapped(
        ports, firstOf(AX::readElements(ports.accessibility, dockItemList(ports), AX::Children)));
}

SWElementPtr SWElement::getDockSelectedChild(const platform::Desktop& ports)
{
    return wrapped(ports, firstOf(AX::readElements(ports.accessibility, dockFocusedElement(ports),
                                                   AX::SelectedChildren)));
}

std::optional<std::vector<SWElementPtr>> SWElement::runningApps(const platform::Desktop& ports)
{
    std::vector<SWElementPtr> items;
    items.reserve(3);
    for (const ElementRef& item :
         AX::readElements(ports.accessibility, dockItemList(ports), AX::Children)) {
        if (!checkIfAppIsRunning(ports, item))
            continue;
        const auto url = AX::read<QUrl>(ports.accessibility, item, AX::URL);
        if (!url)
            continue;
        SWElementPtr element = wrapped(ports, item);
        element->setUrl(*url);
        items.push_back(std::move(element));
    }
    if (items.empty())
        return std::nullopt;
    return items;
}

std::optional<RunningApplication>
SWElement::runningAppForProccessListIcon(const platform::Desktop& ports, const ElementRef& icon)
{
    const auto title = titleForElement(ports, icon);
    if (!title)
        return std::nullopt;
    // An item that names its application need not be on the Dock, nor be the only one with that
    // title.
    if (auto application = wrapped(ports, icon)->runningApplicationForDockElement())
        return application;
    for (const SWElementPtr& item : runningApps(ports).value_or(std::vector<SWElementPtr>{}))
        if (titleForElement(ports, item->element()) == title &&
            checkIfAppIsRunning(ports, item->element()))
            return item->runningApplicationForDockElement();
    return std::nullopt;
}

bool SWElement::checkIfAppIsRunning(const platform::Desktop& ports, const ElementRef& dockItem)
{
    return AX::read<bool>(ports.accessibility, dockItem, AX::IsApplicationRunning).value_or(false);
}

bool SWElement::checkIfDockApplication(const platform::Desktop& ports, const ElementRef& dockItem)
{
    return dockItem &&
           ports.accessibility.copyAttributeValue(dockItem, AX::IsApplicationRunning).ok();
}

bool SWElement::checkIfCal(const platform::Desktop& ports, const ElementRef& dockItem)
{
    if (!AX::equals(ports.accessibility, dockItem, AX::Subrole, AX::ApplicationDockItem))
        return false;
    const auto title = titleForElement(ports, dockItem);
    if (title && (*title == QLatin1String("iCal") || *title == QLatin1String("Calendar") ||
                  *title == QLatin1String("BusyCal")))
        return true;
    // Titles are in the user's language, so a calendar's name varies.
    const auto url = AX::read<QUrl>(ports.accessibility, dockItem, AX::URL);
    return url && ports.workspace.roleOfApplication(*url) == platform::ApplicationRole::Calendar;
}

bool SWElement::checkIfBusyCal(const platform::Desktop& ports, const ElementRef& dockItem)
{
    return titleForElement(ports, dockItem) == u"BusyCal"_s &&
           AX::equals(ports.accessibility, dockItem, AX::Subrole, AX::ApplicationDockItem);
}

bool SWElement::checkIfMinimizedWindowIcon(const platform::Desktop& ports,
                                           const ElementRef& dockItem)
{
    return AX::equals(ports.accessibility, dockItem, AX::Subrole, AX::MinimizedWindowDockItem);
}

bool SWElement::checkIfDockFocusedIsAXList(const platform::Desktop& ports)
{
    return AX::equals(ports.accessibility, dockFocusedElement(ports), AX::Subrole,
                      AX::ProcessSwitcherList);
}

std::optional<QString> SWElement::titleForElement(const platform::Desktop& ports,
                                                  const ElementRef& element)
{
    return AX::read<QString>(ports.accessibility, element, AX::Title);
}

bool SWElement::checkIfWindow(const platform::Desktop& ports, const ElementRef& element)
{
    return AX::equals(ports.accessibility, element, AX::Role, AX::WindowRole);
}

void SWElement::activateApp(const platform::Desktop& ports, const ElementRef& application)
{
    platform::Accessibility& accessibility = ports.accessibility;
    accessibility.setAttributeValue(application, AX::Frontmost, true);
    accessibility.setAttributeValue(application, AX::Hidden, false);
}

void SWElement::quitApp(const platform::Desktop& ports)
{
    const QPointF mouse = UIElementUtilities(ports).carbonScreenPointFromCocoaScreenPoint(
        ports.inputState.mouseLocation());
    const SWElementPtr element = elementAtPosition(mouse, systemWideElement(ports));
    if (!element)
        return;
    const ElementRef parent = AX::readElement(ports.accessibility, element->element(), AX::Parent);
    const auto title = titleForElement(ports, parent);
    if (!title || title->isEmpty() ||
        !AX::equals(ports.accessibility, parent, AX::Role, AX::ApplicationRole))
        return;
    // Deliberately loose: the name under the mouse may be longer or shorter than the application's
    // own, and its helper processes must end too.
    for (const RunningApplication& application : ports.workspace.runningApplications()) {
        const QString& name = application.localizedName;
        if (!name.isEmpty() && (name.contains(*title) || title->contains(name)))
            ports.workspace.terminate(application.pid);
    }
}

bool SWElement::checkIfPidHasOpenWindows(const platform::Desktop& ports, std::int32_t pid)
{
    platform::Accessibility& accessibility = ports.accessibility;
    const ElementRef application = accessibility.createApplication(pid);
    if (!application)
        return false;
    const platform::AXResult result = accessibility.copyAttributeValue(application, AX::Windows);
    if (const auto* windows = result.as<std::vector<ElementRef>>()) {
        for (const ElementRef& window : *windows) {
            const auto subrole = AX::read<QString>(accessibility, window, AX::Subrole);
            if (subrole == AX::StandardWindow || subrole == AX::Dialog ||
                subrole == AX::SystemDialog)
                return true;
        }
    }
    // An application that does not answer is assumed to have windows.
    return result.error == platform::AXError::CannotComplete;
}

bool SWElement::checkIfAnyWindowIsOnOtherSpace(const platform::Desktop& ports)
{
    platform::WindowServer& server = ports.windowServer;
    for (const platform::WindowInfo& entry :
         server.copyWindowInfo(platform::WindowListOption::ExcludeDesktopElements))
        if (spaceNumberOfWindow(ports, entry.number) > 1)
            return true;
    return false;
}

int SWElement::spaceNumberOfWindow(const platform::Desktop& ports, WindowID window)
{
    return ports.windowServer.windowWorkspace(window).value_or(0);
}

bool SWElement::testWindow(const platform::Desktop& ports, WindowID window)
{
    if (window == 0)
        return false;
    const auto bounds = ports.windowServer.windowBounds(window);
    if (!bounds || bounds->width() == 0 || bounds->height() == 0)
        return false;
    return bounds->width() >= 50 || bounds->height() >= 50;
}

int SWElement::keyCodeForNumberKey(int digit)
{
    // The digits' virtual key codes follow the keyboard's wiring, not the numbers.
    switch (digit) {
    case 1:
        return 18;
    case 2:
        return 19;
    case 3:
        return 20;
    case 4:
        return 21;
    case 5:
        return 23;
    case 6:
        return 22;
    case 7:
        return 26;
    case 8:
        return 28;
    case 9:
        return 25;
    default:
        return 29;
    }
}

} // namespace lumbrix
