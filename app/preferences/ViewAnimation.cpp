// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/ViewAnimation.h"

#include <QtGui/QPainter>

#include <utility>

#include "platform/Desktop.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds interval = 1.0 / 60;
}

ViewAnimation::~ViewAnimation()
{
    if (m_timer)
        m_timer->invalidate();
}

void ViewAnimation::start(platform::Seconds duration, std::function<void(double)> step,
                          std::function<void()> didEnd)
{
    finish();
    m_step = std::move(step);
    m_didEnd = std::move(didEnd);
    m_duration = duration;
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    m_begin = runLoop.now();
    m_timer = runLoop.scheduleTimer(interval, true, [this] { advance(); });
}

void ViewAnimation::finish()
{
    if (m_timer)
        end();
}

void ViewAnimation::advance()
{
    const double time = (platform::desktop().runLoop.now() - m_begin) / m_duration;
    if (time >= 1)
        end();
    else
        m_step(time * time * (3 - 2 * time));
}

void ViewAnimation::end()
{
    // The callback may start the next animation.
    const platform::TimerPtr timer = std::exchange(m_timer, nullptr);
    timer->invalidate();
    const auto step = std::exchange(m_step, nullptr);
    const auto didEnd = std::exchange(m_didEnd, nullptr);
    step(1);
    didEnd();
}

CrossFadeView::CrossFadeView(QPixmap from, QPixmap to, QWidget* parent)
    : QWidget(parent), m_from(std::move(from)), m_to(std::move(to))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CrossFadeView::setProgress(double progress)
{
    m_progress = progress;
    update();
}

void CrossFadeView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setOpacity(1 - m_progress);
    painter.drawPixmap(0, 0, m_from);
    painter.setOpacity(m_progress);
    painter.drawPixmap(0, 0, m_to);
}

} // namespace lumbrix
