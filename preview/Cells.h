// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the controls of panels have in common: no focus, and nothing to tell to assistive tools,
// wherever an interface file puts them.
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

/// One that lets what lies below shine through.
class LXTransparentButtonCell : public LXButtonCell
{
    Q_OBJECT

public:
    using LXButtonCell::LXButtonCell;
};

/// A picture, or one of the program's drawings by name, which is drawn anew for every size. The
/// mouse goes to what lies below.
class LXImageCell : public PictureView
{
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
    Q_PROPERTY(bool accessibilityIsIgnored READ accessibilityIsIgnored CONSTANT)

public:
    explicit LXImageCell(QWidget* parent = nullptr);
    bool accessibilityIsIgnored() const { return true; }

    const QString& imageName() const { return m_imageName; }
    /// Instead of the picture. Empty: the picture again.
    void setImageName(const QString& name);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_imageName;
};

} // namespace lumbrix
