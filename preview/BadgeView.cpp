// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/BadgeView.h"

#include <algorithm>

#include "platform/StringLiterals.h"
#include "preview/Cells.h"
#include "preview/NumberLabel.h"

namespace lumbrix
{

BadgeView::BadgeView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

bool BadgeView::awakeFromNib()
{
    m_labels = {findChild<NumberLabel*>(u"smallLabel"_s), findChild<NumberLabel*>(u"mediumLabel"_s),
                findChild<NumberLabel*>(u"largeLabel"_s)};
    m_badgeImage = findChild<LXImageCell*>(u"badgeImage"_s);
    if (!m_badgeImage || std::count(m_labels.begin(), m_labels.end(), nullptr) > 0)
        return false;
    hideAll();
    return true;
}

void BadgeView::show(int number, Size size, const QRect& frame)
{
    setGeometry(frame);
    for (NumberLabel* label : m_labels)
        label->setVisible(label == m_labels.at(size));
    m_labels.at(size)->setText(QString::number(number));
    QWidget::show();
}

void BadgeView::hideAll()
{
    for (NumberLabel* label : m_labels)
        label->hide();
    hide();
}

void BadgeView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        part->setGeometry(rect());
}

} // namespace lumbrix
