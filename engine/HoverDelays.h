// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's hover delays, for the engine.
#pragma once

#include <cstdint>

#include "platform/Accessibility.h"

namespace lumbrix
{

/// The application controller implements it and passes itself as the context of the Dock's
/// notifications. Main thread.
class HoverDelays : public platform::NotificationContext
{
public:
    /// Seconds the mouse must rest on a Dock item before previews appear.
    virtual float displayDelay() const = 0;
    /// Non-zero: no delay while previews are shown.
    virtual std::int32_t dontDelayIfOpen() const = 0;
};

} // namespace lumbrix
