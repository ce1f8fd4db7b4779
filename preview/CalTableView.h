// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A table whose check boxes have the colours of calendars.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPixmap>
#include <QtWidgets/QTableView>

namespace lumbrix
{

/// Main thread. A cell that can be checked (Qt::CheckStateRole) shows a box in the colour that its
/// model gives as decoration, in the middle of its column; a click or the space bar changes it.
class CalTableView : public QTableView
{
    Q_OBJECT

public:
    explicit CalTableView(QWidget* parent = nullptr);

    static constexpr QSize checkboxSize{14, 16};
    static QPixmap checkboxWithColor(const QColor& color, bool checked, qreal devicePixelRatio);
};

} // namespace lumbrix
