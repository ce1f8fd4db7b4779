// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A button that shows a colour and lets the user choose another.
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QColor>
#include <QtWidgets/QAbstractButton>

class QColorDialog;

namespace lumbrix
{

class ColorWell final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    const QColor& color() const { return m_color; }
    void setColor(const QColor& color);
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user changed the colour. Emitted for every intermediate colour, and with the original
    /// colour when the user cancels.
    void colorChanged(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showDialog();
    void choose(const QColor& color);

    QColor m_color;
    QPointer<QColorDialog> m_dialog;
};

} // namespace lumbrix
