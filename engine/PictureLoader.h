// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pictures of the previews, brought without keeping the main thread waiting.
#pragma once

#include <QtGui/QImage>

#include <functional>
#include <map>
#include <memory>
#include <vector>

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
    /// the ports do.
    PictureLoader(const platform::Desktop& ports, const std::vector<ScreenyViewPtr>& previews);
    ~PictureLoader();

    /// Gives every shown preview that has no picture that of its window: at once where nothing has
    /// to be copied, else as soon as a thread has done that. Holds all of them. To be called
    /// between arranging the previews, which decides how large the pictures are, and ordering them
    /// front. A window of which nothing was ever seen, because it was minimised or elsewhere since
    /// before this program started, has its application's icon instead.
    void loadMissing();
    /// Lets the previews come onto the screen together once all have their pictures, though never
    /// much later than they otherwise would: one whose picture is slow to come shows none at first.
    /// To be called when nothing more will be changed about them, or they are painted twice.
    void showWhenComplete();
    /// Gives one preview the picture of its window, as soon as a thread has copied it, without
    /// anything waiting for that.
    void loadUnseen(const ScreenyViewPtr& preview);
    /// Captures the window of the preview; the picture lands in the window's screenshot, now or
    /// later, if the preview still shows that window then. Nothing while a capture of the window is
    /// under way.
    void updateScreenshot(ScreenyView& preview);

private:
    class Queue;

    void load(const ScreenyViewPtr& preview);
    /// Main thread. The preview is null when it does not show that window any more.
    using Arrived = std::function<void(ScreenyView* preview, const QImage& picture)>;
    void loadIcon(ScreenyView& preview);
    void setIcons(const QString& bundle, const QImage& icon);
    /// One that this round waits for is there.
    void arrived(int round);
    void captureLater(ScreenyView& preview, Arrived arrived);
    void letGo();

    const platform::Desktop& m_ports;
    const std::vector<ScreenyViewPtr>& m_previews;
    std::shared_ptr<Queue> m_queue;
    std::map<QString, std::vector<std::weak_ptr<ScreenyView>>> m_iconWanted; ///< by bundle
    const platform::MainThreadGuard m_guard;
    int m_waiting = 0; ///< pictures that this round still has to bring
    int m_round = 0;   ///< which of the waits this is; what an earlier one brings late ends none
};

} // namespace lumbrix
