// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/MoreEntry.h"

#include <QtCore/QCoreApplication>

#include "platform/StringLiterals.h"
#include "preview/DBOverlayWindow.h"
#include "preview/InterfaceFile.h"
#include "preview/KeyLabel.h"
#include "preview/PreviewHost.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{
namespace
{

/// It lies on whatever is on the screen, and its text has to be read.
constexpr int alpha = 230;

} // namespace

MoreEntry::MoreEntry(const platform::Desktop& ports, PreviewHost& host)
    : m_ports(ports), m_host(host)
{
}

MoreEntry::~MoreEntry() = default;

bool MoreEntry::load()
{
    if (m_window)
        return m_label;
    std::unique_ptr<QWidget> loaded = loadInterface(m_ports, u"MoreEntry"_s);
    if (!qobject_cast<DBOverlayWindow*>(loaded.get()))
        return false;
    m_window.reset(static_cast<DBOverlayWindow*>(loaded.release()));
    m_label = m_window->findChild<KeyLabel*>(u"more"_s);
    if (!m_label)
        return false;
    m_window->setContent(m_label);
    QObject::connect(m_label, &QAbstractButton::clicked, m_window.get(),
                     [this] { m_host.showMore(); });
    m_window->setTracking([] {}, [this] { m_host.mouseExited(); });
    return true;
}

void MoreEntry::show(std::size_t count, const QRectF& frame, const ScreenyView& neighbour)
{
    if (count == 0 || frame.isEmpty() || !load()) {
        hide();
        return;
    }
    m_label->setText(QCoreApplication::translate("MoreEntry", "+%1 more").arg(count));
    m_window->setWindowTitle(m_label->text());
    QColor color = neighbour.bubbleColor();
    color.setAlpha(alpha);
    m_window->setOverlayColor(color);
    m_label->dressLike(neighbour.keyLabel());
    m_window->setFrame(frame);
    if (!m_window->isFront())
        m_window->orderFrontRegardless();
    m_label->update();
}

void MoreEntry::hide()
{
    if (m_window && m_window->isFront())
        m_window->orderOut();
}

QRectF MoreEntry::frame() const
{
    return m_window && m_window->isFront() ? m_window->frame() : QRectF();
}

QString MoreEntry::text() const
{
    return m_window && m_window->isFront() ? m_label->text() : QString();
}

void MoreEntry::click()
{
    if (m_label)
        m_label->click();
}

} // namespace lumbrix
