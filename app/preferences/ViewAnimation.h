// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Animations: their clock, and a view that fades into another.
#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include <functional>

#include "platform/RunLoop.h"

namespace lumbrix
{

/// Calls back at the frame rate of a smooth animation. Main thread.
class ViewAnimation
{
public:
    ~ViewAnimation();

    /// Calls `step` with the progress, eased at both ends, from a little above 0 to 1; then
    /// `didEnd`. A running animation is finished first.
    void start(platform::Seconds duration, std::function<void(double)> step,
               std::function<void()> didEnd);
    /// Jumps to the end of a running animation.
    void finish();
    bool isRunning() const { return m_timer != nullptr; }

private:
    void advance();
    void end();

    platform::Seconds m_begin = 0;
    platform::Seconds m_duration = 0;
    std::function<void(double)> m_step;
    std::function<void()> m_didEnd;
    platform::TimerPtr m_timer;
};

/// A picture of one view that fades into a picture of another. Ignores the mouse.
class CrossFadeView final : public QWidget
{
    Q_OBJECT

public:
    CrossFadeView(QPixmap from, QPixmap to, QWidget* parent);

    void setProgress(double progress); ///< 0 to 1

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QPixmap m_from;
    const QPixmap m_to;
    double m_progress = 0;
};

} // namespace lumbrix
