// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps the program's icon in a Dock that shows programs by their windows.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QWidget;

namespace lumbrix
{

/// Main thread. To be gone before the window is. Until then the window stays: instead of closing it
/// is minimised, and a click on the icon brings it back.
class DockIcon final : public QObject
{
    Q_OBJECT

public:
    /// A window that is not shown yet is shown minimised.
    explicit DockIcon(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QPointer<QWidget> m_window;
};

} // namespace lumbrix
