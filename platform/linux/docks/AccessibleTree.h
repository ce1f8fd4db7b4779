// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What programs tell of their user interface, element by element.
#pragma once

#include <QtCore/QRect>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/docks/ButtonMatcher.h"

namespace lumbrix::platform
{

/// Main thread. Each question is answered once, from the event loop, unless the tree goes away
/// before. What is told need make no sense, and a tree may have no end.
class AccessibleTree
{
public:
    template <class Value> using Then = std::function<void(const Value&)>;
    using Refs = std::vector<AccessibleRef>;

    virtual ~AccessibleTree() = default;

    /// The first ones; null when the program did not answer.
    virtual void childrenOf(const AccessibleRef& element, std::size_t maximum,
                            Then<std::optional<Refs>> then) = 0;
    /// As the protocol numbers them; null when the answer is something else.
    virtual void roleOf(const AccessibleRef& element, Then<std::optional<std::uint32_t>> then) = 0;
    /// At most as long as windows' titles are; null when the answer is something else.
    virtual void nameOf(const AccessibleRef& element, Then<std::optional<QString>> then) = 0;
    /// On the screen, in pixels of the program's; null for what is not shown.
    virtual void extentsOf(const AccessibleRef& element, Then<std::optional<QRect>> then) = 0;
};

} // namespace lumbrix::platform
