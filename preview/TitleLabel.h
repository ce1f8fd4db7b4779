// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// One line of plain text, centred, cut with an ellipsis where it does not fit. With a halo it has
/// a rounded backing, so that it can lie on a picture.
class TitleLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor haloColor MEMBER m_haloColor)

public:
    explicit TitleLabel(QWidget* parent = nullptr);

    const QString& text() const { return m_text; }
    /// Any string, shown as displayText() has it; never taken for markup.
    void setText(const QString& text);
    void setPixelSize(int size);
    /// The width at which nothing has to be cut.
    int naturalWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int padding() const;

    QString m_text;
    QColor m_textColor;
    QColor m_haloColor;
    QString m_elided; ///< m_text at m_elidedWidth; the width is −1 when it must be made again
    int m_elidedWidth = -1;
    mutable int m_naturalWidth = -1;
};

} // namespace lumbrix
