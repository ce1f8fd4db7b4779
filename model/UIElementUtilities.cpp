// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/UIElementUtilities.h"

#include <algorithm>

#include "model/AXNames.h"
#include "platform/WindowServer.h"

namespace lumbrix
{

using platform::AXNames;
using platform::AXResult;
using platform::ElementRef;

namespace
{

std::optional<std::vector<QString>> namesOrNull(AXNames names)
{
    return names.ok() ? std::optional(std::move(names.names)) : std::nullopt;
}

/// Null if the attribute is not listed, cannot be read, or has another type.
template <class T>
std::optional<T> listedValue(const UIElementUtilities& utilities, const QString& attribute,
                             const ElementRef& element)
{
    const platform::AXValue value = utilities.valueOfAttribute(attribute, element);
    const T* typed = std::get_if<T>(&value);
    return typed ? std::optional(*typed) : std::nullopt;
}

QPointF mirrored(QPointF point, platform::WindowServer& windowServer)
{
    const auto screens = windowServer.screens();
    if (screens.empty())
        return {};
    return {point.x(), screens.front().height() - point.y()};
}

} // namespace

std::int32_t UIElementUtilities::processIdentifierOfUIElement(const ElementRef& element) const
{
    return element ? m_ports.accessibility.pidOf(element).value_or(0) : 0;
}

std::optional<std::vector<QString>>
UIElementUtilities::attributeNamesOfUIElement(const ElementRef& element) const
{
    return element ? namesOrNull(m_ports.accessibility.copyAttributeNames(element)) : std::nullopt;
}

std::optional<std::vector<QString>>
UIElementUtilities::actionNamesOfUIElement(const ElementRef& element) const
{
    return element ? namesOrNull(m_ports.accessibility.copyActionNames(element)) : std::nullopt;
}

std::optional<QString> UIElementUtilities::descriptionOfAction(const QString& action,
                                                               const ElementRef& element) const
{
    if (!element)
        return std::nullopt;
    const AXResult result = m_ports.accessibility.copyActionDescription(element, action);
    const QString* text = result.as<QString>();
    return text ? std::optional(*text) : std::nullopt;
}

void UIElementUtilities::performAction(const QString& action, const ElementRef& element) const
{
    if (element)
        m_ports.accessibility.performAction(element, action);
}

platform::AXValue UIElementUtilities::valueOfAttribute(const QString& attribute,
                                                       const ElementRef& element) const
{
    const auto names = attributeNamesOfUIElement(element);
    if (!names || std::find(names->begin(), names->end(), attribute) == names->end())
        return {};
    AXResult result = m_ports.accessibility.copyAttributeValue(element, attribute);
    return result.ok() ? std::move(result.value) : platform::AXValue();
}

bool UIElementUtilities::canSetAttribute(const QString& attribute, const ElementRef& element) const
{
    if (!element)
        return false;
    const AXResult result = m_ports.accessibility.isAttributeSettable(element, attribute);
    const bool* isSettable = result.as<bool>();
    return isSettable && *isSettable;
}

ElementRef UIElementUtilities::parentOfUIElement(const ElementRef& element) const
{
    return listedValue<ElementRef>(*this, AX::Parent, element).value_or(nullptr);
}

std::optional<QString> UIElementUtilities::roleOfUIElement(const ElementRef& element) const
{
    return listedValue<QString>(*this, AX::Role, element);
}

std::optional<QString> UIElementUtilities::titleOfUIElement(const ElementRef& element) const
{
    return listedValue<QString>(*this, AX::Title, element);
}

bool UIElementUtilities::isApplicationUIElement(const ElementRef& element) const
{
    return roleOfUIElement(element) == AX::ApplicationRole;
}

QPointF UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(QPointF point) const
{
    return mirrored(point, m_ports.windowServer);
}

QPointF UIElementUtilities::cocoaScreenPointFromCarbonScreenPoint(QPointF point) const
{
    return mirrored(point, m_ports.windowServer);
}

QRectF UIElementUtilities::flippedScreenBounds(const QRectF& bounds) const
{
    const auto screens = m_ports.windowServer.screens();
    const QRectF screen = screens.empty() ? QRectF() : screens.front();
    const qreal y = screen.y() + screen.height() - (bounds.y() + bounds.height());
    return {bounds.x(), y, bounds.width(), bounds.height()};
}

QRectF UIElementUtilities::frameOfUIElement(const ElementRef& element) const
{
    const auto position = listedValue<QPointF>(*this, AX::Position, element);
    const auto size = listedValue<QSizeF>(*this, AX::Size, element);
    return position && size ? flippedScreenBounds(QRectF(*position, *size)) : QRectF();
}

} // namespace lumbrix
