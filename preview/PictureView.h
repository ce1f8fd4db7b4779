// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace lumbrix
{

/// Shows a picture that fills its whole area; transparent if there is none.
class PictureView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    const QImage& image() const { return m_image; }
    /// Paints only where it differs from the picture that is shown.
    void setImage(const QImage& image);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
    QImage m_scaled; ///< m_image in device pixels of the size last painted
};

} // namespace lumbrix
