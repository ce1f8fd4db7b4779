// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps the pictures of the previews alive, within a budget.
#pragma once

#include <list>
#include <memory>
#include <vector>

#include "engine/CaptureQueue.h"
#include "model/EngineSettings.h"
#include "platform/Desktop.h"
#include "platform/MainThreadGuard.h"
#include "platform/WindowServer.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Each picture follows its window: it is captured again when something was drawn, and not at all
/// while nothing is. Where more is drawn than is worth copying, the preview under the mouse comes
/// first, then the others in turn. Main thread.
class PictureFeed
{
public:
    /// The shortest time between two pictures of a preview: films have 24 to 30 a second.
    static constexpr platform::Seconds minInterval = 0.03;
    /// The same for the one under the mouse while other films play.
    static constexpr platform::Seconds sharedInterval = 0.04;
    /// What all previews together may have copied in a second; a film of 1280×800 in fifteen of
    /// them gets a hundred pictures.
    static constexpr double pixelsPerSecond = 1.0e8;

    /// All of it outlives the feed.
    PictureFeed(const platform::Desktop& ports, const EngineSettings& settings, CaptureQueue& queue)
        : m_ports(ports), m_settings(settings), m_queue(queue)
    {
    }

    ~PictureFeed() { m_ports.runLoop.cancelPreviousPerformRequests(this); }
    PictureFeed(const PictureFeed&) = delete;
    PictureFeed& operator=(const PictureFeed&) = delete;

    /// From now on the picture of this preview is alive, unless the user wants still ones.
    void follow(const ScreenyViewPtr& preview);
    /// Has no other previews than these, and looks whether all is as it should be: which windows
    /// they show, how large their pictures are, and whether one missed a change.
    void keepTo(const std::vector<ScreenyViewPtr>& previews);
    /// Shows what was captured, in the zoomed view too.
    static void show(ScreenyView& preview, const CaptureQueue::Captured& captured);

private:
    struct Film {
        ScreenyViewPtr preview;
        SWElementPtr window;
        std::unique_ptr<platform::PictureSubscription> subscription;
        bool isDue = false;
        bool isUnderWay = false;
        platform::Seconds last = -1; ///< when it was captured last
    };

    Film* find(const ScreenyView& preview, const SWElementPtr& window);
    /// Shows the window's picture if that is at hand; false when it has to be captured.
    static bool showCurrent(Film& film);
    void changed(const ScreenyView& preview, const SWElementPtr& window);
    /// Captures what is due, as far as that may be now, and comes again when more may be.
    void serve();
    Film* nextToServe(platform::Seconds now, platform::Seconds& wait);
    bool mayBeServed(const Film& film, bool isAlone, platform::Seconds now,
                     platform::Seconds& wait) const;
    void capture(Film& film, platform::Seconds now);
    double pixelsOf(const Film& film) const;

    const platform::Desktop& m_ports;
    const EngineSettings& m_settings;
    CaptureQueue& m_queue;
    std::list<Film> m_films; ///< the one captured longest ago first
    int m_underWay = 0;
    platform::Seconds m_freeAt = 0;  ///< when the budget allows the next one
    bool m_wasHoveredServed = false; ///< last
    const platform::MainThreadGuard m_guard;
};

} // namespace lumbrix
