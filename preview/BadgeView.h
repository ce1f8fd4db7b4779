// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QWidget>

#include <array>

namespace lumbrix
{

class LXImageCell;
class NumberLabel;

/// The round badge on a preview with the number of the window's Space. Loaded from the interface
/// file "SpaceBadge", which has a label for each size. Mouse events go to the widget below.
class BadgeView : public QWidget
{
    Q_OBJECT

public:
    enum Size { Small, Medium, Large };
    static constexpr int sizeCount = 3;

    explicit BadgeView(QWidget* parent = nullptr);
    /// Must be called once the parts exist. Hides the badge; false if a part is missing.
    bool awakeFromNib();

    NumberLabel* label(Size size) const { return m_labels.at(size); }
    LXImageCell* badgeImage() const { return m_badgeImage; }
    /// The number in one size, its frame given in the parent's points.
    void show(int number, Size size, const QRect& frame);
    /// Including all labels.
    void hideAll();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::array<NumberLabel*, sizeCount> m_labels{};
    LXImageCell* m_badgeImage = nullptr;
};

} // namespace lumbrix
