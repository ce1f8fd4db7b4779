// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The attributes that each kind of element can be read for.
#include <algorithm>

#include "platform/linux/accessibility/X11Accessibility.h"

namespace lumbrix::platform
{

namespace
{

AXResult value(AXValue what) { return {AXError::Success, std::move(what)}; }

AXResult text(const char* what) { return value(QString::fromLatin1(what)); }

AXResult unsupported() { return {AXError::AttributeUnsupported}; }

AXResult elements(std::vector<ElementRef> what) { return value(std::move(what)); }

AXResult elementOrNone(const ElementRef& element)
{
    return element ? value(element) : AXResult{AXError::NoValue};
}

const char* subroleOf(const x11::TrackedWindow& window)
{
    switch (window.type) {
    case x11::WindowType::Dialog:
        return "AXDialog";
    case x11::WindowType::Utility:
    case x11::WindowType::Toolbar:
    case x11::WindowType::Splash:
        return "AXFloatingWindow";
    default:
        return window.skipTaskbar ? "AXSystemFloatingWindow" : "AXStandardWindow";
    }
}

} // namespace

std::int32_t X11Accessibility::activePid() const
{
    const x11::TrackedWindowPtr active = m.tracker.window(m.tracker.activeWindow());
    return active && isApplicationWindow(*active) ? m.registry.ownerPidOf(*active) : 0;
}

ElementRef X11Accessibility::selectedItem() const
{
    const DockItemId selected = m.docks.selectedItem();
    return selected != 0 ? X11Element::dockItem(selected) : nullptr;
}

AXResult X11Accessibility::systemWideAttribute(const QString& attribute)
{
    if (attribute == u"AXRole") {
        return text("AXSystemWide");
    }
    if (attribute == u"AXFocusedApplication") {
        const std::int32_t pid = activePid();
        return elementOrNone(pid != 0 ? X11Element::application(pid) : nullptr);
    }
    return unsupported();
}

AXResult X11Accessibility::applicationAttribute(std::int32_t pid, const QString& attribute)
{
    const auto application = m.registry.application(pid);
    if (!application) {
        return {AXError::InvalidUIElement};
    }
    if (attribute == u"AXRole") {
        return text("AXApplication");
    }
    if (attribute == u"AXTitle") {
        return value(application->running.localizedName);
    }
    if (pid == m.docks.pid()) {
        return dockAttribute(attribute);
    }
    if (attribute == u"AXWindows" || attribute == u"AXChildren") {
        return windowsOf(*application);
    }
    if (attribute == u"AXHidden") {
        return value(application->isHidden);
    }
    if (attribute == u"AXFrontmost") {
        return value(activePid() == pid);
    }
    if (attribute == u"AXFocusedWindow" || attribute == u"AXMainWindow") {
        const bool isActive = activePid() == pid;
        return elementOrNone(isActive ? X11Element::window(m.tracker.activeWindow()) : nullptr);
    }
    return unsupported();
}

AXResult X11Accessibility::dockAttribute(const QString& attribute)
{
    if (attribute == u"AXChildren") {
        return elements({X11Element::dockList()});
    }
    if (attribute == u"AXFocusedUIElement") {
        return value(X11Element::dockList());
    }
    if (attribute == u"AXWindows") {
        return elements({});
    }
    if (attribute == u"AXHidden" || attribute == u"AXFrontmost") {
        return value(false);
    }
    return unsupported();
}

AXResult X11Accessibility::windowsOf(const Application& application) const
{
    std::vector<ElementRef> result;
    bool anyResponds = false;
    for (const x11::TrackedWindowPtr& window : m.tracker.windows()) {
        if (std::ranges::find(application.windows, window->id) != application.windows.end()) {
            result.push_back(X11Element::window(window->id));
            anyResponds = anyResponds || window->isResponding;
        }
    }
    if (!result.empty() && !anyResponds) {
        return {AXError::CannotComplete};
    }
    return elements(std::move(result));
}

AXResult X11Accessibility::windowAttribute(const x11::TrackedWindow& window,
                                           const QString& attribute)
{
    if (attribute == u"AXRole") {
        return text("AXWindow");
    }
    if (attribute == u"AXSubrole") {
        return text(subroleOf(window));
    }
    if (attribute == u"AXTitle") {
        return value(window.title);
    }
    if (attribute == u"AXPosition") {
        return value(m.space.toPoints(window.bounds).topLeft());
    }
    if (attribute == u"AXSize") {
        return value(m.space.toPoints(window.bounds).size());
    }
    if (attribute == u"AXMinimized") {
        return value(window.isIconic);
    }
    if (attribute == u"AXFrontmost" || attribute == u"AXFocused" || attribute == u"AXMain") {
        return value(m.tracker.activeWindow() == window.id);
    }
    if (attribute == u"AXFullScreen") {
        return value(window.isFullscreen);
    }
    if (attribute == u"AXCloseButton") {
        return value(X11Element::closeButton(window.id));
    }
    if (attribute == u"AXChildren") {
        return elements({X11Element::closeButton(window.id)});
    }
    if (attribute == u"AXParent") {
        return value(X11Element::application(m.registry.ownerPidOf(window)));
    }
    return unsupported();
}

AXResult X11Accessibility::closeButtonAttribute(const x11::TrackedWindow& window,
                                                const QString& attribute)
{
    if (attribute == u"AXRole") {
        return text("AXButton");
    }
    if (attribute == u"AXSubrole") {
        return text("AXCloseButton");
    }
    if (attribute == u"AXEnabled") {
        return value(window.canDelete);
    }
    if (attribute == u"AXWindow" || attribute == u"AXParent") {
        return value(X11Element::window(window.id));
    }
    return unsupported();
}

AXResult X11Accessibility::dockListAttribute(const QString& attribute)
{
    if (m.docks.pid() == 0) {
        return {AXError::InvalidUIElement};
    }
    if (attribute == u"AXRole") {
        return text("AXList");
    }
    if (attribute == u"AXSubrole") {
        return {AXError::NoValue};
    }
    if (attribute == u"AXParent") {
        return value(X11Element::application(m.docks.pid()));
    }
    if (attribute == u"AXChildren") {
        std::vector<ElementRef> result;
        for (const DockItemId id : m.docks.items()) {
            result.push_back(X11Element::dockItem(id));
        }
        return elements(std::move(result));
    }
    if (attribute == u"AXSelectedChildren") {
        const ElementRef selected = selectedItem();
        return elements(selected ? std::vector{selected} : std::vector<ElementRef>());
    }
    return unsupported();
}

AXResult X11Accessibility::dockItemAttribute(DockItemId id, const QString& attribute)
{
    const auto item = m.docks.item(id);
    if (!item) {
        return {AXError::InvalidUIElement};
    }
    if (attribute == u"AXRole") {
        return text("AXDockItem");
    }
    if (attribute == u"AXSubrole") {
        return text(item->isMinimizedWindow ? "AXMinimizedWindowDockItem"
                                            : "AXApplicationDockItem");
    }
    if (attribute == u"AXTitle") {
        return value(item->title);
    }
    if (attribute == u"AXPosition") {
        return value(m.space.toPoints(item->rect).topLeft());
    }
    if (attribute == u"AXSize") {
        return value(m.space.toPoints(item->rect).size());
    }
    if (attribute == u"AXParent") {
        return value(X11Element::dockList());
    }
    // An item that says whether its application runs is taken for an application's.
    if (attribute == u"AXIsApplicationRunning" && !item->isMinimizedWindow) {
        return value(item->isRunning);
    }
    if (attribute == u"AXURL" && !item->url.isEmpty()) {
        return value(item->url);
    }
    return unsupported();
}

} // namespace lumbrix::platform
