// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Typed reads of attributes.
#pragma once

#include <optional>

#include "model/AXNames.h"
#include "platform/Accessibility.h"

namespace lumbrix::AX
{

/// Null if the element is null, the read fails, or the value has another type.
template <class T>
std::optional<T> read(platform::Accessibility& accessibility, const platform::ElementRef& element,
                      const QString& attribute)
{
    if (!element)
        return std::nullopt;
    const platform::AXResult result = accessibility.copyAttributeValue(element, attribute);
    if (const T* value = result.as<T>())
        return *value;
    return std::nullopt;
}

inline platform::ElementRef readElement(platform::Accessibility& accessibility,
                                        const platform::ElementRef& element,
                                        const QString& attribute)
{
    return read<platform::ElementRef>(accessibility, element, attribute).value_or(nullptr);
}

inline std::vector<platform::ElementRef> readElements(platform::Accessibility& accessibility,
                                                      const platform::ElementRef& element,
                                                      const QString& attribute)
{
    return read<std::vector<platform::ElementRef>>(accessibility, element, attribute)
        .value_or(std::vector<platform::ElementRef>{});
}

/// Whether the attribute can be read and equals this text.
inline bool equals(platform::Accessibility& accessibility, const platform::ElementRef& element,
                   const QString& attribute, const QString& text)
{
    return read<QString>(accessibility, element, attribute) == text;
}

} // namespace lumbrix::AX
