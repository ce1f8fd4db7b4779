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

bool SimulatedAccessibility::apiEnabled() const
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.isAccessibilityEnabled;
}

void SimulatedAccessibility::enableAPI()
{
    const std::lock_guard lock(m_state.mutex);
    m_state.isAccessibilityEnabled |= m_state.isAccessibilityGranted;
}

ElementRef SimulatedAccessibility::createApplication(std::int32_t pid)
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.application(pid) ? makeElement(Kind::Application, pid) : nullptr;
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
    bool exists = application != nullptr;
    switch (element.kind) {
    case Kind::Window:
    case Kind::CloseButton:
    case Kind::Content:
        exists = exists && m_state.window(element.id);
        break;
    case Kind::DockItem:
        exists = exists && element.pid == m_state.dockPid && m_state.dockItem(element.id);
        break;
    case Kind::SwitcherList:
    case Kind::SwitcherEntry:
        exists = exists && element.pid == m_state.dockPid && m_state.switcher;
        break;
    default:
        break;
    }
    if (!exists)
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
                               error == AXError::InvalidUIElement &&
                               attribute == QLatin1String("AXRole");
        return tellsRole ? answer(u"AXWindow") : refusal(error);
    }
    switch (target.kind) {
    case Kind::SystemWide:
        return systemWideValue(attribute);
    case Kind::Application:
        return applicationValue(target.pid, attribute);
    case Kind::Window:
    case Kind::CloseButton:
    case Kind::Content:
        return windowValue(target, attribute);
    case Kind::DockList:
    case Kind::DockItem:
        return dockValue(target, attribute);
    default:
        return switcherValue(target, attribute);
    }
}

platform::AXNames SimulatedAccessibility::copyAttributeNames(const ElementRef& element)
{
    static constexpr const char16_t* known[] = {
        u"AXRole",
        u"AXSubrole",
        u"AXTitle",
        u"AXParent",
        u"AXChildren",
        u"AXSelectedChildren",
        u"AXWindow",
        u"AXWindows",
        u"AXFocusedApplication",
        u"AXPosition",
        u"AXFocusedUIElement",
        u"AXFocusedWindow",
        u"AXSize",
        u"AXMinimized",
        u"AXHidden",
        u"AXFrontmost",
        u"AXEnabled",
        u"AXCloseButton",
        u"AXDescription",
        u"AXURL",
        u"AXIsApplicationRunning",
    };
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return {error};
    platform::AXNames result{AXError::Success};
    for (const char16_t* each : known) {
        const QString name = QString::fromUtf16(each);
        if (copyAttributeValue(element, name).error != AXError::AttributeUnsupported)
            result.names.push_back(name);
    }
    if (target.kind == Kind::Window) {
        for (const auto& [name, value] : m_state.window(target.id)->attributes)
            result.names.push_back(name);
    }
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
    return answer(
        (isWindow && (attribute == QLatin1String("AXMinimized") ||
                      m_state.window(target.id)->attributes.count(attribute) != 0)) ||
        (target.kind == Kind::Application &&
         (attribute == QLatin1String("AXHidden") || attribute == QLatin1String("AXFrontmost"))));
}

AXResult SimulatedAccessibility::systemWideValue(const QString& attribute)
{
    if (attribute != QLatin1String("AXFocusedApplication"))
        return unsupported;
    return m_state.application(m_state.activePid)
               ? answer(makeElement(Kind::Application, m_state.activePid))
               : refusal(AXError::NoValue);
}

AXResult SimulatedAccessibility::applicationValue(Pid pid, const QString& attribute)
{
    const SimulatedApplication& application = *m_state.application(pid);
    const bool isDock = pid == m_state.dockPid;
    if (attribute == QLatin1String("AXRole"))
        return answer(u"AXApplication");
    if (attribute == QLatin1String("AXTitle"))
        return answer(application.name);
    if (attribute == QLatin1String("AXHidden"))
        return answer(application.isHidden);
    if (attribute == QLatin1String("AXFrontmost"))
        return answer(pid == m_state.activePid);
    if (attribute == QLatin1String("AXChildren") && isDock)
        return answer(std::vector<ElementRef>{makeElement(Kind::DockList, pid)});
    if (attribute == QLatin1String("AXWindows") || attribute == QLatin1String("AXChildren"))
        return answer(windowElements(m_state, pid));
    if (attribute == QLatin1String("AXFocusedWindow")) {
        const auto windows = windowElements(m_state, pid);
        return windows.empty() ? refusal(AXError::NoValue) : answer(windows.front());
    }
    if (attribute == QLatin1String("AXFocusedUIElement") && isDock)
        return m_state.switcher ? answer(makeElement(Kind::SwitcherList, pid))
                                : refusal(AXError::NoValue);
    return unsupported;
}

AXResult SimulatedAccessibility::windowValue(const SimulatedElement& element,
                                             const QString& attribute)
{
    const SimulatedWindow& window = *m_state.window(element.id);
    if (const auto extra = window.attributes.find(attribute);
        element.kind == Kind::Window && extra != window.attributes.end())
        return answer(extra->second);
    if (element.kind != Kind::Window) {
        const bool isButton = element.kind == Kind::CloseButton;
        if (attribute == QLatin1String("AXRole"))
            return isButton ? answer(u"AXButton") : answer(u"AXGroup");
        if (attribute == QLatin1String("AXEnabled") && isButton)
            return answer(window.isClosable);
        if (attribute == QLatin1String("AXWindow") || attribute == QLatin1String("AXParent"))
            return answer(makeElement(Kind::Window, element.pid, element.id));
        return unsupported;
    }
    if (attribute == QLatin1String("AXRole"))
        return answer(window.role);
    if (attribute == QLatin1String("AXSubrole"))
        return window.subrole.isNull() ? unsupported : answer(window.subrole);
    if (attribute == QLatin1String("AXTitle"))
        return answer(window.title);
    if (attribute == QLatin1String("AXPosition"))
        return answer(window.frame.topLeft());
    if (attribute == QLatin1String("AXSize"))
        return answer(window.frame.size());
    if (attribute == QLatin1String("AXMinimized"))
        return answer(window.isMinimized);
    if (attribute == QLatin1String("AXCloseButton"))
        return answer(makeElement(Kind::CloseButton, element.pid, element.id));
    if (attribute == QLatin1String("AXParent"))
        return answer(makeElement(Kind::Application, element.pid));
    if (attribute == QLatin1String("AXChildren")) {
        std::vector<ElementRef> children;
        if (window.hasContent)
            children.push_back(makeElement(Kind::Content, element.pid, element.id));
        return answer(children);
    }
    return unsupported;
}

AXResult SimulatedAccessibility::dockValue(const SimulatedElement& element,
                                           const QString& attribute)
{
    if (element.kind == Kind::DockList) {
        std::vector<ElementRef> children;
        const bool selectedOnly = attribute == QLatin1String("AXSelectedChildren");
        if (!selectedOnly && attribute != QLatin1String("AXChildren"))
            return attribute == QLatin1String("AXRole") ? answer(u"AXList") : unsupported;
        for (const SimulatedDockItem& item : m_state.dockItems) {
            if (!selectedOnly || item.id == m_state.hoveredItem)
                children.push_back(makeElement(Kind::DockItem, element.pid, item.id));
        }
        return answer(children);
    }
    static constexpr const char16_t* subroles[] = {
        u"AXApplicationDockItem", u"AXMinimizedWindowDockItem", u"AXSeparatorDockItem",
        u"AXFolderDockItem", u"AXTrashDockItem"};
    const SimulatedDockItem& item = *m_state.dockItem(element.id);
    const bool isApplication = item.kind == SimulatedDockItem::Kind::Application;
    if (attribute == QLatin1String("AXRole"))
        return answer(u"AXDockItem");
    if (attribute == QLatin1String("AXSubrole"))
        return answer(subroles[static_cast<int>(item.kind)]);
    if (attribute == QLatin1String("AXTitle"))
        return answer(item.title);
    if (attribute == QLatin1String("AXPosition"))
        return answer(item.frame.topLeft());
    if (attribute == QLatin1String("AXSize"))
        return answer(item.frame.size());
    if (attribute == QLatin1String("AXHidden"))
        return answer(m_state.isDockHidden);
    if (attribute == QLatin1String("AXURL") && isApplication)
        return answer(item.url);
    if (attribute == QLatin1String("AXIsApplicationRunning") && isApplication)
        return answer(m_state.applicationAt(item.url) != nullptr);
    if (attribute == QLatin1String("AXWindows") && item.chosen) {
        std::vector<ElementRef> windows;
        for (const WindowID window : *item.chosen)
            windows.push_back(makeElement(Kind::Window, m_state.window(window)->pid, window));
        return answer(windows);
    }
    return unsupported;
}

AXResult SimulatedAccessibility::switcherValue(const SimulatedElement& element,
                                               const QString& attribute)
{
    const auto& entries = *m_state.switcher;
    if (element.kind == Kind::SwitcherList) {
        if (attribute == QLatin1String("AXSubrole"))
            return answer(u"AXProcessSwitcherList");
        std::vector<ElementRef> children;
        if (attribute == QLatin1String("AXSelectedChildren") &&
            m_state.switcherSelection < entries.size())
            children.push_back(makeElement(Kind::SwitcherEntry, element.pid,
                                           entries[m_state.switcherSelection].id));
        else if (attribute == QLatin1String("AXChildren"))
            for (const auto& entry : entries)
                children.push_back(makeElement(Kind::SwitcherEntry, element.pid, entry.id));
        else if (attribute != QLatin1String("AXSelectedChildren"))
            return unsupported;
        return answer(children);
    }
    for (const SimulatedSwitcherEntry& entry : entries) {
        if (entry.id != element.id)
            continue;
        if (attribute == QLatin1String("AXTitle"))
            return answer(entry.title);
        if (attribute == QLatin1String("AXPosition")) // where in the list matters to nobody
            return answer(QPointF(660, 400));
        if (attribute == QLatin1String("AXSize"))
            return answer(QSizeF(120, 120));
        if (attribute == QLatin1String("AXIsApplicationRunning") && entry.isRunning)
            return answer(*entry.isRunning);
        if (attribute == QLatin1String("AXURL") && !entry.url.isEmpty())
            return answer(entry.url);
        return unsupported;
    }
    return refusal(AXError::InvalidUIElement);
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
    if (attribute == QLatin1String("AXFrontmost") && *on)
        m_state.activate(ownerOf(target));
    else if (target.kind == Kind::Application && attribute == QLatin1String("AXHidden"))
        m_state.setHidden(target.pid, *on);
    else if (target.kind == Kind::Window && attribute == QLatin1String("AXMinimized"))
        m_state.setMinimized(target.id, *on);
    else if (target.kind != Kind::Window || attribute != QLatin1String("AXFocused"))
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
        return {AXError::Success, {QStringLiteral("AXRaise")}};
    if (target.kind == Kind::CloseButton)
        return {AXError::Success, {QStringLiteral("AXPress")}};
    return {AXError::Success};
}

AXResult SimulatedAccessibility::copyActionDescription(const ElementRef& element,
                                                       const QString& action)
{
    const platform::AXNames actions = copyActionNames(element);
    if (!actions.ok() ||
        std::find(actions.names.begin(), actions.names.end(), action) == actions.names.end())
        return refusal(AXError::ActionUnsupported);
    return answer(action == QLatin1String("AXRaise") ? u"raise" : u"press");
}

AXError SimulatedAccessibility::performAction(const ElementRef& element, const QString& action)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedElement& target = own(element);
    if (const AXError error = stateOf(target); error != AXError::Success)
        return error;
    if (target.kind == Kind::Window && action == QLatin1String("AXRaise")) {
        m_state.raise(target.id);
    } else if (target.kind == Kind::CloseButton && action == QLatin1String("AXPress")) {
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
    for (const SimulatedDockItem& item : m_state.dockItems) {
        if (m_state.dockPid && item.frame.contains(point))
            return answer(makeElement(Kind::DockItem, m_state.dockPid, item.id));
    }
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
    const SimulatedDockItem* item =
        target.kind == Kind::DockItem ? m_state.dockItem(target.id) : nullptr;
    return item && item->window != 0 ? std::optional(item->window) : std::nullopt;
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
