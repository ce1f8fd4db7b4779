// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// A bold number, centred by its digits and not by the font's line height. Mouse events go to the
/// widget below.
class NumberLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(int pixelSize READ pixelSize WRITE setPixelSize)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(QColor shadowColor MEMBER m_shadowColor)

public:
    explicit NumberLabel(QWidget* parent = nullptr);

    const QString& text() const { return m_text; }
    void setText(const QString& text);
    int pixelSize() const { return font().pixelSize(); }
    void setPixelSize(int size);
    const QColor& textColor() const { return m_textColor; }
    void setTextColor(const QColor& color);
    /// The size of the digits.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    QColor m_textColor;
    QColor m_shadowColor;
};

} // namespace lumbrix
