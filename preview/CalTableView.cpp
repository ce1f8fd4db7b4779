// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/CalTableView.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyledItemDelegate>

#include "platform/StringLiterals.h"
#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

class CheckboxDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyleOptionViewItem plain = option;
        initStyleOption(&plain, index);
        const bool isCheckbox = index.data(Qt::CheckStateRole).isValid();
        if (isCheckbox)
            plain.features &=
                ~(QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDecoration);
        const QStyle* style = plain.widget ? plain.widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &plain, painter, plain.widget);
        if (!isCheckbox)
            return;
        const QPixmap box = CalTableView::checkboxWithColor(
            index.data(Qt::DecorationRole).value<QColor>(), isChecked(index),
            painter->device()->devicePixelRatioF());
        QRect place(QPoint(), CalTableView::checkboxSize);
        place.moveCenter(plain.rect.center());
        painter->drawPixmap(place.topLeft(), box);
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override
    {
        if (!index.data(Qt::CheckStateRole).isValid())
            return QStyledItemDelegate::editorEvent(event, model, option, index);
        switch (event->type()) {
        case QEvent::MouseButtonRelease: {
            const auto* mouse = static_cast<const QMouseEvent*>(event);
            if (mouse->button() != Qt::LeftButton ||
                !option.rect.contains(mouse->position().toPoint()))
                return false;
            break;
        }
        case QEvent::KeyPress:
            if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_Space)
                return false;
            break;
        case QEvent::MouseButtonDblClick: // its second release changes the box again
            return true;
        default:
            return false;
        }
        return model->setData(index, isChecked(index) ? Qt::Unchecked : Qt::Checked,
                              Qt::CheckStateRole);
    }

private:
    static bool isChecked(const QModelIndex& index)
    {
        return index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }
};

} // namespace

CalTableView::CalTableView(QWidget* parent) : QTableView(parent)
{
    setItemDelegate(new CheckboxDelegate(this));
}

QPixmap CalTableView::checkboxWithColor(const QColor& color, bool checked, qreal devicePixelRatio)
{
    const auto named = [devicePixelRatio](const QString& name) {
        return namedPixmap(name, checkboxSize, devicePixelRatio);
    };
    QPixmap tint = named(u"chkbx2_colormask"_s);
    {
        QPainter painter(&tint);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRect(QPoint(), checkboxSize), color);
    }
    QPixmap box((QSizeF(checkboxSize) * devicePixelRatio).toSize());
    box.setDevicePixelRatio(devicePixelRatio);
    box.fill(Qt::transparent);
    QPainter painter(&box);
    painter.drawPixmap(0, 0, named(u"chkbx1_shadow"_s));
    painter.drawPixmap(0, 0, tint);
    painter.drawPixmap(0, 0, named(u"chkbx3_background"_s));
    if (checked)
        painter.drawPixmap(0, 0, named(u"chkbx4_check"_s));
    return box;
}

} // namespace lumbrix
