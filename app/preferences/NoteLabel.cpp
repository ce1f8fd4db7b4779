// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/NoteLabel.h"

#include <QtCore/QEvent>

namespace lumbrix
{
namespace
{

constexpr double sizeOfNotes = 0.9;     // relative to the size of other texts
constexpr double strengthOfNotes = 0.7; // relative to the colour of other texts

QColor mixed(const QColor& ink, const QColor& paper, double part)
{
    const auto mix = [part](int a, int b) { return static_cast<int>(a * part + b * (1 - part)); };
    return {mix(ink.red(), paper.red()), mix(ink.green(), paper.green()),
            mix(ink.blue(), paper.blue())};
}

} // namespace

NoteLabel::NoteLabel(QWidget* parent) : QLabel(parent)
{
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * sizeOfNotes);
    setFont(small);
    updateColor();
}

void NoteLabel::setWarning(bool on)
{
    m_isWarning = on;
    updateColor();
}

void NoteLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateColor();
}

void NoteLabel::updateColor()
{
    if (m_isUpdating)
        return;
    m_isUpdating = true;
    const QPalette surroundings = parentWidget() ? parentWidget()->palette() : QPalette();
    const QColor ink = surroundings.color(QPalette::Active, QPalette::WindowText);
    const QColor paper = surroundings.color(QPalette::Active, QPalette::Window);
    const bool isDark = paper.lightness() < ink.lightness();
    QColor color = mixed(ink, paper, strengthOfNotes);
    if (m_isWarning)
        color = isDark ? QColor(255, 128, 118) : QColor(190, 22, 34);
    QPalette own = palette();
    own.setColor(QPalette::Active, QPalette::WindowText, color);
    own.setColor(QPalette::Inactive, QPalette::WindowText, color);
    setPalette(own);
    m_isUpdating = false;
}

} // namespace lumbrix
