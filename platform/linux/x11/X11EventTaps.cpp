// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11EventTaps.h"

#include "platform/linux/x11/KeyGrabs.h"

#include <algorithm>

namespace lumbrix::platform::x11
{

struct X11EventTaps::Taps {
    std::vector<Tap*> all; ///< in the order they were made; main thread
};

class X11EventTaps::Tap final : public EventTap
{
public:
    Tap(X11EventTaps& owner, Callback callback) : m_owner(owner), m_callback(std::move(callback))
    {
        m_owner.m_taps->all.push_back(this);
    }
    ~Tap() override
    {
        std::erase(m_owner.m_taps->all, this);
        m_owner.updateGrabs();
    }

    void setEnabled(bool enabled) override
    {
        m_isEnabled = enabled;
        m_owner.updateGrabs();
    }
    bool isEnabled() const override { return m_isEnabled; }
    void setKeys(const std::vector<TapKey>& keys) override
    {
        m_keys = keys;
        if (m_isEnabled)
            m_owner.updateGrabs();
    }
    std::vector<TapKey> takenKeys() const override
    {
        std::vector<TapKey> taken = m_owner.m_grabs.refused();
        std::erase_if(taken, [this](const TapKey& key) { return !wants(key); });
        return taken;
    }

    const std::vector<TapKey>& keys() const { return m_keys; }
    bool wants(const TapKey& key) const
    {
        return m_isEnabled && std::find(m_keys.begin(), m_keys.end(), key) != m_keys.end();
    }
    bool call(const TapEvent& event) const { return m_callback(event); }

private:
    X11EventTaps& m_owner;
    const Callback m_callback;
    std::vector<TapKey> m_keys;
    bool m_isEnabled = false;
};

X11EventTaps::X11EventTaps(RunLoop& runLoop, KeyGrabs& grabs)
    : m_grabs(grabs), m_taps(std::make_shared<Taps>())
{
    m_grabs.setReport([&runLoop, weak = std::weak_ptr(m_taps)](const TapEvent& event) {
        runLoop.performOnMainThread(
            [weak, event] {
                const auto taps = weak.lock();
                if (!taps)
                    return;
                // Newest first. A callback may change the list, but the loop ends after the first
                // tap that wants the event.
                const auto tap =
                    std::find_if(taps->all.rbegin(), taps->all.rend(),
                                 [&](const Tap* each) { return each->wants(event.key); });
                if (tap != taps->all.rend())
                    (*tap)->call(event);
            },
            false);
    });
}

X11EventTaps::~X11EventTaps() = default;

std::unique_ptr<EventTap> X11EventTaps::createTap(TapEvents, EventTap::Callback callback)
{
    return std::make_unique<Tap>(*this, std::move(callback));
}

void X11EventTaps::updateGrabs()
{
    std::vector<TapKey> keys;
    for (const Tap* tap : m_taps->all)
        if (tap->isEnabled())
            keys.insert(keys.end(), tap->keys().begin(), tap->keys().end());
    m_grabs.setWanted(std::move(keys));
}

} // namespace lumbrix::platform::x11
