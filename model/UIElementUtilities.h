// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Access to elements, conversions between the two coordinate systems, and elements and their values
// in words, for people who want to know what Lumbrix sees.
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

namespace lumbrix
{

/// Any thread; the element may be null. A call that fails yields null, 0, false, the zero rectangle
/// or a fixed text; nothing is reported.
class UIElementUtilities
{
public:
    using Element = platform::ElementRef;
    using Value = platform::AXValue; ///< std::monostate = null
    using Text = std::optional<QString>;
    /// What becomes of a description before it is written into a text of several lines.
    using TextFilter = std::function<QString(const QString&)>;

    // Access.
    static std::int32_t processIdentifierOfUIElement(const Element& element);
    static std::optional<std::vector<QString>> attributeNamesOfUIElement(const Element& element);
    static std::optional<std::vector<QString>> actionNamesOfUIElement(const Element& element);
    static Text descriptionOfAction(const QString& action, const Element& element);
    static void performAction(const QString& action, const Element& element);
    /// Null also for an attribute that the element does not list.
    static Value valueOfAttribute(const QString& attribute, const Element& element);
    static bool canSetAttribute(const QString& attribute, const Element& element);
    /// Sets the attribute to what the text says, in the terse form of the value it has now: a point
    /// as "x=1 y=2", a string as it is. Nothing when the text does not begin in that form, or when
    /// there is no value now or one of a kind without such a form.
    static void setStringValue(const QString& text, const QString& attribute,
                               const Element& element);
    static Element parentOfUIElement(const Element& element);
    static Text roleOfUIElement(const Element& element);
    static Text titleOfUIElement(const Element& element);
    static bool isApplicationUIElement(const Element& element);

    // Geometry.
    /// Both mirror y at the main screen's height; (0, 0) when no screen is known.
    static QPointF carbonScreenPointFromCocoaScreenPoint(QPointF point);
    static QPointF cocoaScreenPointFromCarbonScreenPoint(QPointF point);
    /// A rectangle measured from the top becomes one measured from the bottom.
    static QRectF flippedScreenBounds(const QRectF& bounds);
    static QRectF frameOfUIElement(const Element& element); ///< screen coordinates

    // Descriptions. Verbose ones name the kind of a value.
    static QString stringDescriptionOfAXValue(const Value& value, bool beingVerbose);
    static Text descriptionOfValue(const Value& value, bool beingVerbose);
    /// Children and rows are counted, not fetched.
    static Text descriptionForUIElement(const Element& element, const QString& attribute,
                                        bool beingVerbose);
    /// From the top ancestor down to the element.
    static std::vector<QString> lineageOfUIElement(const Element& element);
    static QString lineageDescriptionOfUIElement(const Element& element,
                                                 const TextFilter& filter = {});
    /// Lineage, attributes and actions, a line each.
    static QString stringDescriptionOfUIElement(const Element& element,
                                                const TextFilter& filter = {});
    static QString descriptionOfAXDescriptionOfUIElement(const Element& element);
};

} // namespace lumbrix
