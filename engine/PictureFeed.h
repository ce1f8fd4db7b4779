// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps the pictures of the previews alive, within a budget.
#pragma once

#include <list>
#include <memory>
#include <optional>
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
    /// The shortest time between two pictures of the only film: films have 24 to 30 a second.
    static constexpr platform::Seconds minInterval = 0.03;
    /// Where several windows change they are captured together, in rounds so far apart: what costs
    /// most about a picture is not copying it but having it composed with what is below, which is
    /// done once for all that are painted in the same moment.
    static constexpr platform::Seconds roundInterval = 0.045;
    /// While none of them is under the mouse, or large, a round takes all that are due, and the
    /// next comes when the budget has them again: each is shown as often, in fewer moments. At most
    /// so far apart.
    static constexpr platform::Seconds maxRoundInterval = 0.2;
    /// What all previews together may have copied in a second, and what the rest of a picture's way
    /// to the screen counts for; of films of 1280×800 that makes eighty pictures.
    static constexpr double pixelsPerSecond = 1.7e8;
    static constexpr double pixelsPerPicture = 1.0e6;
    /// A window that changes again so soon after it was captured moves: its picture need not be
    /// exact before it has rested for longer than that.
    static constexpr platform::Seconds movingInterval = 0.12;
    static constexpr platform::Seconds restInterval = 0.16;

    /// As long the server draws a film by itself. What it does not draw over, as are the corners,
    /// and the pictures that are kept here, get old meanwhile. Of many they may get older: so far
    /// apart at least are two that are captured for no other reason.
    static constexpr platform::Seconds maxDrawn = 3.0;
    static constexpr platform::Seconds renewalInterval = 0.6;
    /// A film that changes faster than it is shown will have changed by the next time, too. That
    /// it does is heard only so often: being told of each frame takes longer than drawing it.
    static constexpr platform::Seconds tellingInterval = 0.3;
    /// One that had to wait for so long changes faster.
    static constexpr platform::Seconds noticeableWait = 0.01;

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
    /// Shows the picture of the preview's window as it is now, if that is at hand; whether it was.
    static bool bringUpToDate(ScreenyView& preview);
    /// Shows what was captured, in the zoomed view too.
    static void show(ScreenyView& preview, const CaptureQueue::Captured& captured);

private:
    struct Film {
        ScreenyViewPtr preview;
        SWElementPtr window;
        std::unique_ptr<platform::PictureSubscription> subscription;
        bool isDue = false;
        bool isMoving = false; ///< it was drawn on again as soon as in a film
        bool isRough = false;  ///< what is shown is not exact
        bool isUnderWay = false;
        platform::Seconds dueSince = -1; ///< of one that is due because it has changed
        platform::Seconds told = -1;     ///< drawn so that the next change was told
        platform::Seconds last = -1;     ///< when it was captured, or drawn, last
        platform::Seconds captured = -1; ///< when its pixels came here last
        platform::Seconds cost = 0;      ///< of the budget, of one picture
    };

    Film* find(const ScreenyView& preview, const SWElementPtr& window);
    /// Shows the window's picture if that is at hand; false when it has to be captured.
    static bool showCurrent(const Film& film);
    void changed(const ScreenyView& preview, const SWElementPtr& window);
    /// Captures what is due, as far as that may be now, and comes again when more may be.
    void serve();
    /// Has it come again by then.
    void serveAt(platform::Seconds time);
    /// Those that rest now are due for an exact picture; when the next one will, if any.
    std::optional<platform::Seconds> noteRests(platform::Seconds now);
    /// What is due, that which comes first first.
    std::vector<Film*> candidates();
    /// How far apart rounds are that take these.
    static platform::Seconds roundIntervalFor(const std::vector<Film*>& due);
    void startRound(platform::Seconds now, const std::vector<Film*>& candidates,
                    platform::Seconds interval);
    /// Has the server draw those that move onto their previews; the others, and those it cannot.
    std::vector<Film*> drawMoving(const std::vector<Film*>& films, platform::Seconds now);
    /// The one that was drawn for longest and has to be captured by now; null: none has.
    const Film* outdated(platform::Seconds now) const;
    void capture(Film& film, platform::Seconds now);
    void moveToEnd(const Film& film); ///< the others come before it now
    platform::Seconds costOf(const Film& film) const;

    const platform::Desktop& m_ports;
    const EngineSettings& m_settings;
    CaptureQueue& m_queue;
    std::list<Film> m_films; ///< the one captured longest ago first
    int m_underWay = 0;
    platform::Seconds m_freeAt = 0;                ///< when the budget is even
    platform::Seconds m_lastRound = -1;            ///< when it began
    platform::Seconds m_lastRenewal = -1;          ///< when one was drawn for long enough
    std::optional<platform::Seconds> m_servedNext; ///< when serve() comes by itself
    bool m_wasOnlyHovered = false;                 ///< in the last round, while others waited
    const platform::MainThreadGuard m_guard;
};

} // namespace lumbrix
