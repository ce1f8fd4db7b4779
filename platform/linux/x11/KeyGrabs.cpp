// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/KeyGrabs.h"

#include "platform/InputState.h"
#include "platform/Log.h"
#include "platform/linux/x11/Connection.h"

#include <algorithm>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::uint32_t lowestBit(std::uint32_t bits) { return bits & (~bits + 1); }

/// Calls with every subset of the bits, the empty one first.
template <class Action> void forEachSubset(std::uint32_t bits, Action action)
{
    std::uint32_t subset = 0;
    do {
        action(subset);
        subset = (subset - bits) & bits;
    } while (subset != 0);
}

} // namespace

void KeyGrabs::setWanted(std::vector<TapKey> keys)
{
    {
        const std::lock_guard lock(m_mutex);
        if (keys == m_wanted && m_refused.empty())
            return;
        m_wanted = std::move(keys);
        m_isWantedDirty = true;
    }
    m_wake.wake();
}

std::vector<TapKey> KeyGrabs::refused() const
{
    const std::lock_guard lock(m_mutex);
    return m_refused;
}

void KeyGrabs::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
        break;
    case XCB_KEY_RELEASE:
        released(reinterpret_cast<const xcb_key_release_event_t&>(event));
        break;
    case XCB_FOCUS_IN:
        if (reinterpret_cast<const xcb_focus_in_event_t&>(event).mode == XCB_NOTIFY_MODE_GRAB)
            finishRelease();
        break;
    case XCB_MAPPING_NOTIFY:
        m_isMappingDirty = true;
        break;
    default:
        break;
    }
}

void KeyGrabs::eventsHandled()
{
    tellRelease();
    if (std::exchange(m_isMappingDirty, false) && m_keyboard) {
        m_keyboard.reset();
        const std::lock_guard lock(m_mutex);
        m_isWantedDirty = true;
    }
    std::vector<TapKey> wanted;
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_isWantedDirty, false))
            return;
        wanted = m_wanted;
    }
    const std::vector<Grab> grabs = grabsFor(wanted);
    for (const Grab& grab : std::exchange(m_held, {}))
        if (std::find(grabs.begin(), grabs.end(), grab) != grabs.end())
            m_held.push_back(grab);
        else
            giveBack(grab);
    // Keys that the keyboard does not have are refused too.
    std::vector<TapKey> refused = wanted;
    std::erase_if(refused, [&](const TapKey& key) {
        return std::any_of(grabs.begin(), grabs.end(),
                           [&](const Grab& grab) { return grab.key == key; });
    });
    take(grabs, refused);
    qCDebug(log::keys, "%zu keys are taken for previews or hot keys", m_held.size());
    for (const TapKey& key : refused)
        qCDebug(log::keys, "key %lld with modifiers %#x cannot be had: another program has it",
                static_cast<long long>(key.keyCode), key.flags);
    const std::lock_guard lock(m_mutex);
    m_refused = std::move(refused);
}

std::vector<KeyGrabs::Grab> KeyGrabs::grabsFor(const std::vector<TapKey>& keys)
{
    std::vector<Grab> grabs;
    if (keys.empty() || !readKeyboard())
        return grabs;
    const ModifierMasks& masks = m_keyboard->masks;
    for (const TapKey& key : keys) {
        const auto place = static_cast<std::uint64_t>(key.keyCode); // −1 is out of range
        const xcb_keycode_t keycode =
            place < m_keyboard->keycodes.size() ? m_keyboard->keycodes[place] : xcb_keycode_t{0};
        const std::uint32_t modifiers = modifiersFor(key.flags);
        const std::uint32_t locks =
            (XCB_MOD_MASK_LOCK | masks.numLock | masks.scrollLock) & ~modifiers;
        const Grab grab{key, keycode, modifiers, locks};
        if (keycode != 0 && std::find(grabs.begin(), grabs.end(), grab) == grabs.end())
            grabs.push_back(grab);
    }
    return grabs;
}

bool KeyGrabs::readKeyboard()
{
    if (m_keyboard)
        return true;
    const auto masks = readModifierMasks(m_requests);
    // The map needs too much memory to keep it for a few keys.
    const auto keymap = Keymap::read(m_requests);
    if (masks && keymap) {
        m_keyboard.emplace(Keyboard{keymap->keycodes(), *masks});
        watchGrabs();
    }
    return m_keyboard.has_value();
}

/// The window of a grab gets the focus with it. What else is selected there stays.
void KeyGrabs::watchGrabs() const
{
    xcb_connection_t* c = m_events.get();
    const auto attributes = m_events.reply(xcb_get_window_attributes_reply,
                                           xcb_get_window_attributes(c, m_events.root()));
    if (!attributes)
        return;
    const std::uint32_t mask = attributes->your_event_mask | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(c, m_events.root(), XCB_CW_EVENT_MASK, &mask);
}

std::uint32_t KeyGrabs::modifiersFor(std::uint32_t flags) const
{
    const ModifierMasks& masks = m_keyboard->masks;
    return (flags & ModifierFlag::shift ? std::uint32_t{XCB_MOD_MASK_SHIFT} : 0U) |
           (flags & ModifierFlag::control ? std::uint32_t{XCB_MOD_MASK_CONTROL} : 0U) |
           (flags & ModifierFlag::option ? lowestBit(masks.option) : 0U) |
           (flags & ModifierFlag::command ? lowestBit(masks.command) : 0U);
}

/// The keyboard does not freeze, so programs that hold it for longer delay nobody else; but for
/// keys that are passed on, for the moment until they are.
void KeyGrabs::take(const std::vector<Grab>& grabs, std::vector<TapKey>& refused)
{
    xcb_connection_t* c = m_events.get();
    std::vector<std::pair<Grab, std::vector<xcb_void_cookie_t>>> asked;
    for (const Grab& grab : grabs) {
        if (std::find(m_held.begin(), m_held.end(), grab) != m_held.end())
            continue;
        auto& cookies = asked.emplace_back(grab, std::vector<xcb_void_cookie_t>()).second;
        forEachSubset(grab.locks, [&](std::uint32_t locks) {
            cookies.push_back(xcb_grab_key_checked(
                c, 0, m_events.root(), static_cast<std::uint16_t>(grab.modifiers | locks),
                grab.keycode, XCB_GRAB_MODE_ASYNC,
                grab.key.isPassedOn ? XCB_GRAB_MODE_SYNC : XCB_GRAB_MODE_ASYNC));
        });
    }
    // Only the first reply waits for the server; the others have arrived by then.
    for (const auto& [grab, cookies] : asked) {
        bool isOurs = true;
        for (const xcb_void_cookie_t cookie : cookies)
            isOurs = m_events.succeeded(cookie) && isOurs;
        if (isOurs) {
            m_held.push_back(grab);
        } else {
            giveBack(
                grab); // a key that works only with some states of the locks is worse than none
            refused.push_back(grab.key);
        }
    }
}

void KeyGrabs::giveBack(const Grab& grab) const
{
    forEachSubset(grab.locks, [&](std::uint32_t locks) {
        xcb_ungrab_key(m_events.get(), grab.keycode, m_events.root(),
                       static_cast<std::uint16_t>(grab.modifiers | locks));
    });
}

/// A key that is held repeats: to the server that is a release and a press of the same moment. Of a
/// key that is pressed anew, the grab begins anew before the press.
void KeyGrabs::pressed(const xcb_key_press_event_t& event)
{
    constexpr std::uint32_t modifierBits = 0xff;
    const auto grab = std::find_if(m_held.begin(), m_held.end(), [&](const Grab& held) {
        return held.keycode == event.detail &&
               (event.state & modifierBits & ~held.locks) == held.modifiers;
    });
    // Also of a key that is not wanted any more: its grab may have begun before it was given back,
    // and would keep the keyboard frozen. Where nothing is frozen this does nothing.
    if (grab == m_held.end() || grab->key.isPassedOn)
        passOn(event);
    if (m_release && m_release->detail == event.detail && m_release->time == event.time) {
        m_release.reset();
        return;
    }
    finishRelease();
    if (m_down.contains(event.detail))
        return; // some servers repeat without releases
    if (grab == m_held.end())
        return; // pressed while another of our keys is down
    if (!grab->key.isPassedOn)
        m_down[event.detail] = grab->key;
    m_report({TapEvent::Type::KeyDown, grab->key});
}

/// To whoever would have had it.
void KeyGrabs::passOn(const xcb_key_press_event_t& event) const
{
    xcb_allow_events(m_events.get(), XCB_ALLOW_REPLAY_KEYBOARD, event.time);
    xcb_flush(m_events.get());
}

/// Not told before it is known that it is none of a repeat.
void KeyGrabs::released(const xcb_key_release_event_t& event)
{
    finishRelease();
    m_release = event;
}

void KeyGrabs::tellRelease()
{
    if (!m_release)
        return;
    if (const auto down = m_down.extract(m_release->detail))
        m_report({TapEvent::Type::KeyUp, down.mapped()});
}

void KeyGrabs::finishRelease()
{
    tellRelease();
    m_release.reset();
}

} // namespace lumbrix::platform::x11
