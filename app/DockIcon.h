// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps the program's icon in a Dock that shows only programs with windows.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QWidget;

namespace lumbrix
{

/// Main thread. Must be destroyed before the window. Until then the window is minimised instead of
/// closed, and a click on the icon brings it back.
class DockIcon final : public QObject
{
    Q_OBJECT

public:
    /// If the window is not shown yet, shows it minimised.
    explicit DockIcon(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QPointer<QWidget> m_window;
};

} // namespace lumbrix
