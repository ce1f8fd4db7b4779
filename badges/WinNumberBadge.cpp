// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "badges/WinNumberBadge.h"

#include <algorithm>

#include "badges/BadgeLook.h"
#include "platform/StringLiterals.h"
#include "preview/Cells.h"
#include "preview/InterfaceFile.h"
#include "preview/MAWindow.h"
#include "preview/NamedImage.h"
#include "preview/NumberLabel.h"

namespace lumbrix
{
namespace
{

/// Whole points, so that a round badge stays round.
QRectF snapped(const QRectF& frame) { return {frame.topLeft().toPoint(), frame.size().toSize()}; }

/// The badge is round, also on an item that is not square.
QRect roundPart(const QWidget& window)
{
    const int side = std::min(window.width(), window.height());
    return {(window.width() - side) / 2, (window.height() - side) / 2, side, side};
}

} // namespace

std::unique_ptr<WinNumberBadge> WinNumberBadge::load(const platform::Desktop& ports,
                                                     SWElementPtr dockItem)
{
    std::unique_ptr<QWidget> loaded = loadInterface(ports, u"WinNumberBadge"_s);
    if (!qobject_cast<MAWindow*>(loaded.get()))
        return nullptr;
    std::unique_ptr<MAWindow> window(static_cast<MAWindow*>(loaded.release()));
    std::unique_ptr<WinNumberBadge> badge(
        new WinNumberBadge(std::move(dockItem), std::move(window)));
    return badge->m_badge && badge->m_badgeImage ? std::move(badge) : nullptr;
}

WinNumberBadge::WinNumberBadge(SWElementPtr dockItem, std::unique_ptr<MAWindow> window)
    : m_dockItem(std::move(dockItem)), m_window(std::move(window)),
      m_badge(m_window->findChild<NumberLabel*>(u"badge"_s)),
      m_badgeImage(m_window->findChild<LXImageCell*>(u"badgeImage"_s))
{
    m_window->setShapeSource([window = m_window.get()] {
        QPainterPath path;
        path.addEllipse(QRectF(roundPart(*window)));
        return path;
    });
}

WinNumberBadge::~WinNumberBadge() = default;

QRectF WinNumberBadge::iconRect(const SWElement& dockItem)
{
    return dockItem.isHidden() ? QRectF() : dockItem.getNSRect();
}

void WinNumberBadge::setBadgeValue(int count)
{
    const QString number = QString::number(count);
    if (number == m_badge->text())
        return;
    m_badge->setText(number);
    m_window->setWindowTitle(number);
    fitNumber();
}

void WinNumberBadge::arrangeRelativeTo(std::int32_t position, float sizeExtra)
{
    m_prevRect = iconRect(*m_dockItem);
    if (m_prevRect.isEmpty()) {
        m_window->orderOut();
        return;
    }
    const QRectF frame = snapped(badgeFrame(m_prevRect, position, sizeExtra));
    if (frame != m_window->frame()) {
        m_window->setFrame(frame);
        m_badgeImage->setGeometry(roundPart(*m_window));
        updateImage();
        fitNumber();
    }
    if (m_isFront && !m_window->isFront())
        m_window->orderFrontRegardless();
}

void WinNumberBadge::fitNumber()
{
    const QRect part = roundPart(*m_window);
    m_badge->setPixelSize(part.height() / 2);
    // Three digits do not fit inside the rim.
    const int room = part.width() * 5 / 6;
    if (const int width = m_badge->sizeHint().width(); width > room)
        m_badge->setPixelSize(part.height() / 2 * room / width);
    m_badge->setGeometry(part);
}

void WinNumberBadge::updateImageColor(const QColor& color)
{
    m_color = color;
    m_badge->setTextColor(numberColor(color));
    updateImage();
}

void WinNumberBadge::updateImage()
{
    if (!m_color.isValid())
        return;
    const QPixmap shape = namedPixmap(u"WinNumberBadge"_s, roundPart(*m_window).size(),
                                      m_window->devicePixelRatioF());
    m_badgeImage->setImage(tinted(shape.toImage(), m_color));
}

void WinNumberBadge::orderFront()
{
    m_isFront = true;
    if (!m_prevRect.isEmpty())
        m_window->orderFrontRegardless();
}

void WinNumberBadge::dismiss()
{
    m_isFront = false;
    m_window->orderOut();
}

} // namespace lumbrix
