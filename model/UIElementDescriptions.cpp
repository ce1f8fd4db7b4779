// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Descriptions of elements and their values.
#include <QtCore/QLocale>

#include "model/AXNames.h"
#include "model/UIElementUtilities.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{

using platform::AXRange;
using platform::AXResult;
using platform::ElementRef;

namespace
{

/// Maximum number of ancestors: some programs report an element as its own parent.
constexpr int maxAncestors = 64;

QString listOfSize(std::size_t count)
{
    return QString::asprintf("<array of size %d>", static_cast<int>(count));
}

QString elementInWords(const UIElementUtilities& utilities, const ElementRef& element)
{
    const auto role = utilities.roleOfUIElement(element);
    if (!role)
        return QString::asprintf("<AXUIElement pid=%d>",
                                 utilities.processIdentifierOfUIElement(element));
    const auto title = utilities.titleOfUIElement(element);
    if (title && !title->isEmpty())
        return u"<%1: “%2”>"_s.arg(*role, *title);
    return u"<%1>"_s.arg(*role);
}

/// The text for a missing value within a line.
QString orNull(const std::optional<QString>& text) { return text.value_or(u"(null)"_s); }

QString filtered(const QString& text, const UIElementUtilities::TextFilter& filter)
{
    return filter ? filter(text) : text;
}

void appendLineage(const UIElementUtilities& utilities, const ElementRef& element, int depth,
                   std::vector<QString>& lineage)
{
    const ElementRef parent = utilities.parentOfUIElement(element);
    if (parent && depth < maxAncestors)
        appendLineage(utilities, parent, depth + 1, lineage);
    lineage.push_back(elementInWords(utilities, element));
}

} // namespace

QString UIElementUtilities::stringDescriptionOfAXValue(const Value& value, bool beingVerbose)
{
    // The two spaces in the rectangle are intended.
    if (const auto* point = std::get_if<QPointF>(&value))
        return QString::asprintf(beingVerbose ? "<AXPointValue x=%g y=%g>" : "x=%g y=%g",
                                 point->x(), point->y());
    if (const auto* size = std::get_if<QSizeF>(&value))
        return QString::asprintf(beingVerbose ? "<AXSizeValue w=%g h=%g>" : "w=%g h=%g",
                                 size->width(), size->height());
    if (const auto* rect = std::get_if<QRectF>(&value))
        return QString::asprintf(beingVerbose ? "<AXRectValue  x=%g y=%g w=%g h=%g>"
                                              : "x=%g y=%g w=%g h=%g",
                                 rect->x(), rect->y(), rect->width(), rect->height());
    if (const auto* range = std::get_if<AXRange>(&value))
        return QString::asprintf(beingVerbose ? "<AXRangeValue pos=%ld len=%ld>"
                                              : "pos=%ld len=%ld",
                                 range->location, range->length);
    return u"AXValue???"_s;
}

std::optional<QString> UIElementUtilities::descriptionOfValue(const Value& value,
                                                              bool beingVerbose) const
{
    if (std::holds_alternative<std::monostate>(value))
        return std::nullopt;
    if (const auto* text = std::get_if<QString>(&value))
        return *text;
    if (const bool* on = std::get_if<bool>(&value))
        return *on ? u"1"_s : u"0"_s;
    if (const double* number = std::get_if<double>(&value))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    if (const auto* url = std::get_if<QUrl>(&value))
        return url->toString();
    if (const auto* list = std::get_if<std::vector<ElementRef>>(&value))
        return listOfSize(list->size());
    if (const auto* element = std::get_if<ElementRef>(&value))
        return *element ? std::optional(elementInWords(*this, *element)) : std::nullopt;
    return stringDescriptionOfAXValue(value, beingVerbose);
}

std::optional<QString> UIElementUtilities::descriptionForUIElement(const Element& element,
                                                                   const QString& attribute,
                                                                   bool beingVerbose) const
{
    if (!element)
        return std::nullopt;
    platform::Accessibility& accessibility = m_ports.accessibility;
    if (attribute == AX::Children || attribute == AX::Rows) {
        const AXResult count = accessibility.attributeValueCount(element, attribute);
        if (const double* number = count.as<double>())
            return listOfSize(static_cast<std::size_t>(*number));
    }
    const AXResult result = accessibility.copyAttributeValue(element, attribute);
    return result.ok() ? descriptionOfValue(result.value, beingVerbose) : std::nullopt;
}

std::vector<QString> UIElementUtilities::lineageOfUIElement(const Element& element) const
{
    std::vector<QString> lineage;
    if (element)
        appendLineage(*this, element, 0, lineage);
    return lineage;
}

QString UIElementUtilities::lineageDescriptionOfUIElement(const Element& element,
                                                          const TextFilter& filter) const
{
    QString text;
    QString indent;
    for (const QString& entry : lineageOfUIElement(element)) {
        text += indent + filtered(entry, filter) + u'\n';
        indent += u' ';
    }
    return text;
}

QString UIElementUtilities::stringDescriptionOfUIElement(const Element& element,
                                                         const TextFilter& filter) const
{
    QString text = lineageDescriptionOfUIElement(element, filter);
    const auto attributes = attributeNamesOfUIElement(element);
    if (attributes && !attributes->empty()) {
        text += u"\nAttributes:\n"_s;
        for (const QString& name : *attributes) {
            const QString mark = canSetAttribute(name, element) ? u" (W)"_s : QString();
            const QString value = orNull(descriptionForUIElement(element, name, false));
            text += u"   %1%2:  “%3”\n"_s.arg(name, mark, filtered(value, filter));
        }
    }
    const auto actions = actionNamesOfUIElement(element);
    if (actions && !actions->empty()) {
        text += u"\nActions:\n"_s;
        for (const QString& name : *actions)
            text += u"   %1 - %2\n"_s.arg(name, orNull(descriptionOfAction(name, element)));
    }
    return text;
}

QString UIElementUtilities::descriptionOfAXDescriptionOfUIElement(const Element& element) const
{
    const Value value = valueOfAttribute(AX::Description, element);
    const auto* text = std::get_if<QString>(&value);
    return text && !text->isEmpty() ? *text : u"No Description"_s;
}

} // namespace lumbrix
