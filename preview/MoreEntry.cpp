// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/MoreEntry.h"

#include <QtCore/QCoreApplication>

#include "platform/StringLiterals.h"
#include "preview/InterfaceFile.h"
#include "preview/KeyLabel.h"
#include "preview/MAWindow.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

MoreEntry::~MoreEntry() = default;

bool MoreEntry::load()
{
    if (m_window)
        return m_label;
    std::unique_ptr<QWidget> loaded = loadInterface(m_ports, u"MoreEntry"_s);
    if (!qobject_cast<MAWindow*>(loaded.get()))
        return false;
    m_window.reset(static_cast<MAWindow*>(loaded.release()));
    m_label = m_window->findChild<KeyLabel*>(u"more"_s);
    if (!m_label)
        return false;
    m_window->setContent(m_label);
    QObject::connect(m_label, &QAbstractButton::clicked, m_window.get(),
                     [this] { m_host.showMore(); });
    m_window->setTracking([] {}, [this] { m_host.mouseExited(); });
    return true;
}

void MoreEntry::show(std::size_t count, const QRectF& frame)
{
    if (count == 0 || frame.isEmpty() || !load()) {
        hide();
        return;
    }
    m_label->setText(QCoreApplication::translate("MoreEntry", "+%1 more").arg(count));
    m_window->setWindowTitle(m_label->text());
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
