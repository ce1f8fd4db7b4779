// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What may be asked of an element on the accessibility bus, and how the answers read. Any thread.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtDBus/QDBusMessage>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/linux/docks/ButtonMatcher.h"

namespace lumbrix::platform
{

/// The program itself, whose children are its windows. `application` is its unique name.
AccessibleRef accessibleRoot(const QString& application);

QDBusMessage childrenQuestion(const AccessibleRef& element);
/// The references in an answer, at most so many; none when it is something else.
std::vector<AccessibleRef> accessibleRefs(const QDBusMessage& reply, std::size_t maximum);

QDBusMessage roleQuestion(const AccessibleRef& element);
/// As the protocol numbers them; null when the answer is something else.
std::optional<std::uint32_t> roleIn(const QDBusMessage& reply);

QDBusMessage nameQuestion(const AccessibleRef& element);
/// At most as long as windows' titles are; null when the answer is something else.
std::optional<QString> nameIn(const QDBusMessage& reply);

QDBusMessage extentsQuestion(const AccessibleRef& element);
/// Null for what is not shown.
std::optional<QRect> extentsIn(const QDBusMessage& reply);

} // namespace lumbrix::platform
