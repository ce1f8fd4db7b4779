// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Common to all controls of panels: no focus, and hidden from assistive technology, whatever an
// interface file says.
#pragma once

#include <QtWidgets/QAbstractButton>

#include "preview/PictureView.h"

namespace lumbrix
{

class LXButtonCell : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(bool accessibilityIsIgnored READ accessibilityIsIgnored CONSTANT)

public:
    explicit LXButtonCell(QWidget* parent = nullptr);
    bool accessibilityIsIgnored() const { return true; }
};

/// The same, with a transparent background.
class LXTransparentButtonCell : public LXButtonCell
{
    Q_OBJECT

public:
    using LXButtonCell::LXButtonCell;
};

/// Shows a picture, or one of the program's drawings by name, which is rendered for each size.
/// Mouse events go to the widget below.
class LXImageCell : public PictureView
{
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
    Q_PROPERTY(bool accessibilityIsIgnored READ accessibilityIsIgnored CONSTANT)

public:
    explicit LXImageCell(QWidget* parent = nullptr);
    bool accessibilityIsIgnored() const { return true; }

    const QString& imageName() const { return m_imageName; }
    /// Shows this drawing instead of the picture; empty: the picture again.
    void setImageName(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_imageName;
};

} // namespace lumbrix
