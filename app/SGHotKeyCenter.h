// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The set of hot keys, and the two taps that make them work: one for keys alone, and one for the
// time the application switcher holds the mouse.
#pragma once

#include <memory>
#include <vector>

#include "platform/EventTaps.h"
#include "preview/HotKeyCenter.h"

namespace lumbrix
{

/// Main thread. Keys are taken from other programs only while a tap is on, and only those of
/// registered hot keys. Beside them Escape, without a modifier, takes the row away: see
/// updateEscape().
class SGHotKeyCenter final : public HotKeyCenter
{
public:
    using HotKeyPtr = std::shared_ptr<SGHotKey>;

    SGHotKeyCenter() = default;
    ~SGHotKeyCenter() override;
    SGHotKeyCenter(const SGHotKeyCenter&) = delete;
    SGHotKeyCenter& operator=(const SGHotKeyCenter&) = delete;

    /// Makes the taps unless they are there, and turns them on or off as the hot keys registered
    /// now ask for. Nothing works before the first call.
    void setUpEventHandler();
    /// Drops the taps; all keys go back to the programs.
    void tearDown();

    /// Nothing for a key without a modifier, which would take a plain key from everybody.
    void registerHotKey(const HotKeyPtr& hotKey) override;
    void unregisterHotKey(const HotKeyPtr& hotKey) override;
    void toggleEventTap(bool on) override;
    void rowChanged() override { scheduleUpdate(); }

    /// While the user presses the keys of a new hot key, no key is taken.
    void setSuspended(bool suspended);
    /// While the user looks at the hot keys, all that are registered are taken even where none is
    /// needed, so that takenHotKeys() knows about all.
    void setTrying(bool trying);

    const std::vector<HotKeyPtr>& allHotKeys() const { return m_hotKeys; } ///< oldest first
    /// Null when there is none.
    HotKeyPtr hotKeyWithIdentifier(const QString& identifier) const;
    /// The hot keys that do not work now because another program has their combination.
    std::vector<HotKeyPtr> takenHotKeys() const;

private:
    bool isSet(const QString& identifier) const;
    /// Whether there are hot keys that work without previews.
    bool hasLastingKeys() const;
    bool isWanted(const SGHotKey& hotKey) const;
    void enableKeyboardTap();
    /// In the next pass of the loop: a row of previews comes with ten keys, and one that follows
    /// another at once mostly has the same.
    void scheduleUpdate();
    void updateTaps();
    void updateEscape();
    /// Whether the event is ours.
    bool handleEvent(const platform::TapEvent& event);

    std::vector<HotKeyPtr> m_hotKeys;
    std::unique_ptr<platform::EventTap> m_eventTap;
    std::unique_ptr<platform::EventTap> m_tabEventTap;
    std::unique_ptr<platform::EventTap> m_escapeTap;
    // As they are to be after the pending update.
    bool m_isEventTapOn = false;
    bool m_isTabEventTapOn = false;
    bool m_isUpdatePending = false;
    bool m_isSuspended = false;
    bool m_isTrying = false;
};

} // namespace lumbrix
