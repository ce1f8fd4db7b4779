// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How large the toolkit draws: it takes the factor from the desktop's settings, and anew when these
// change.
#pragma once

#include <QtCore/QObject>

#include <functional>

class QScreen;

namespace lumbrix::platform
{

/// Main thread.
class ToolkitScale final : public QObject
{
    Q_OBJECT

public:
    /// `changed` is called with the pixels per point when they are others than before.
    explicit ToolkitScale(std::function<void(double)> changed);

private:
    void watch(const QScreen* screen);
    void look();

    const std::function<void(double)> m_changed;
    double m_last;
};

} // namespace lumbrix::platform
