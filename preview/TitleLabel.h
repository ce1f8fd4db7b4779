// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// One line of plain text, centred, elided if it does not fit. With a halo it has a rounded
/// background, so that it is readable on a picture.
class TitleLabel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(QColor textColor MEMBER m_textColor)
    Q_PROPERTY(QColor haloColor MEMBER m_haloColor)

public:
    explicit TitleLabel(QWidget* parent = nullptr);

    const QString& text() const { return m_text; }
    /// Any string; shown as displayText() returns it, never interpreted as markup.
    void setText(const QString& text);
    /// The number of first characters that another title beside it begins with, too.
    void setAlike(qsizetype characters);
    void setPixelSize(int size);
    /// The width that the whole text needs.
    int naturalWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int padding() const;

    QString m_text;
    QColor m_textColor;
    QColor m_haloColor;
    qsizetype m_alike = 0;
    QString m_elided; ///< m_text elided to m_elidedWidth; −1 = must be computed again
    int m_elidedWidth = -1;
    mutable int m_naturalWidth = -1;
};

} // namespace lumbrix
