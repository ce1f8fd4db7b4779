// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The questions of SWElement that are put to the Dock, the window server and whole applications
// rather than to one record.
#include "model/AXRead.h"
#include "model/BundleIdentifiers.h"
#include "model/SWElement.h"
#include "model/UIElementUtilities.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::RunningApplication;
using platform::WindowID;

namespace
{

SWElementPtr wrapped(const ElementRef& element)
{
    return element ? std::make_shared<SWElement>(element) : nullptr;
}

ElementRef firstOf(const std::vector<ElementRef>& elements)
{
    return elements.empty() ? nullptr : elements.front();
}

ElementRef dockApplication()
{
    const std::int32_t pid = SWElement::getDockPid();
    return pid ? platform::desktop().accessibility.createApplication(pid) : nullptr;
}

ElementRef dockItemList() { return firstOf(AX::readElements(dockApplication(), AX::Children)); }

ElementRef dockFocusedElement() { return AX::readElement(dockApplication(), AX::FocusedUIElement); }

} // namespace

SWElementPtr SWElement::systemWideElement()
{
    return wrapped(platform::desktop().accessibility.createSystemWide());
}

SWElementPtr SWElement::elementWithElementRef(const ElementRef& element)
{
    return wrapped(element);
}

SWElementPtr SWElement::elementAtPosition(QPointF point, const SWElementPtr& systemWide)
{
    if (!systemWide)
        return nullptr;
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    const platform::AXResult hit = accessibility.copyElementAtPosition(
        static_cast<float>(point.x()), static_cast<float>(point.y()));
    const ElementRef* element = hit.as<ElementRef>();
    if (!element || !*element)
        return nullptr;
    if (const ElementRef window = AX::readElement(*element, AX::Window))
        return wrapped(window);
    // An element that will not tell its role is kept: it may well be a window.
    const auto role = AX::read<QString>(*element, AX::Role);
    return !role || *role == AX::WindowRole ? wrapped(*element) : nullptr;
}

SWElementPtr SWElement::elementOfFocusedWindow()
{
    const SWElementPtr systemWide = systemWideElement();
    if (!systemWide)
        return nullptr;
    const ElementRef application = AX::readElement(systemWide->element(), AX::FocusedApplication);
    return wrapped(AX::readElement(application, AX::FocusedWindow));
}

std::vector<SWElementPtr> SWElement::elementsForElementRef(const ElementRef& application)
{
    std::vector<SWElementPtr> elements;
    for (const ElementRef& window : AX::readElements(application, AX::Windows)) {
        if (SWElementPtr element = wrapped(window))
            elements.push_back(std::move(element));
    }
    return elements;
}

std::int32_t SWElement::getDockPid()
{
    for (const RunningApplication& application :
         platform::desktop().workspace.runningApplications()) {
        if (application.bundleIdentifier == BundleIdentifier::Dock)
            return application.pid;
    }
    return 0;
}

SWElementPtr SWElement::getFirstDockElement()
{
    return wrapped(firstOf(AX::readElements(dockItemList(), AX::Children)));
}

SWElementPtr SWElement::getDockSelectedChild()
{
    return wrapped(firstOf(AX::readElements(dockFocusedElement(), AX::SelectedChildren)));
}

std::optional<std::vector<SWElementPtr>> SWElement::runningApps()
{
    std::vector<SWElementPtr> items;
    items.reserve(3);
    for (const ElementRef& item : AX::readElements(dockItemList(), AX::Children)) {
        if (!checkIfAppIsRunning(item))
            continue;
        const auto url = AX::read<QUrl>(item, AX::URL);
        if (!url)
            continue;
        SWElementPtr element = wrapped(item);
        element->setUrl(*url);
        items.push_back(std::move(element));
    }
    if (items.empty())
        return std::nullopt;
    return items;
}

std::optional<RunningApplication> SWElement::runningAppForProccessListIcon(const ElementRef& icon)
{
    const auto title = titleForElement(icon);
    if (!title)
        return std::nullopt;
    // One that says which application it stands for need not be on the Dock, nor be the only one
    // of that name.
    if (auto application = wrapped(icon)->runningApplicationForDockElement())
        return application;
    for (const SWElementPtr& item : runningApps().value_or(std::vector<SWElementPtr>{})) {
        if (titleForElement(item->element()) == title && checkIfAppIsRunning(item->element()))
            return item->runningApplicationForDockElement();
    }
    return std::nullopt;
}

bool SWElement::checkIfAppIsRunning(const ElementRef& dockItem)
{
    return AX::read<bool>(dockItem, AX::IsApplicationRunning).value_or(false);
}

bool SWElement::checkIfDockApplication(const ElementRef& dockItem)
{
    return dockItem && platform::desktop()
                           .accessibility.copyAttributeValue(dockItem, AX::IsApplicationRunning)
                           .ok();
}

bool SWElement::checkIfCal(const ElementRef& dockItem)
{
    if (!AX::equals(dockItem, AX::Subrole, AX::ApplicationDockItem))
        return false;
    const auto title = titleForElement(dockItem);
    if (title && (*title == QLatin1String("iCal") || *title == QLatin1String("Calendar") ||
                  *title == QLatin1String("BusyCal")))
        return true;
    // Titles are in the user's language, and calendars have other names elsewhere.
    const auto url = AX::read<QUrl>(dockItem, AX::URL);
    return url && platform::desktop().workspace.roleOfApplication(*url) ==
                      platform::ApplicationRole::Calendar;
}

bool SWElement::checkIfBusyCal(const ElementRef& dockItem)
{
    return titleForElement(dockItem) == QStringLiteral("BusyCal") &&
           AX::equals(dockItem, AX::Subrole, AX::ApplicationDockItem);
}

bool SWElement::checkIfMinimizedWindowIcon(const ElementRef& dockItem)
{
    return AX::equals(dockItem, AX::Subrole, AX::MinimizedWindowDockItem);
}

bool SWElement::checkIfDockFocusedIsAXList()
{
    return AX::equals(dockFocusedElement(), AX::Subrole, AX::ProcessSwitcherList);
}

std::optional<QString> SWElement::titleForElement(const ElementRef& element)
{
    return AX::read<QString>(element, AX::Title);
}

bool SWElement::checkIfWindow(const ElementRef& element)
{
    return AX::equals(element, AX::Role, AX::WindowRole);
}

void SWElement::activateApp(const ElementRef& application)
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    accessibility.setAttributeValue(application, AX::Frontmost, true);
    accessibility.setAttributeValue(application, AX::Hidden, false);
}

void SWElement::quitApp()
{
    const platform::Desktop& desktop = platform::desktop();
    const QPointF mouse = UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(
        desktop.inputState.mouseLocation());
    const SWElementPtr element = elementAtPosition(mouse, systemWideElement());
    if (!element)
        return;
    const ElementRef parent = AX::readElement(element->element(), AX::Parent);
    const auto title = titleForElement(parent);
    if (!title || title->isEmpty() || !AX::equals(parent, AX::Role, AX::ApplicationRole))
        return;
    // Deliberately loose: the name under the mouse may be longer or shorter than the
    // application's own, and its helpers go with it.
    for (const RunningApplication& application : desktop.workspace.runningApplications()) {
        const QString& name = application.localizedName;
        if (!name.isEmpty() && (name.contains(*title) || title->contains(name)))
            desktop.workspace.terminate(application.pid);
    }
}

bool SWElement::checkIfPidHasOpenWindows(std::int32_t pid)
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    const ElementRef application = accessibility.createApplication(pid);
    if (!application)
        return false;
    const platform::AXResult result = accessibility.copyAttributeValue(application, AX::Windows);
    if (const auto* windows = result.as<std::vector<ElementRef>>()) {
        for (const ElementRef& window : *windows) {
            const auto subrole = AX::read<QString>(window, AX::Subrole);
            if (subrole == AX::StandardWindow || subrole == AX::Dialog ||
                subrole == AX::SystemDialog)
                return true;
        }
    }
    // An application that does not answer is assumed to have windows.
    return result.error == platform::AXError::CannotComplete;
}

bool SWElement::checkIfAnyWindowIsOnOtherSpace()
{
    platform::WindowServer& server = platform::desktop().windowServer;
    for (const platform::WindowInfo& entry :
         server.copyWindowInfo(platform::WindowListOption::ExcludeDesktopElements)) {
        if (spaceNumberOfWindow(entry.number) > 1)
            return true;
    }
    return false;
}

int SWElement::spaceNumberOfWindow(WindowID window)
{
    return platform::desktop().windowServer.windowWorkspace(window).value_or(0);
}

bool SWElement::testWindow(WindowID window)
{
    if (window == 0)
        return false;
    const auto bounds = platform::desktop().windowServer.windowBounds(window);
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
