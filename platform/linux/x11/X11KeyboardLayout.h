// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <memory>

#include "platform/KeyboardLayout.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Keymap.h"

namespace lumbrix::platform::x11
{

/// Each query is one round trip on the main thread; the first one after a change takes a few more.
/// If the server is gone, no key types anything.
class X11KeyboardLayout final : public KeyboardLayout, public EventHandler
{
public:
    explicit X11KeyboardLayout(const Connection& requests) : m_requests(requests) {}

    std::uint64_t currentLayout() override;
    QString charactersOfKey(std::int64_t keyCode) override;
    QString nameOfKey(std::int64_t keyCode) const override;
    std::int64_t keyCodeOf(std::uint32_t nativeScanCode, std::uint32_t nativeVirtualKey) override;
    QString nameOfModifier(std::uint32_t flag) const override;
    QString signOfModifier(std::uint32_t flag) const override;

    void handleEvent(const xcb_generic_event_t& event) override;

private:
    void readKeymap();

    const Connection& m_requests;
    std::atomic<std::uint64_t> m_changes{1}; ///< of the map; counted on the event thread
    std::uint64_t m_changesRead = 0;
    std::unique_ptr<Keymap> m_keymap; ///< read on demand
};

} // namespace lumbrix::platform::x11
