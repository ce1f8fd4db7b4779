// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>

#include "preview/Cells.h"

namespace lumbrix
{

/// A small key cap that shows a shortcut; clicking it does what the shortcut does.
class KeyLabel : public LXTransparentButtonCell
{
    Q_OBJECT
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor fill MEMBER m_fill)

public:
    explicit KeyLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    void setPixelSize(int size);
    /// Takes on the colours of another.
    void dressLike(const KeyLabel& other);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_textColor;
    QColor m_fill;
};

} // namespace lumbrix
