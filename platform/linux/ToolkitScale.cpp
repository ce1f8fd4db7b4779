// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/ToolkitScale.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <algorithm>
#include <utility>

namespace lumbrix::platform
{

namespace
{

// While a change is being signalled the application still returns the old value.
double pixelsPerPoint()
{
    double largest = 1.0;
    for (const QScreen* screen : QGuiApplication::screens())
        largest = std::max(largest, screen->devicePixelRatio());
    return largest;
}

} // namespace

ToolkitScale::ToolkitScale(std::function<void(double)> changed)
    : m_changed(std::move(changed)), m_last(pixelsPerPoint())
{
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &ToolkitScale::watch);
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
}

// There is no signal for the factor itself, but a screen's size in points changes with it.
void ToolkitScale::watch(const QScreen* screen)
{
    connect(screen, &QScreen::geometryChanged, this, &ToolkitScale::look);
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &ToolkitScale::look);
}

void ToolkitScale::look()
{
    const double now = pixelsPerPoint();
    if (std::exchange(m_last, now) != now)
        m_changed(now);
}

} // namespace lumbrix::platform
