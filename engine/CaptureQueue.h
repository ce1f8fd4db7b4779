// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Captures windows on a few threads, each window once at a time.
#pragma once

#include <QtCore/QSize>
#include <QtGui/QImage>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "model/SWElement.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Main thread. Its threads may outlive whoever made it, and keep it.
class CaptureQueue : public std::enable_shared_from_this<CaptureQueue>
{
public:
    struct Wish {
        QSize limit;           ///< pixels, of the reduced picture
        bool isWhole = false;  ///< the whole picture is wanted, too
        bool isMoving = false; ///< the reduced one need not be exact
    };
    struct Captured {
        WindowPicture picture; ///< the whole one if that was wanted
        QImage reduced;
    };
    using Done = std::function<void(const Captured&)>;

    /// Outlived by the run loop.
    explicit CaptureQueue(platform::RunLoop& runLoop) : m_runLoop(runLoop) {}

    /// Calls `done` on the main thread once a thread has captured the window. One that waits
    /// already is captured once, as it was asked for last.
    void capture(const SWElementPtr& window, Wish wish, Done done);
    /// Whether the window waits, or is being captured.
    bool holds(const SWElementPtr& window) const;
    /// Hands out what has been captured by now; the loop would do that in a later pass.
    void deliver();

private:
    struct Task {
        SWElementPtr window;
        Wish wish;
        std::vector<Done> done;
        Captured captured;
    };

    void work();
    std::optional<Task> next();
    void finish(Task task);
    bool isUnderWay(const SWElementPtr& window) const;

    platform::RunLoop& m_runLoop;
    mutable std::mutex m_mutex;           // guards what follows
    std::deque<Task> m_tasks;             ///< one for a window
    std::vector<SWElementPtr> m_underWay; ///< of these, one for a thread at most
    std::vector<Task> m_finished;         ///< and not handed out
    platform::Seconds m_handedOut = 0;    ///< when that was done last, or begun to be captured
    int m_threads = 0;
};

} // namespace lumbrix
