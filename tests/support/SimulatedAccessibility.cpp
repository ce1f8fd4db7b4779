// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "tests/support/SimulatedPorts.h"

namespace lumbrix::test
{

using platform::AXError;
using platform::AXObserver;
using platform::AXResult;
using platform::AXValue;
using platform::ElementRef;
using Kind = SimulatedElement::Kind;

namespace
{

AXResult answer(AXValue value) { return {AXError::Success, std::move(value)}; }
AXResult answer(const char16_t* text) { return answer(AXValue(QString::fromUtf16(text))); }
AXResult refusal(AXError error) { return {error, {}}; }
const AXResult unsupported = refusal(AXError::AttributeUnsupported);
AXResult orNoValue(const ElementRef& element)
{
    return element ? answer(element) : refusal(AXError::NoValue);
}

const SimulatedElement& own(const ElementRef& element)
{
    return dynamic_cast<const SimulatedElement&>(*element);
}

std::vector<ElementRef> windowElements(SimulatedState& state, Pid pid)
{
    std::vector<ElementRef> elements;
    for (const WindowID number : state.windowsOf(pid))
        elements.push_back(makeElement(Kind::Window, pid, number));
    return elements;
}

class SimulatedObserver final : public AXObserver
{
public:
    SimulatedObserver(SimulatedState& state, Pid pid, Callback callback)
        : m_state(state), m_observation(std::make_shared<SimulatedObservation>())
    {
        m_observation->observer = this;
        m_observation->pid = pid;
        m_observation->callback = std::move(callback);
        const std::lock_guard lock(m_state.mutex);
        m_state.observations.push_back(m_observation);
    }
    ~SimulatedObserver() override
    {
        const std::lock_guard lock(m_state.mutex);
        std::erase(m_state.observations, m_observation);
    }
    AXError addNotification(const ElementRef& element, const QString& notification,
                            platform::NotificationContext* context) override
    {
        const std::lock_guard lock(m_state.mutex);
        const SimulatedApplication* application = m_state.application(m_observation->pid);
        if (!element || !application)
            return AXError::InvalidUIElement;
        if (!application->responds)
            return AXError::CannotComplete;
        m_observation->requests.push_back({element, notification, context});
        return AXError::Success;
    }
    void addToRunLoop() override
    {
        const std::lock_guard lock(m_state.mutex);
        m_observation->isInRunLoop = true;
    }

private:
    SimulatedState& m_state;
    const std::shared_ptr<SimulatedObservation> m_observation;
};

} // namespace

void SimulatedAccessibility::enableAPI()
{
    const std::lock_guard lock(m_state.mutex);
    m_state.isAccessibilityEnabled |= m_state.isAccessibilityGranted;
}

ElementRef SimulatedAccessibility::createApplication(std::int32_t pid)
{
    return m_state.locked()->application(pid) ? makeElement(Kind::Application, pid) : nullptr;
}

ElementRef SimulatedAccessibility::createSystemWide() { return makeElement(Kind::SystemWide, 0); }

Pid SimulatedAccessibility::ownerOf(const SimulatedElement& element)
{
    const bool isOfWindow = element.kind == Kind::Window || element.kind == Kind::CloseButton ||
                            element.kind == Kind::Content;
    const SimulatedWindow* window = isOfWindow ? m_state.window(element.id) : nullptr;
    return window ? window->pid : element.pid;
}

AXError SimulatedAccessibility::stateOf(const SimulatedElement& element)
{
    if (element.kind == Kind::SystemWide)
        return AXError::Success;
    const SimulatedApplication* application = m_state.application(ownerOf(element));
    const auto exists = [&]() -> bool {
        switch (element.kind) {
        case Kind::Window:
        case Kind::CloseButton:
        case Kind::Content:
            return m_state.window(element.id);
        case Kind::DockItem:
            return element.pid == m_state.dockPid && m_state.dockItem(element.id);
        case Kind::SwitcherList:
            return element.pid == m_state.dockPid && m_state.switcher;
        case Kind::SwitcherEntry:
            return element.pid == m_state.dockPid && m_state.switcherEntry(element.id);
        default:
            return true;
        }
    };
    if (!application || !exists())
        return AXError::InvalidUIElement;
    return application->responds ? AXError::Success : AXError::CannotComplete;
}

AXResult SimulatedAccessibility::copyAttributeValue(const ElementRef& element,
                                                    const QString& attribute)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (!m_state.isAccessibilityEnabled)
        return refusal(AXError::APIDisabled);
    if (const AXError error = stateOf(target); error != AXError::Success) {
        const bool tellsRole = m_state.destroyedWindowsTellRole && target.kind == Kind::Window &&
                               error == AXError::InvalidUIElement && attribute == u"AXRole";
        return tellsRole ? answer(u"AXWindow") : refusal(error);
    }
    const Attributes attributes = attributesOf(target);
    const auto found = std::find_if(attributes.rbegin(), attributes.rend(),
                                    [&](const auto& each) { return each.first == attribute; });
    return found == attributes.rend() ? unsupported : found->second;
}

platform::AXNames SimulatedAccessibility::copyAttributeNames(const ElementRef& element)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return {error};
    platform::AXNames result{AXError::Success};
    for (const auto& [name, value] : attributesOf(target))
        if (value.error != AXError::AttributeUnsupported)
            result.names.push_back(name);
    return result;
}

AXResult SimulatedAccessibility::isAttributeSettable(const ElementRef& element,
                                                     const QString& attribute)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return refusal(error);
    const bool isWindow = target.kind == Kind::Window;
    return answer((isWindow && (attribute == u"AXMinimized" ||
                                m_state.window(target.id)->attributes.count(attribute) != 0)) ||
                  (target.kind == Kind::Application &&
                   (attribute == u"AXHidden" || attribute == u"AXFrontmost")));
}

SimulatedAccessibility::Attributes
SimulatedAccessibility::attributesOf(const SimulatedElement& element)
{
    switch (element.kind) {
    case Kind::SystemWide:
        return {{u"AXFocusedApplication"_s, orNoValue(createApplication(m_state.activePid))}};
    case Kind::Application:
        return applicationAttributes(element.pid);
    case Kind::Window:
    case Kind::CloseButton:
    case Kind::Content:
        return windowAttributes(element);
    case Kind::DockList:
    case Kind::DockItem:
        return dockAttributes(element);
    default:
        return switcherAttributes(element);
    }
}

SimulatedAccessibility::Attributes SimulatedAccessibility::applicationAttributes(Pid pid)
{
    const SimulatedApplication& application = *m_state.application(pid);
    const bool isDock = pid == m_state.dockPid;
    const auto windows = windowElements(m_state, pid);
    const std::vector<ElementRef> docks{makeElement(Kind::DockList, pid)};
    const ElementRef switcher = m_state.switcher ? makeElement(Kind::SwitcherList, pid) : nullptr;
    return {
        {u"AXRole"_s, answer(u"AXApplication")},
        {u"AXTitle"_s, answer(application.name)},
        {u"AXChildren"_s, answer(isDock ? docks : windows)},
        {u"AXWindows"_s, answer(windows)},
        {u"AXFocusedUIElement"_s, isDock ? orNoValue(switcher) : unsupported},
        {u"AXFocusedWindow"_s, orNoValue(windows.empty() ? nullptr : windows.front())},
        {u"AXHidden"_s, answer(application.isHidden)},
        {u"AXFrontmost"_s, answer(pid == m_state.activePid)},
    };
}

SimulatedAccessibility::Attributes
SimulatedAccessibility::windowAttributes(const SimulatedElement& element)
{
    const SimulatedWindow& window = *m_state.window(element.id);
    const ElementRef itself = makeElement(Kind::Window, element.pid, element.id);
    if (element.kind != Kind::Window) {
        const bool isButton = element.kind == Kind::CloseButton;
        return {
            {u"AXRole"_s, isButton ? answer(u"AXButton") : answer(u"AXGroup")},
            {u"AXParent"_s, answer(itself)},
            {u"AXWindow"_s, answer(itself)},
            {u"AXEnabled"_s, isButton ? answer(window.isClosable) : unsupported},
        };
    }
    std::vector<ElementRef> children;
    if (window.hasContent)
        children.push_back(makeElement(Kind::Content, element.pid, element.id));
    Attributes result{
        {u"AXRole"_s, answer(window.role)},
        {u"AXSubrole"_s, window.subrole.isNull() ? unsupported : answer(window.subrole)},
        {u"AXTitle"_s, answer(window.title)},
        {u"AXParent"_s, answer(makeElement(Kind::Application, element.pid))},
        {u"AXChildren"_s, answer(children)},
        {u"AXPosition"_s, answer(window.frame.topLeft())},
        {u"AXSize"_s, answer(window.frame.size())},
        {u"AXMinimized"_s, answer(window.isMinimized)},
        {u"AXCloseButton"_s, answer(makeElement(Kind::CloseButton, element.pid, element.id))},
    };
    for (const auto& [name, value] : window.attributes)
        result.emplace_back(name, answer(value));
    return result;
}

SimulatedAccessibility::Attributes
SimulatedAccessibility::dockAttributes(const SimulatedElement& element)
{
    if (element.kind == Kind::DockList) {
        std::vector<ElementRef> children;
        std::vector<ElementRef> selected;
        for (const SimulatedDockItem& item : m_state.dockItems) {
            children.push_back(makeElement(Kind::DockItem, element.pid, item.id));
            if (item.id == m_state.hoveredItem)
                selected.push_back(children.back());
        }
        return {{u"AXRole"_s, answer(u"AXList")},
                {u"AXChildren"_s, answer(children)},
                {u"AXSelectedChildren"_s, answer(selected)}};
    }
    static constexpr const char16_t* subroles[] = {
        u"AXApplicationDockItem", u"AXMinimizedWindowDockItem", u"AXSeparatorDockItem",
        u"AXFolderDockItem", u"AXTrashDockItem"};
    const SimulatedDockItem& item = *m_state.dockItem(element.id);
    const bool isApplication = item.kind == SimulatedDockItem::Kind::Application;
    const bool isRunning = m_state.applicationAt(item.url) != nullptr;
    std::vector<ElementRef> windows;
    for (const WindowID number : item.chosen.value_or(std::vector<WindowID>())) {
        const SimulatedWindow* window = m_state.window(number);
        windows.push_back(makeElement(Kind::Window, window ? window->pid : 0, number));
    }
    return {
        {u"AXRole"_s, answer(u"AXDockItem")},
        {u"AXSubrole"_s, answer(subroles[static_cast<int>(item.kind)])},
        {u"AXTitle"_s, answer(item.title)},
        {u"AXWindows"_s, item.chosen ? answer(windows) : unsupported},
        {u"AXPosition"_s, answer(item.frame.topLeft())},
        {u"AXSize"_s, answer(item.frame.size())},
        {u"AXHidden"_s, answer(m_state.isDockHidden)},
        {u"AXURL"_s, isApplication ? answer(item.url) : unsupported},
        {u"AXOwner"_s,
         item.owner != 0 ? answer(makeElement(Kind::Application, item.owner, 0)) : unsupported},
        {u"AXIsApplicationRunning"_s, isApplication ? answer(isRunning) : unsupported},
    };
}

SimulatedAccessibility::Attributes
SimulatedAccessibility::switcherAttributes(const SimulatedElement& element)
{
    if (element.kind == Kind::SwitcherList) {
        std::vector<ElementRef> children;
        for (const SimulatedSwitcherEntry& entry : *m_state.switcher)
            children.push_back(makeElement(Kind::SwitcherEntry, element.pid, entry.id));
        std::vector<ElementRef> selected;
        if (m_state.switcherSelection < children.size())
            selected.push_back(children[m_state.switcherSelection]);
        return {{u"AXSubrole"_s, answer(u"AXProcessSwitcherList")},
                {u"AXChildren"_s, answer(children)},
                {u"AXSelectedChildren"_s, answer(selected)}};
    }
    const SimulatedSwitcherEntry& entry = *m_state.switcherEntry(element.id);
    return {
        {u"AXTitle"_s, answer(entry.title)},
        {u"AXPosition"_s, answer(QPointF(660, 400))}, // where in the list matters to nobody
        {u"AXSize"_s, answer(QSizeF(120, 120))},
        {u"AXURL"_s, entry.url.isEmpty() ? unsupported : answer(entry.url)},
        {u"AXIsApplicationRunning"_s, entry.isRunning ? answer(*entry.isRunning) : unsupported},
    };
}

AXError SimulatedAccessibility::setAttributeValue(const ElementRef& element,
                                                  const QString& attribute, const AXValue& value)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return error;
    if (SimulatedWindow* window =
            target.kind == Kind::Window ? m_state.window(target.id) : nullptr) {
        const auto extra = window->attributes.find(attribute);
        if (extra != window->attributes.end()) {
            extra->second = value;
            return AXError::Success;
        }
    }
    const bool* on = std::get_if<bool>(&value);
    if (!on)
        return AXError::IllegalArgument;
    if (attribute == u"AXFrontmost" && *on)
        m_state.activate(ownerOf(target));
    else if (target.kind == Kind::Application && attribute == u"AXHidden")
        m_state.setHidden(target.pid, *on);
    else if (target.kind == Kind::Window && attribute == u"AXMinimized")
        m_state.setMinimized(target.id, *on);
    else if (target.kind != Kind::Window || attribute != u"AXFocused")
        return AXError::AttributeUnsupported;
    return AXError::Success;
}

platform::AXNames SimulatedAccessibility::copyActionNames(const ElementRef& element)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return {error};
    if (target.kind == Kind::Window)
        return {AXError::Success, {u"AXRaise"_s}};
    if (target.kind == Kind::CloseButton)
        return {AXError::Success, {u"AXPress"_s}};
    return {AXError::Success};
}

AXResult SimulatedAccessibility::copyActionDescription(const ElementRef& element,
                                                       const QString& action)
{
    const platform::AXNames actions = SimulatedAccessibility::copyActionNames(element);
    if (!actions.ok() ||
        std::find(actions.names.begin(), actions.names.end(), action) == actions.names.end())
        return refusal(AXError::ActionUnsupported);
    return answer(action == u"AXRaise" ? u"raise" : u"press");
}

AXError SimulatedAccessibility::performAction(const ElementRef& element, const QString& action)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return error;
    if (target.kind == Kind::Window && action == u"AXRaise") {
        m_state.raise(target.id);
    } else if (target.kind == Kind::CloseButton && action == u"AXPress") {
        if (!m_state.window(target.id)->isClosable)
            return AXError::Failure;
        m_state.close(target.id);
    } else {
        return AXError::ActionUnsupported;
    }
    return AXError::Success;
}

AXResult SimulatedAccessibility::copyElementAtPosition(float x, float y)
{
    const std::lock_guard lock(m_state.mutex);
    const QPointF point(static_cast<double>(x), static_cast<double>(y));
    for (const SimulatedDockItem& item : m_state.dockItems)
        if (m_state.dockPid && item.frame.contains(point))
            return answer(makeElement(Kind::DockItem, m_state.dockPid, item.id));
    for (const WindowID number : m_state.stacking) {
        const SimulatedWindow& window = *m_state.window(number);
        if (m_state.isOnscreen(window) && window.frame.contains(point))
            return answer(
                makeElement(window.hasContent ? Kind::Content : Kind::Window, window.pid, number));
    }
    return refusal(AXError::NoValue);
}

std::optional<std::int32_t> SimulatedAccessibility::pidOf(const ElementRef& element)
{
    const std::lock_guard lock(m_state.mutex);
    return element ? std::optional(ownerOf(own(element))) : std::nullopt;
}

std::optional<WindowID> SimulatedAccessibility::windowIDOf(const ElementRef& element)
{
    const std::lock_guard lock(m_state.mutex);
    if (!element || !m_state.knowsWindowNumbers)
        return std::nullopt;
    const SimulatedElement& target = own(element);
    if (target.kind == Kind::Window)
        return target.id;
    WindowID window = 0;
    if (target.kind == Kind::DockItem && m_state.dockItem(target.id))
        window = m_state.dockItem(target.id)->window;
    else if (target.kind == Kind::SwitcherEntry && m_state.switcherEntry(target.id))
        window = m_state.switcherEntry(target.id)->window;
    return window != 0 ? std::optional(window) : std::nullopt;
}

std::unique_ptr<AXObserver> SimulatedAccessibility::createObserver(std::int32_t pid,
                                                                   AXObserver::Callback callback)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedApplication* application = m_state.application(pid);
    if (!application || !application->isObservable)
        return nullptr;
    return std::make_unique<SimulatedObserver>(m_state, pid, std::move(callback));
}

} // namespace lumbrix::test
