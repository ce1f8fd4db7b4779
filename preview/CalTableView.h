// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A table whose checkboxes have the colours of calendars.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPixmap>
#include <QtWidgets/QTableView>

namespace lumbrix
{

/// Main thread. A checkable cell (Qt::CheckStateRole) shows a checkbox in the middle of its column,
/// in the colour of the model's Qt::DecorationRole; a click or the space bar toggles it.
class CalTableView : public QTableView
{
    Q_OBJECT

public:
    explicit CalTableView(QWidget* parent = nullptr);

    static constexpr QSize checkboxSize{14, 16};
    static QPixmap checkboxWithColor(const QColor& color, bool checked, qreal devicePixelRatio);
};

} // namespace lumbrix
