// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The keyboard of the simulated desktop, and the taps on its events. Main thread.
#pragma once

#include <QtCore/QHash>

#include <vector>

#include "platform/EventTaps.h"
#include "platform/KeyboardLayout.h"

namespace lumbrix::test
{

/// Asks its taps for every event, and swallows what they want.
class SimulatedEventTaps final : public platform::EventTaps
{
public:
    std::unique_ptr<platform::EventTap> createTap(platform::TapEvents events,
                                                  platform::EventTap::Callback callback) override;

    // Input. The answers: whether a tap swallowed the event, so that no program saw it.
    bool send(const platform::TapEvent& event);
    /// Press and release; true when both halves were swallowed, false when neither was.
    bool type(const platform::TapKey& key);
    /// The keys that programs miss now.
    std::vector<platform::TapKey> keysHeld() const;

    /// Another program has this combination, now and for ever.
    void take(const platform::TapKey& key) { m_taken.push_back(key); }

private:
    class Tap;
    std::vector<Tap*> m_taps; ///< in the order they were made
    std::vector<platform::TapKey> m_taken;
};

class SimulatedKeyboardLayout final : public platform::KeyboardLayout
{
public:
    std::uint64_t currentLayout() override { return m_layout; }
    QString charactersOfKey(std::int64_t keyCode) override { return m_characters.value(keyCode); }
    QString nameOfKey(std::int64_t keyCode) const override { return keyNames.value(keyCode); }
    /// Here a scan code is the key code plus eight, as 0 is none.
    std::int64_t keyCodeOf(std::uint32_t nativeScanCode, std::uint32_t) override
    {
        return nativeScanCode < 8 ? -1 : static_cast<std::int64_t>(nativeScanCode) - 8;
    }
    QString nameOfModifier(std::uint32_t flag) const override;
    QString signOfModifier(std::uint32_t) const override { return sign; }

    // For tests.
    QHash<std::int64_t, QString> keyNames;
    QString sign; ///< of a modifier
    void choose(QHash<std::int64_t, QString> characters)
    {
        m_characters = std::move(characters);
        ++m_layout;
    }

private:
    QHash<std::int64_t, QString> m_characters;
    std::uint64_t m_layout = 1;
};

} // namespace lumbrix::test
