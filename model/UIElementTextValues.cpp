// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Parses values from text typed by the user.
#include <QtCore/QByteArray>

#include <charconv>
#include <initializer_list>
#include <string_view>

#include "model/UIElementUtilities.h"

namespace lumbrix
{
namespace
{

/// Reads numbers from the start of a text as scanf() would, but always with a point as the decimal
/// mark, whatever the locale.
class Scanner
{
public:
    explicit Scanner(const QString& text) : m_bytes(text.toUtf8())
    {
        m_rest = std::string_view(m_bytes.constData(), static_cast<std::size_t>(m_bytes.size()));
    }

    /// Whether each label is found, followed by its number. The rest of the text is ignored.
    template <class Number> struct Field {
        std::string_view label;
        Number& number;
    };
    template <class Number> bool read(std::initializer_list<Field<Number>> fields)
    {
        for (const Field<Number>& field : fields) {
            if (&field != fields.begin())
                skipBlanks(); // the separator between the fields
            if (!m_rest.starts_with(field.label))
                return false;
            m_rest.remove_prefix(field.label.size());
            if (!read(field.number))
                return false;
        }
        return true;
    }
    template <class Number> bool read(Number& number)
    {
        skipBlanks();
        if (m_rest.starts_with('+') && !m_rest.starts_with("+-"))
            m_rest.remove_prefix(1);
        const auto [end, error] =
            std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return error == std::errc();
    }

private:
    void skipBlanks()
    {
        const std::size_t start = m_rest.find_first_not_of(" \t\n\v\f\r");
        m_rest.remove_prefix(start == std::string_view::npos ? m_rest.size() : start);
    }

    const QByteArray m_bytes;
    std::string_view m_rest;
};

/// Parses the text as a value of the same kind; null if that fails.
struct Parse {
    using Value = platform::AXValue;
    const QString& text;

    Value operator()(const QPointF&) const
    {
        double x = 0;
        double y = 0;
        return Scanner(text).read<double>({{"x=", x}, {"y=", y}}) ? Value(QPointF(x, y)) : Value();
    }
    Value operator()(const QSizeF&) const
    {
        double w = 0;
        double h = 0;
        return Scanner(text).read<double>({{"w=", w}, {"h=", h}}) ? Value(QSizeF(w, h)) : Value();
    }
    Value operator()(const QRectF&) const
    {
        double x = 0;
        double y = 0;
        double w = 0;
        double h = 0;
        return Scanner(text).read<double>({{"x=", x}, {"y=", y}, {"w=", w}, {"h=", h}})
                   ? Value(QRectF(x, y, w, h))
                   : Value();
    }
    Value operator()(const platform::AXRange&) const
    {
        platform::AXRange range;
        return Scanner(text).read<long>({{"pos=", range.location}, {"len=", range.length}})
                   ? Value(range)
                   : Value();
    }
    Value operator()(const QString&) const { return text; }
    Value operator()(double) const
    {
        // A text that is not a number counts as 0.
        float number = 0;
        Scanner(text).read(number);
        return static_cast<double>(number);
    }
    template <class Other> Value operator()(const Other&) const { return {}; }
};

} // namespace

void UIElementUtilities::setStringValue(const QString& text, const QString& attribute,
                                        const Element& element) const
{
    if (attribute.isNull())
        return;
    const Value present = valueOfAttribute(attribute, element);
    const Value value = std::visit(Parse{text}, present);
    if (!std::holds_alternative<std::monostate>(value))
        m_ports.accessibility.setAttributeValue(element, attribute, value);
}

} // namespace lumbrix
