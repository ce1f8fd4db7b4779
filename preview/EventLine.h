// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// One line of plain text in bold, left-aligned, elided if it does not fit.
class EventLine : public QWidget
{
    Q_OBJECT

public:
    /// Any string; shown as displayText() returns it, never interpreted as markup.
    EventLine(const QString& text, const QColor& color, QWidget* parent);

    /// The width in points that the whole text needs.
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
