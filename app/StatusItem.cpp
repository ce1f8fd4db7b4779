// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/StatusItem.h"

#include <QtCore/QEvent>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QScreen>
#include <QtWidgets/QMenu>
#include <QtWidgets/QSystemTrayIcon>

#include "platform/Desktop.h"
#include "platform/StatusBar.h"
#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

/// In every size that panels use, so that none of them has to scale it.
QIcon namedIcon(const QString& name)
{
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(namedPixmap(name, {side, side}, 1.0));
    return icon;
}

} // namespace

StatusItem::StatusItem(std::unique_ptr<QMenu> menu) : m_menu(std::move(menu))
{
    m_menu->installEventFilter(this);
    platform::desktop().statusBar.setObserver([this] { statusBarChanged(); });
}

StatusItem::~StatusItem() { platform::desktop().statusBar.setObserver({}); }

void StatusItem::setImages(const QString& image, const QString& alternateImage)
{
    if (m_image == image && m_alternateImage == alternateImage)
        return;
    m_image = image;
    m_alternateImage = alternateImage;
    updateIcon();
    statusBarChanged(); // there is something to show now
}

void StatusItem::setToolTip(const QString& text)
{
    m_toolTip = text;
    if (m_icon)
        m_icon->setToolTip(text);
}

/// Creates the item only when there is a status bar: the toolkit decides with the first item which
/// kind of status bar it looks for from then on. An existing item reappears by itself when the
/// status bar does.
void StatusItem::statusBarChanged()
{
    if (m_icon || !platform::desktop().statusBar.isAvailable())
        return;
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setContextMenu(m_menu.get());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason != QSystemTrayIcon::Context) // the toolkit shows the menu for that
                    clicked();
            });
    updateIcon();
    m_icon->setToolTip(m_toolTip);
    m_icon->show();
}

void StatusItem::clicked()
{
    if (m_menu->isVisible())
        return;
    // Beside the item, if the status bar reports the item's position.
    const QRect item = m_icon->geometry();
    if (item.isEmpty()) {
        m_menu->popup(QCursor::pos());
        return;
    }
    const QScreen* screen = QGuiApplication::screenAt(item.center());
    const bool isInLowerHalf = screen && item.center().y() > screen->geometry().center().y();
    const QPoint below(item.x(), item.y() + item.height());
    const QPoint above(item.x(), item.y() - m_menu->sizeHint().height());
    m_menu->popup(isInLowerHalf ? above : below);
}

void StatusItem::updateIcon()
{
    if (m_icon)
        m_icon->setIcon(namedIcon(m_isHighlighted ? m_alternateImage : m_image));
}

/// Events of the menu's own window: a status bar that draws the menu itself also highlights the
/// item itself.
bool StatusItem::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        m_isHighlighted = event->type() == QEvent::Show;
        updateIcon();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lumbrix
