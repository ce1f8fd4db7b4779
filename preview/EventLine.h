// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// One line of plain text in bold, from the left, cut with an ellipsis where it does not fit.
class EventLine : public QWidget
{
    Q_OBJECT

public:
    /// The text is any string, shown as displayText() has it; never taken for markup.
    EventLine(const QString& text, const QColor& color, QWidget* parent);

    /// The width in points at which nothing of the text has to be cut.
    static qreal widthOf(const QString& text);

    const QString& text() const { return m_text; }
    const QColor& color() const { return m_color; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QString m_text;
    const QColor m_color;
};

} // namespace lumbrix
