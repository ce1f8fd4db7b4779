// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/BadgeView.h"

#include <memory>

#include "preview/Cells.h"
#include "preview/InterfaceFile.h"
#include "preview/NumberLabel.h"

namespace lumbrix
{

BadgeView::BadgeView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

BadgeView* BadgeView::load(QWidget& parent)
{
    std::unique_ptr<QWidget> loaded = loadInterface(u"SpaceBadge"_qs);
    auto* view = qobject_cast<BadgeView*>(loaded.get());
    if (!view)
        return nullptr;
    view->m_labels = {view->findChild<NumberLabel*>(u"smallLabel"_qs),
                      view->findChild<NumberLabel*>(u"mediumLabel"_qs),
                      view->findChild<NumberLabel*>(u"largeLabel"_qs)};
    view->m_badgeImage = view->findChild<LXImageCell*>(u"badgeImage"_qs);
    for (const QWidget* part : view->m_labels) {
        if (!part || !view->m_badgeImage)
            return nullptr;
    }
    view->hideAll();
    view->setParent(&parent);
    static_cast<void>(loaded.release()); // the parent has it now
    return view;
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
