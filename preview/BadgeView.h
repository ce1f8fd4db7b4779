// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QWidget>

#include <array>

namespace lumbrix
{

class LXImageCell;
class NumberLabel;

/// The round number on a preview that tells on which Space the window is. Loaded from the interface
/// file "SpaceBadge", which holds a label for each size. The mouse goes to what lies below.
class BadgeView : public QWidget
{
    Q_OBJECT

public:
    enum Size { Small, Medium, Large };
    static constexpr int sizeCount = 3;

    explicit BadgeView(QWidget* parent = nullptr);
    /// To be called once its parts are there. Hides it; false when one is missing.
    bool awakeFromNib();

    NumberLabel* label(Size size) const { return m_labels.at(size); }
    LXImageCell* badgeImage() const { return m_badgeImage; }
    /// The number in one size, its frame given in the parent's points.
    void show(int number, Size size, const QRect& frame);
    /// With all labels.
    void hideAll();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    std::array<NumberLabel*, sizeCount> m_labels{};
    LXImageCell* m_badgeImage = nullptr;
};

} // namespace lumbrix
