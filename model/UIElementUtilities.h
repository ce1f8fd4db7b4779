// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Access to elements, conversions between the two coordinate systems, and descriptions of elements
// and their values, for people who want to know what Lumbrix sees.
//
// Accessibility ("carbon") coordinates: origin at the top left of the main screen, y downward.
// Screen ("cocoa") coordinates: origin at its bottom left, y upward. Both in points. The main
// screen is the first of the window server's list.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include <functional>
#include <optional>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// Any thread; the element may be null. A call that fails returns null, 0, false, the zero
/// rectangle or a fixed text; nothing is reported.
class UIElementUtilities
{
public:
    using Element = platform::ElementRef;
    using Value = platform::AXValue; ///< std::monostate = null
    using Text = std::optional<QString>;
    /// Transforms a description before it is inserted into a text of several lines.
    using TextFilter = std::function<QString(const QString&)>;

    /// The ports must outlive it.
    explicit UIElementUtilities(const platform::Desktop& ports) : m_ports(ports) {}

    // Access.
    std::int32_t processIdentifierOfUIElement(const Element& element) const;
    std::optional<std::vector<QString>> attributeNamesOfUIElement(const Element& element) const;
    std::optional<std::vector<QString>> actionNamesOfUIElement(const Element& element) const;
    Text descriptionOfAction(const QString& action, const Element& element) const;
    void performAction(const QString& action, const Element& element) const;
    /// Null also if the element does not list the attribute.
    Value valueOfAttribute(const QString& attribute, const Element& element) const;
    bool canSetAttribute(const QString& attribute, const Element& element) const;
    /// Sets the attribute to the value in the text, which must be in the terse form of the current
    /// value's kind: a point as "x=1 y=2", a string as it is. Does nothing if the text does not
    /// start in that form, or if there is no current value or its kind has no such form.
    void setStringValue(const QString& text, const QString& attribute,
                        const Element& element) const;
    Element parentOfUIElement(const Element& element) const;
    Text roleOfUIElement(const Element& element) const;
    Text titleOfUIElement(const Element& element) const;
    bool isApplicationUIElement(const Element& element) const;

    // Geometry.
    /// Both mirror y at the main screen's height; (0, 0) when no screen is known.
    QPointF carbonScreenPointFromCocoaScreenPoint(QPointF point) const;
    QPointF cocoaScreenPointFromCarbonScreenPoint(QPointF point) const;
    /// Converts a rectangle measured from the top to one measured from the bottom.
    QRectF flippedScreenBounds(const QRectF& bounds) const;
    QRectF frameOfUIElement(const Element& element) const; ///< screen coordinates

    // Descriptions. Verbose ones include the kind of a value.
    static QString stringDescriptionOfAXValue(const Value& value, bool beingVerbose);
    Text descriptionOfValue(const Value& value, bool beingVerbose) const;
    /// Children and rows are counted, not fetched.
    Text descriptionForUIElement(const Element& element, const QString& attribute,
                                 bool beingVerbose) const;
    /// From the top ancestor down to the element.
    std::vector<QString> lineageOfUIElement(const Element& element) const;
    QString lineageDescriptionOfUIElement(const Element& element,
                                          const TextFilter& filter = {}) const;
    /// Lineage, attributes and actions, one line each.
    QString stringDescriptionOfUIElement(const Element& element,
                                         const TextFilter& filter = {}) const;
    QString descriptionOfAXDescriptionOfUIElement(const Element& element) const;

private:
    const platform::Desktop& m_ports;
};

} // namespace lumbrix
