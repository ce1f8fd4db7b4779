// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/SGHotKeyCenter.h"

#include <algorithm>

#include "app/HotKeyIdentifiers.h"
#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/Log.h"
#include "platform/RunLoop.h"

namespace lumbrix
{
namespace
{

using platform::TapEvent;
using platform::TapKey;

constexpr std::int64_t escapeKey = 53;

TapKey tapKey(const SGHotKey& hotKey)
{
    return {hotKey.keyCombo.keyCode, hotKey.keyCombo.modifierMask()};
}

} // namespace

SGHotKeyCenter::~SGHotKeyCenter() { tearDown(); }

void SGHotKeyCenter::setUpEventHandler()
{
    if (!m_eventTap) {
        const auto callback = [this](const TapEvent& event) { return handleEvent(event); };
        platform::EventTaps& taps = platform::desktop().eventTaps;
        m_eventTap = taps.createTap(platform::TapEvents::Keys, callback);
        m_tabEventTap = taps.createTap(platform::TapEvents::KeysAndClicks, callback);
        m_escapeTap = taps.createTap(platform::TapEvents::Keys, [](const TapEvent& event) {
            if (event.type == TapEvent::Type::KeyDown)
                platform::desktop().runLoop.performOnMainThread(
                    [] { LXHandler::sharedHandler().escape(); }, false);
            return !event.key.isPassedOn;
        });
    }
    // Settings that change while previews are up leave their keys working.
    if (hasLastingKeys() || !LXHandler::sharedHandler().isShowingPreviews())
        toggleEventTap(false);
}

void SGHotKeyCenter::tearDown()
{
    if (m_isUpdatePending)
        platform::desktop().runLoop.cancelPreviousPerformRequests(this);
    m_isUpdatePending = m_isEventTapOn = m_isTabEventTapOn = false;
    m_eventTap = nullptr;
    m_tabEventTap = nullptr;
    m_escapeTap = nullptr;
}

void SGHotKeyCenter::registerHotKey(const HotKeyPtr& hotKey)
{
    unregisterHotKey(hotKey);
    if (!hotKey || !hotKey->keyCombo.isValidHotKeyCombo())
        return;
    m_hotKeys.push_back(hotKey);
    scheduleUpdate();
}

void SGHotKeyCenter::unregisterHotKey(const HotKeyPtr& hotKey)
{
    if (std::erase(m_hotKeys, hotKey) > 0)
        scheduleUpdate();
}

SGHotKeyCenter::HotKeyPtr SGHotKeyCenter::hotKeyWithIdentifier(const QString& identifier) const
{
    const auto found =
        std::find_if(m_hotKeys.begin(), m_hotKeys.end(),
                     [&](const HotKeyPtr& hotKey) { return hotKey->identifier == identifier; });
    return found == m_hotKeys.end() || identifier.isNull() ? nullptr : *found;
}

std::vector<SGHotKeyCenter::HotKeyPtr> SGHotKeyCenter::takenHotKeys() const
{
    std::vector<HotKeyPtr> result;
    for (const platform::EventTap* tap : {m_eventTap.get(), m_tabEventTap.get()}) {
        if (!tap || !tap->isEnabled())
            continue;
        const std::vector<TapKey> taken = tap->takenKeys();
        for (const HotKeyPtr& hotKey : m_hotKeys)
            if (std::find(taken.begin(), taken.end(), tapKey(*hotKey)) != taken.end())
                result.push_back(hotKey);
    }
    return result;
}

/// Only valid combinations are registered.
bool SGHotKeyCenter::isSet(const QString& identifier) const
{
    return hotKeyWithIdentifier(identifier) != nullptr;
}

bool SGHotKeyCenter::hasLastingKeys() const
{
    return isSet(HotKeyIdentifier::EnableDisable) || isSet(HotKeyIdentifier::OpenRow);
}

/// Of the keys that other programs may have a use for, those that would do something now.
bool SGHotKeyCenter::isWanted(const SGHotKey& hotKey) const
{
    const LXHandler& engine = LXHandler::sharedHandler();
    if (hotKey.identifier == HotKeyIdentifier::EnableDisable || m_isTrying)
        return true;
    return hotKey.identifier == HotKeyIdentifier::OpenRow ? engine.settings().disabled == 0
                                                          : engine.isShowingPreviews();
}

void SGHotKeyCenter::toggleEventTap(bool on)
{
    if (!m_eventTap || !m_tabEventTap)
        return;
    if (!on) {
        if (hasLastingKeys()) {
            enableKeyboardTap(); // works while previews are off, and from any program
        } else {
            m_isEventTapOn = m_isTabEventTapOn = false;
            scheduleUpdate();
        }
        return;
    }
    if (m_isEventTapOn || m_isTabEventTapOn)
        return;
    const LXHandler& engine = LXHandler::sharedHandler();
    const auto& previews = engine.screenyViews();
    if (engine.settings().showInTab && !previews.empty() && previews.front()->setByTab()) {
        m_isTabEventTapOn = true;
        scheduleUpdate();
    } else if (engine.settings().showFastKeys || isSet(HotKeyIdentifier::HideAllPreviews) ||
               isSet(HotKeyIdentifier::CloseAllWindows)) {
        enableKeyboardTap();
    }
}

void SGHotKeyCenter::setSuspended(bool suspended)
{
    m_isSuspended = suspended;
    scheduleUpdate();
}

void SGHotKeyCenter::setTrying(bool trying)
{
    m_isTrying = trying;
    scheduleUpdate();
}

void SGHotKeyCenter::enableKeyboardTap()
{
    m_isEventTapOn = true;
    scheduleUpdate();
}

void SGHotKeyCenter::scheduleUpdate()
{
    if (m_isUpdatePending || !m_eventTap)
        return;
    m_isUpdatePending = true;
    platform::desktop().runLoop.performAfterDelay(this, 0, [this] {
        m_isUpdatePending = false;
        updateTaps();
    });
}

void SGHotKeyCenter::updateTaps()
{
    std::vector<TapKey> keys;
    for (const HotKeyPtr& hotKey : m_hotKeys)
        if (isWanted(*hotKey))
            keys.push_back(tapKey(*hotKey));
    m_eventTap->setKeys(keys);
    m_tabEventTap->setKeys(keys);
    m_eventTap->setEnabled((m_isEventTapOn || m_isTrying) && !m_isSuspended);
    m_tabEventTap->setEnabled(m_isTabEventTapOn && !m_isSuspended);
    updateEscape();
}

/// Escape is the row's alone while the mouse is on a preview, or one is chosen: it must not cancel
/// what is below. While the mouse only rests on the icon, perhaps forgotten there by somebody who
/// writes in an editor, the row goes, but the editor has its key as well. The switcher's row goes
/// with the switcher, which has the keyboard.
void SGHotKeyCenter::updateEscape()
{
    const auto& previews = LXHandler::sharedHandler().screenyViews();
    const bool isHovered =
        std::ranges::any_of(previews, [](const auto& preview) { return preview->isHovered(); });
    m_escapeTap->setKeys({TapKey{escapeKey, 0, !isHovered}});
    m_escapeTap->setEnabled(!previews.empty() && !previews.front()->setByTab() && !m_isSuspended);
}

bool SGHotKeyCenter::handleEvent(const TapEvent& event)
{
    switch (event.type) {
    case TapEvent::Type::LeftMouseDown:
        return LXHandler::sharedHandler().shouldInterceptClick(true, false);
    case TapEvent::Type::LeftMouseUp:
        return LXHandler::sharedHandler().shouldInterceptClick(false, false);
    case TapEvent::Type::KeyDown:
    case TapEvent::Type::KeyUp:
        break;
    }
    const auto found =
        std::find_if(m_hotKeys.begin(), m_hotKeys.end(),
                     [&](const HotKeyPtr& hotKey) { return tapKey(*hotKey) == event.key; });
    if (found == m_hotKeys.end())
        return false;
    // The release is swallowed with the press, so that no program sees half a key.
    if (event.type == TapEvent::Type::KeyDown) {
        qCDebug(log::keys, "%s was pressed", qUtf8Printable((*found)->identifier));
        platform::desktop().runLoop.performOnMainThread([hotKey = *found] { hotKey->action(); },
                                                        false);
    }
    return true;
}

} // namespace lumbrix
