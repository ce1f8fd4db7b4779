// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The windows of one running application, and whether they are hidden together.
#pragma once

#include <xcb/xcb.h>

#include <utility>
#include <vector>

#include "platform/Workspace.h"

namespace lumbrix::platform
{

/// Not locked; the registry guards it. Times are seconds of a monotonic clock.
class ApplicationGroup
{
public:
    ApplicationGroup(QString key, RunningApplication running)
        : m_key(std::move(key)), m_running(std::move(running))
    {
    }

    const QString& key() const { return m_key; }
    const RunningApplication& running() const { return m_running; }
    void setPid(std::int32_t pid) { m_running.pid = pid; }

    void add(xcb_window_t id, bool skipTaskbar, bool isIconic);
    void update(xcb_window_t id, bool skipTaskbar, bool isIconic);
    void remove(xcb_window_t id);
    std::vector<xcb_window_t> windows() const; ///< in the order they appeared
    bool isEmpty() const { return m_windows.empty(); }
    /// Whether it has a window that task bars show.
    bool isRegular() const;

    /// These windows were requested to become iconic. The application counts as hidden while all of
    /// them are iconic, and for a moment before that.
    void markHidden(const std::vector<xcb_window_t>& windows, double now);
    bool isHidden(double now) const;
    /// Ends the hidden state; returns the windows that were hidden.
    std::vector<xcb_window_t> takeHidden(double now);

private:
    struct Window {
        bool skipTaskbar = false;
        bool isIconic = false;
        bool wasHidden = false; ///< named by markHidden
        bool wasIconicSinceHidden = false;
    };

    QString m_key;
    RunningApplication m_running;
    std::vector<std::pair<xcb_window_t, Window>> m_windows;
    double m_hiddenAt = 0.0;
};

} // namespace lumbrix::platform
