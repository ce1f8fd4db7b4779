// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where everything the engine reacts to enters it.
#pragma once

#include "platform/Accessibility.h"

namespace lumbrix
{

/// The callback of every observer: turns a notification of the Dock or of an application into a
/// call on the shared handler, often after the hover delay. Main thread. `context` is the
/// controller (a HoverDelays) for the Dock's notifications.
void handleAXNotification(platform::AXObserver& observer, const platform::ElementRef& element,
                          const QString& notification, platform::NotificationContext* context);

} // namespace lumbrix
