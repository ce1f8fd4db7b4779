// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/DesktopPalette.h"

#include <QtWidgets/QApplication>

namespace lumbrix
{

QPalette darkPalette()
{
    const QColor window(45, 46, 50);
    const QColor base(32, 33, 36);
    QPalette palette(QColor(62, 63, 68), window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Highlight, QColor(61, 129, 214));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 168, 240));
    palette.setColor(QPalette::LinkVisited, QColor(178, 150, 240));
    palette.setColor(QPalette::PlaceholderText, QColor(150, 151, 156));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(236, 236, 238));
        palette.setColor(QPalette::Disabled, role, QColor(132, 133, 138));
    }
    return palette;
}

DesktopPalette::DesktopPalette(platform::DesktopLook& look) : m_look(look)
{
    const auto changed = [this] { follow(m_look.isDark().value_or(false)); };
    m_look.setObserver(changed);
    changed();
}

DesktopPalette::~DesktopPalette()
{
    m_look.setObserver({});
    follow(false);
}

void DesktopPalette::follow(bool isDark)
{
    const QPalette now = QApplication::palette();
    const bool isThemeDark = !m_isOurs && now.color(QPalette::Window).lightness() <
                                              now.color(QPalette::WindowText).lightness();
    if (isThemeDark || isDark == m_isOurs)
        return;
    m_isOurs = isDark;
    QApplication::setPalette(isDark ? darkPalette() : QPalette());
}

} // namespace lumbrix
