// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedKeyboard.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/InputState.h"
#include "platform/StringLiterals.h"

namespace lumbrix::test
{

using platform::TapEvent;
using platform::TapEvents;
using platform::TapKey;
using Type = platform::TapEvent::Type;

namespace
{

bool contains(const std::vector<TapKey>& keys, const TapKey& key)
{
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

} // namespace

class SimulatedEventTaps::Tap final : public platform::EventTap
{
public:
    Tap(SimulatedEventTaps& taps, TapEvents events, Callback callback)
        : m_taps(taps), m_events(events), m_callback(std::move(callback))
    {
        m_taps.m_taps.push_back(this);
    }
    ~Tap() override { std::erase(m_taps.m_taps, this); }

    void setEnabled(bool enabled) override { m_isEnabled = enabled; }
    bool isEnabled() const override { return m_isEnabled; }
    void setKeys(const std::vector<TapKey>& keys) override { m_keys = keys; }
    std::vector<TapKey> takenKeys() const override
    {
        std::vector<TapKey> taken = m_keys;
        std::erase_if(taken, [this](const TapKey& key) { return !contains(m_taps.m_taken, key); });
        return m_isEnabled ? taken : std::vector<TapKey>();
    }

    std::vector<TapKey> keysHeld() const
    {
        std::vector<TapKey> held = m_keys;
        std::erase_if(held, [this](const TapKey& key) { return contains(m_taps.m_taken, key); });
        return m_isEnabled ? held : std::vector<TapKey>();
    }
    /// The key as it is wanted; null when it is not.
    const TapKey* wanted(const TapKey& key) const
    {
        const auto found = std::find_if(m_keys.begin(), m_keys.end(), [&](const TapKey& each) {
            return each.keyCode == key.keyCode && each.flags == key.flags;
        });
        return found == m_keys.end() ? nullptr : &*found;
    }
    bool sees(const TapEvent& event) const
    {
        if (event.type == Type::KeyDown || event.type == Type::KeyUp)
            return wanted(event.key) && contains(keysHeld(), *wanted(event.key));
        return m_isEnabled && m_events == TapEvents::KeysAndClicks;
    }
    bool call(TapEvent event) const
    {
        if (const TapKey* key = wanted(event.key))
            event.key = *key;
        if (event.key.isPassedOn && event.type == Type::KeyUp)
            return false;
        return m_callback(event) && !event.key.isPassedOn;
    }

private:
    SimulatedEventTaps& m_taps;
    const TapEvents m_events;
    const Callback m_callback;
    std::vector<TapKey> m_keys;
    bool m_isEnabled = false;
};

std::unique_ptr<platform::EventTap>
SimulatedEventTaps::createTap(TapEvents events, platform::EventTap::Callback callback)
{
    return std::make_unique<Tap>(*this, events, std::move(callback));
}

bool SimulatedEventTaps::send(const TapEvent& event)
{
    const std::vector<Tap*> taps = m_taps;
    return std::any_of(taps.rbegin(), taps.rend(),
                       [&](const Tap* tap) { return tap->sees(event) && tap->call(event); });
}

bool SimulatedEventTaps::type(const TapKey& key)
{
    const bool isPressSwallowed = send({Type::KeyDown, key});
    EXPECT_EQ(send({Type::KeyUp, key}), isPressSwallowed) << "a program saw half a key";
    return isPressSwallowed;
}

std::vector<TapKey> SimulatedEventTaps::keysHeld() const
{
    std::vector<TapKey> held;
    for (const Tap* tap : m_taps) {
        for (const TapKey& key : tap->keysHeld())
            if (!key.isPassedOn && !contains(held, key))
                held.push_back(key);
    }
    return held;
}

QString SimulatedKeyboardLayout::nameOfModifier(std::uint32_t flag) const
{
    static const QHash<std::uint32_t, QString> names{
        {platform::ModifierFlag::shift, u"Shift"_s},
        {platform::ModifierFlag::control, u"Ctrl"_s},
        {platform::ModifierFlag::option, u"Alt"_s},
        {platform::ModifierFlag::command, u"Super"_s},
    };
    return names.value(flag);
}

} // namespace lumbrix::test
