// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The queries to an element on the accessibility bus, and parsing of the answers. Any thread.
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
/// The references in an answer, at most `maximum`; none if the answer is of another type.
std::vector<AccessibleRef> accessibleRefs(const QDBusMessage& reply, std::size_t maximum);

QDBusMessage roleQuestion(const AccessibleRef& element);
/// With the protocol's numbers; null if the answer is of another type.
std::optional<std::uint32_t> roleIn(const QDBusMessage& reply);

QDBusMessage nameQuestion(const AccessibleRef& element);
/// At most as long as a window title; null if the answer is of another type.
std::optional<QString> nameIn(const QDBusMessage& reply);

QDBusMessage extentsQuestion(const AccessibleRef& element);
/// Null for what is not shown.
std::optional<QRect> extentsIn(const QDBusMessage& reply);

} // namespace lumbrix::platform
