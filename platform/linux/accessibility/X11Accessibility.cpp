// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/X11Accessibility.h"
#include "platform/StringLiterals.h"

#include <QtCore/QCoreApplication>

#include <cmath>

namespace lumbrix::platform
{

using Kind = X11Element::Kind;

X11Accessibility::X11Accessibility(const Parts& parts)
    : m(parts),
      m_attributes({parts.tracker, parts.space, parts.registry, parts.docks, parts.switcher})
{
    m.docks.setSelectionChanged(
        [this] { m_hub->notifyAll(X11Element::dockList(), u"AXSelectedChildrenChanged"_s); });
    m.docks.setMenuOpened(
        [this] { m_hub->notifyAll(X11Element::application(m.docks.pid()), u"AXMenuOpened"_s); });
    m.switcher.setSelectionChanged(
        [this] { m_hub->notifyAll(X11Element::switcherList(), u"AXFocusedUIElementChanged"_s); });
}

X11Accessibility::~X11Accessibility()
{
    m.docks.setSelectionChanged({});
    m.docks.setMenuOpened({});
    m.switcher.setSelectionChanged({});
    m_hub->close();
}

ElementRef X11Accessibility::createApplication(std::int32_t pid)
{
    return m.registry.application(pid) ? X11Element::application(pid) : nullptr;
}

ElementRef X11Accessibility::createSystemWide() { return X11Element::systemWide(); }

AXNames X11Accessibility::copyAttributeNames(const ElementRef& element)
{
    return m_attributes.names(element);
}

AXResult X11Accessibility::copyAttributeValue(const ElementRef& reference, const QString& attribute)
{
    AXResult result = m_attributes.read(reference, attribute);
    if (result.error == AXError::InvalidUIElement && attribute == u"AXRole" &&
        X11Element::from(reference)->isGone())
        return {AXError::Success, u"AXWindow"_s};
    return result;
}

AXResult X11Accessibility::isAttributeSettable(const ElementRef& element, const QString& attribute)
{
    return m_attributes.isSettable(element, attribute);
}

AXError X11Accessibility::setAttributeValue(const ElementRef& reference, const QString& attribute,
                                            const AXValue& value)
{
    const X11Element* element = X11Element::from(reference);
    if (!element)
        return AXError::IllegalArgument;
    switch (element->kind()) {
    case Kind::Application:
        return setApplicationAttribute(element->pid(), attribute, value);
    case Kind::Window:
        return setWindowAttribute(element->windowId(), attribute, value);
    case Kind::SystemWide:
    case Kind::CloseButton:
    case Kind::DockList:
    case Kind::DockItem:
    case Kind::SwitcherList:
    case Kind::SwitcherEntry:
        break;
    }
    return AXError::AttributeUnsupported;
}

AXError X11Accessibility::setApplicationAttribute(std::int32_t pid, const QString& attribute,
                                                  const AXValue& value)
{
    if (!m.registry.application(pid))
        return AXError::InvalidUIElement;
    if (pid == m.registry.dockPid())
        return AXError::AttributeUnsupported; // docks cannot be hidden or brought forward
    const bool* on = std::get_if<bool>(&value);
    if (!on)
        return AXError::IllegalArgument;
    if (attribute == u"AXFrontmost") {
        if (*on)
            m.raiser.activate(pid);
        return AXError::Success;
    }
    if (attribute == u"AXHidden") {
        *on ? m.workspace.hide(pid) : m.workspace.unhide(pid);
        return AXError::Success;
    }
    return AXError::AttributeUnsupported;
}

AXError X11Accessibility::setWindowAttribute(xcb_window_t id, const QString& attribute,
                                             const AXValue& value)
{
    const x11::TrackedWindowPtr window = m.tracker.window(id);
    if (!window)
        return AXError::InvalidUIElement;
    const bool* on = std::get_if<bool>(&value);
    if (!on)
        return AXError::IllegalArgument;
    // Accepted, but done by the raise action that comes with them: a single request to the window
    // manager raises and activates the window; more of them would flicker.
    if (attribute == u"AXFrontmost" || attribute == u"AXFocused" || attribute == u"AXMain")
        return AXError::Success;
    if (attribute == u"AXMinimized") {
        if (*on != window->isIconic)
            *on ? m.tracker.iconify(id) : m.tracker.deiconify(id);
        return AXError::Success;
    }
    return AXError::AttributeUnsupported;
}

const X11Accessibility::Action* X11Accessibility::actionOf(Kind kind)
{
    static constexpr Action raise{u"AXRaise", QT_TRANSLATE_NOOP("Accessibility", "raise"),
                                  [](const Parts& parts, xcb_window_t id) {
                                      parts.switcher.picked(id);
                                      parts.raiser.raise(id);
                                  }};
    static constexpr Action press{
        u"AXPress", QT_TRANSLATE_NOOP("Accessibility", "press"),
        [](const Parts& parts, xcb_window_t id) { parts.tracker.close(id); }};
    switch (kind) {
    case Kind::Window:
        return &raise;
    case Kind::CloseButton:
        return &press;
    default:
        return nullptr;
    }
}

AXNames X11Accessibility::copyActionNames(const ElementRef& reference)
{
    const X11Element* element = X11Element::from(reference);
    if (!element)
        return {AXError::IllegalArgument};
    const Action* action = actionOf(element->kind());
    if (!action)
        return {AXError::Success};
    if (!m.tracker.window(element->windowId()))
        return {AXError::InvalidUIElement};
    return {AXError::Success, {QString::fromUtf16(action->name)}};
}

AXResult X11Accessibility::copyActionDescription(const ElementRef& reference, const QString& name)
{
    const X11Element* element = X11Element::from(reference);
    const Action* action = element ? actionOf(element->kind()) : nullptr;
    if (!action || name != action->name)
        return {AXError::ActionUnsupported};
    return {AXError::Success, QCoreApplication::translate("Accessibility", action->description)};
}

AXError X11Accessibility::performAction(const ElementRef& reference, const QString& name)
{
    const X11Element* element = X11Element::from(reference);
    if (!element)
        return AXError::IllegalArgument;
    const Action* action = actionOf(element->kind());
    if (!action)
        return AXError::ActionUnsupported;
    const x11::TrackedWindowPtr window = m.tracker.window(element->windowId());
    if (!window)
        return AXError::InvalidUIElement;
    if (name != action->name)
        return AXError::ActionUnsupported;
    action->perform(m, window->id);
    return AXError::Success;
}

AXResult X11Accessibility::copyElementAtPosition(float x, float y)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return {AXError::IllegalArgument};
    const QPoint point = m.space.toPixels(QPointF(static_cast<double>(x), static_cast<double>(y)));
    const int desktop = m.tracker.currentDesktop();
    for (const x11::TrackedWindowPtr& window : m.tracker.windows()) {
        const bool isHere = window->desktop < 0 || window->desktop == desktop;
        if (!window->isMapped || window->isIconic || !isHere ||
            !window->bounds.marginsAdded(window->decorations).contains(point))
            continue;
        if (window->type == x11::WindowType::Dock) {
            // A dock's window may be much larger than the part that it draws and that takes clicks.
            if (const DockItemId item = m.docks.itemAt(point))
                return {AXError::Success, X11Element::dockItem(item)};
        } else if (isApplicationWindow(*window)) {
            return {AXError::Success, X11Element::window(window->id)};
        }
    }
    return {AXError::NoValue};
}

std::optional<std::int32_t> X11Accessibility::pidOf(const ElementRef& reference)
{
    const X11Element* element = X11Element::from(reference);
    if (!element)
        return std::nullopt;
    switch (element->kind()) {
    case Kind::SystemWide:
        return std::nullopt;
    case Kind::Application:
        return element->pid();
    case Kind::DockList:
    case Kind::DockItem:
        return m.docks.pid();
    case Kind::SwitcherList:
    case Kind::SwitcherEntry:
        return m.registry.dockPid();
    case Kind::Window:
    case Kind::CloseButton:
        break;
    }
    const x11::TrackedWindowPtr window = m.tracker.window(element->windowId());
    return window ? std::optional(m.registry.ownerPidOf(*window)) : std::nullopt;
}

std::optional<WindowID> X11Accessibility::windowIDOf(const ElementRef& reference)
{
    const X11Element* element = X11Element::from(reference);
    if (element && element->kind() == Kind::DockItem) {
        const auto item = m.docks.item(element->dockItemId());
        return item ? item->window : std::nullopt;
    }
    if (element && element->kind() == Kind::SwitcherEntry) {
        const xcb_window_t window = element->entryWindow();
        return window ? std::optional(window) : std::nullopt;
    }
    if (!element || element->kind() != Kind::Window)
        return std::nullopt;
    return element->windowId();
}

std::unique_ptr<AXObserver> X11Accessibility::createObserver(std::int32_t pid,
                                                             AXObserver::Callback callback)
{
    return m.registry.application(pid) ? m_hub->createObserver(pid, std::move(callback)) : nullptr;
}

void X11Accessibility::post(std::int32_t pid, const ElementRef& element, const char* notification)
{
    m.runLoop.performOnMainThread(
        [hub = std::weak_ptr(m_hub), pid, element, name = QString::fromLatin1(notification)] {
            if (const auto open = hub.lock())
                open->notify(pid, element, name);
        },
        false);
}

void X11Accessibility::Additions::windowAdded(const x11::TrackedWindowPtr& window)
{
    if (isApplicationWindow(*window)) {
        owner.post(owner.m.registry.ownerPidOf(*window), X11Element::window(window->id),
                   "AXWindowCreated");
    }
}

void X11Accessibility::Additions::windowChanged(const x11::TrackedWindowPtr& before,
                                                const x11::TrackedWindowPtr& after)
{
    if (!isSameOwner(*before, *after))
        windowAdded(after);
}

void X11Accessibility::Removals::windowChanged(const x11::TrackedWindowPtr& before,
                                               const x11::TrackedWindowPtr& after)
{
    if (!isSameOwner(*before, *after))
        windowRemoved(before);
}

void X11Accessibility::Removals::windowRemoved(const x11::TrackedWindowPtr& last)
{
    if (isApplicationWindow(*last)) {
        owner.post(owner.m.registry.ownerPidOf(*last), X11Element::goneWindow(last->id),
                   "AXUIElementDestroyed");
    }
}

} // namespace lumbrix::platform
