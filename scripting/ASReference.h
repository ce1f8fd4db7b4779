// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A reference to an object of another application, like a variable of a scripting language.
#pragma once

#include <optional>
#include <vector>

#include "platform/AppleEvents.h"

namespace lumbrix
{

/// Any thread; copies are cheap. Nothing is sent until getItem() or send().
class ASReference
{
public:
    /// The port must outlive it.
    ASReference(platform::AppleEvents& events, platform::AppleEventTarget target,
                platform::ObjectSpecifier object = {})
        : m_events(events), m_target(std::move(target)), m_object(std::move(object))
    {
    }

    ASReference property(platform::FourCharCode code) const;
    ASReference elements(platform::FourCharCode code) const;
    /// The element with that number, counted from 1, of elements().
    ASReference at(int index) const;

    /// The object's current value; `T` is an alternative of AppleEventValue. Empty if there is no
    /// such object or no answer, or if the value has another type.
    template <class T> std::optional<T> getItem() const
    {
        const platform::AppleEventReply reply = get();
        const T* value = reply.error == platform::AppleEventError::None ? reply.as<T>() : nullptr;
        return value ? std::optional(*value) : std::nullopt;
    }
    /// The objects that elements() stands for.
    std::vector<ASReference> getElements() const;
    /// Sends a command to this object; failures are ignored.
    void send(platform::FourCharCode eventClass, platform::FourCharCode eventID) const;

private:
    platform::AppleEventReply get() const;
    ASReference with(platform::ObjectSpecifier::Step step) const;

    platform::AppleEvents& m_events;
    platform::AppleEventTarget m_target;
    platform::ObjectSpecifier m_object;
};

} // namespace lumbrix
