// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pictures of the previews, brought without keeping the main thread waiting.
#pragma once

#include <QtGui/QImage>

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "engine/CaptureQueue.h"
#include "engine/PictureFeed.h"
#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/MainThreadGuard.h"

namespace lumbrix
{

class ScreenyView;
using ScreenyViewPtr = std::shared_ptr<ScreenyView>;

/// Main thread. Outlives every preview.
class PictureLoader
{
public:
    /// Works on the previews that the row has at the time, which outlive the loader as a list, as
    /// the rest does.
    PictureLoader(const platform::Desktop& ports, const std::vector<ScreenyViewPtr>& previews,
                  CaptureQueue& queue, PictureFeed& feed);
    ~PictureLoader();

    /// Gives every shown preview that has no picture that of its window: the last one there is at
    /// once, however old, and the present one as soon as a thread has copied it. From then on the
    /// picture is alive. Holds all of them. To be called between arranging the previews, which
    /// decides how large the pictures are, and ordering them front. A window of which nothing was
    /// ever seen, because it was minimised or elsewhere since before this program started, has its
    /// application's icon instead.
    void loadMissing();
    /// Lets the previews come onto the screen together, at once if each has something to show.
    /// Others are waited for for a moment too short to be seen.
    /// To be called when nothing more will be changed about them, or they are painted twice.
    void showWhenComplete();
    /// Gives one preview the picture of its window, as soon as a thread has copied it, without
    /// anything waiting for that.
    void loadUnseen(const ScreenyViewPtr& preview);

private:
    void load(const ScreenyViewPtr& preview);
    void loadIcon(ScreenyView& preview);
    void setIcons(const QString& bundle, const QImage& icon);
    /// One that this round waits for is there.
    void arrived(int round);
    void letGo();

    const platform::Desktop& m_ports;
    const std::vector<ScreenyViewPtr>& m_previews;
    CaptureQueue& m_queue;
    PictureFeed& m_feed;
    std::map<QString, std::vector<std::weak_ptr<ScreenyView>>> m_iconWanted; ///< by bundle
    std::map<const ScreenyView*, std::function<void()>> m_later; ///< captures that wait for the row
    const platform::MainThreadGuard m_guard;
    int m_waiting = 0; ///< pictures that this round still has to bring
    int m_round = 0;   ///< which of the waits this is; what an earlier one brings late ends none
};

} // namespace lumbrix
