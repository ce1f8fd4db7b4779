// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Who wants to hear when the picture of a window has changed.
#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/WindowServer.h"

namespace lumbrix::platform::x11
{

/// Any thread, unless said otherwise. The run loop outlives the last call of tell().
class PictureWatchers : public std::enable_shared_from_this<PictureWatchers>
{
public:
    explicit PictureWatchers(RunLoop& runLoop) : m_runLoop(runLoop) {}

    /// Main thread; there the subscription is dropped, and `changed` called, but never from in
    /// here. The subscription may outlive this.
    std::unique_ptr<PictureSubscription> add(xcb_window_t window, std::function<void()> changed);
    /// Has those who watch this window called soon, once for all that is told until then.
    void tell(xcb_window_t window);

private:
    struct Watcher;
    class Subscription;
    void callTold();

    RunLoop& m_runLoop;
    std::mutex m_mutex; // guards what follows
    std::unordered_multimap<xcb_window_t, std::shared_ptr<Watcher>> m_watchers;
    std::vector<std::shared_ptr<Watcher>> m_told; ///< to be called; a call is due unless empty
};

} // namespace lumbrix::platform::x11
