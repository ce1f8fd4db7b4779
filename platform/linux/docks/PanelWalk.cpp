// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PanelWalk.h"

#include <QtDBus/QDBusArgument>

#include <algorithm>
#include <cstdlib>

#include "platform/StringLiterals.h"
#include "platform/linux/docks/AccessibleQuestions.h"
#include "platform/linux/docks/IconGeometry.h"

namespace lumbrix::platform
{

namespace
{

constexpr int maximalUnderWay = 32;
constexpr int maximalDepth = 12;
constexpr std::size_t maximalWindows = 64;
constexpr std::size_t maximalChildren = 300;
constexpr std::size_t maximalElements = 1500;
constexpr int maximalScale = 4;
constexpr int maximalCoordinate = 1 << 17;

// As the protocol numbers them.
constexpr std::uint32_t checkBox = 7;
constexpr std::uint32_t pushButton = 43;
constexpr std::uint32_t radioButton = 44;
constexpr std::uint32_t toggleButton = 62;

// Window buttons can be in or out; a launcher is pushed only, and may be called like an
// application.
bool isWindowButton(std::uint32_t role)
{
    return role == toggleButton || role == checkBox || role == radioButton;
}

QDBusMessage extentsQuestion(const AccessibleRef& element)
{
    constexpr quint32 onTheScreen = 0;
    return QDBusMessage::createMethodCall(element.bus, element.path, u"org.a11y.atspi.Component"_s,
                                          u"GetExtents"_s)
           << onTheScreen;
}

/// Null for what is not shown: that has a place far off.
std::optional<QRect> extentsIn(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"(iiii)")
        return std::nullopt;
    const auto argument = reply.arguments().constFirst().value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    const auto isSane = [](int value) {
        return value > -maximalCoordinate && value < maximalCoordinate;
    };
    if (!isSane(x) || !isSane(y) || !isSane(width) || !isSane(height) || width < 1 || height < 1)
        return std::nullopt;
    return QRect(x, y, width, height);
}

} // namespace

PanelWalk::PanelWalk(AccessibleBus& bus, const QString& application, std::vector<DockWindow> panels,
                     AccessibleRoles roles, Done done)
    : m_bus(bus), m_root(accessibleRoot(application)), m_panels(std::move(panels)),
      m_knownRoles(std::move(roles)), m_done(std::move(done))
{
}

void PanelWalk::start()
{
    ask(childrenQuestion(m_root), [this](const QDBusMessage& reply) {
        m_result.isAnswered = reply.type() == QDBusMessage::ReplyMessage;
        for (const AccessibleRef& window : accessibleRefs(reply, maximalWindows))
            lookAtWindow(window);
    });
}

// A program with much to tell is asked little by little: it has other things to do.
void PanelWalk::ask(const QDBusMessage& message, AccessibleBus::Answer answer)
{
    m_questions.push_back({message, std::move(answer)});
    pump();
}

void PanelWalk::pump()
{
    while (m_underWay < maximalUnderWay && !m_questions.empty()) {
        const Question next = std::move(m_questions.front());
        m_questions.pop_front();
        ++m_underWay;
        m_bus.call(next.message,
                   m_guard.ifAlive([this, answer = next.answer](const QDBusMessage& reply) {
                       answer(reply);
                       --m_underWay;
                       pump();
                       if (m_underWay == 0) {
                           const Done done = std::move(m_done);
                           done(std::move(m_result));
                       }
                   }));
    }
}

// Its other windows (preferences, menus) have buttons, too, but are no panels.
void PanelWalk::lookAtWindow(const AccessibleRef& window)
{
    ask(extentsQuestion(window), [this, window](const QDBusMessage& reply) {
        const std::optional<QRect> extents = extentsIn(reply);
        const std::optional<Panel> panel = extents ? panelAt(*extents) : std::nullopt;
        if (panel) {
            m_result.panels[panel->id];
            lookInto(window, *panel, 0);
        }
    });
}

// A program may count in larger pixels than the display has; panels of one size are told apart by
// where they are.
std::optional<PanelWalk::Panel> PanelWalk::panelAt(const QRect& extents) const
{
    std::optional<Panel> best;
    int bestDistance = 0;
    for (const DockWindow& window : m_panels) {
        for (int scale = 1; scale <= maximalScale; ++scale) {
            const QSize size = extents.size() * scale - window.bounds.size();
            if (std::abs(size.width()) >= 2 * scale || std::abs(size.height()) >= 2 * scale)
                continue;
            const int distance =
                (extents.topLeft() * scale - window.bounds.topLeft()).manhattanLength();
            if (!best || distance < bestDistance) {
                best = Panel{.id = window.id, .corner = extents.topLeft(), .scale = scale};
                bestDistance = distance;
            }
        }
    }
    return best;
}

void PanelWalk::lookInto(const AccessibleRef& container, const Panel& panel, int depth)
{
    if (depth >= maximalDepth)
        return;
    ask(childrenQuestion(container), [this, container, panel, depth](const QDBusMessage& reply) {
        const std::vector<AccessibleRef> children = accessibleRefs(reply, maximalChildren);
        const List list{.ref = container, .size = children.size(), .depth = depth};
        for (const AccessibleRef& child : children) {
            if (m_seen.size() >= maximalElements || !m_seen.insert(child).second)
                continue;
            const auto known = m_knownRoles.find(child);
            if (known != m_knownRoles.end()) {
                lookAt(child, known->second, list, panel);
                continue;
            }
            ask(roleQuestion(child), [this, child, list, panel](const QDBusMessage& answer) {
                if (const auto role = roleIn(answer))
                    lookAt(child, *role, list, panel);
            });
        }
    });
}

void PanelWalk::lookAt(const AccessibleRef& element, std::uint32_t role, const List& list,
                       const Panel& panel)
{
    m_result.roles[element] = role;
    if (isWindowButton(role))
        readButton(element, list, panel);
    else if (role != pushButton)
        lookInto(element, panel, list.depth + 1);
}

void PanelWalk::readButton(const AccessibleRef& element, const List& list, const Panel& panel)
{
    ask(extentsQuestion(element), [this, element, list, panel](const QDBusMessage& reply) {
        const std::optional<QRect> extents = extentsIn(reply);
        if (!extents || !isIconPlace(*extents))
            return; // its name does not matter either
        const QRect place((extents->topLeft() - panel.corner) * panel.scale,
                          extents->size() * panel.scale);
        ask(nameQuestion(element), [this, element, list, panel, place](const QDBusMessage& answer) {
            const std::optional<QString> name = nameIn(answer);
            if (!name)
                return;
            m_result.panels[panel.id].push_back({.ref = element,
                                                 .list = list.ref,
                                                 .name = *name,
                                                 .place = place,
                                                 .siblings = list.size});
        });
    });
}

} // namespace lumbrix::platform
