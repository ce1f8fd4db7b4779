// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The toolkit's scale factor, which it takes from the desktop's settings and updates when these
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
    /// `changed` is called with the number of pixels per point whenever that changes.
    explicit ToolkitScale(std::function<void(double)> changed);

private:
    void watch(const QScreen* screen);
    void look();

    const std::function<void(double)> m_changed;
    double m_last;
};

} // namespace lumbrix::platform
