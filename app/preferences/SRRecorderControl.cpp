// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/SRRecorderControl.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QStylePainter>
#include <QtWidgets/QToolButton>

#include "app/preferences/HotKeyText.h"
#include "platform/Desktop.h"
#include "platform/KeyboardLayout.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{

constexpr std::int64_t commandBit = 0x100;
constexpr std::int64_t shiftBit = 0x200;
constexpr std::int64_t optionBit = 0x800;
constexpr std::int64_t controlBit = 0x1000;

std::int64_t classicModifiers(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::MetaModifier ? commandBit : 0) |
           (modifiers & Qt::ShiftModifier ? shiftBit : 0) |
           (modifiers & Qt::AltModifier ? optionBit : 0) |
           (modifiers & Qt::ControlModifier ? controlBit : 0);
}

/// 0 for a key that is not a modifier.
std::int64_t bitOfModifierKey(int key)
{
    switch (key) {
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Meta:
        return commandBit;
    case Qt::Key_Shift:
        return shiftBit;
    case Qt::Key_Alt:
        return optionBit;
    case Qt::Key_Control:
        return controlBit;
    default:
        return 0;
    }
}

/// Modifier keys other than the four.
bool isOtherModifierKey(int key)
{
    return key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_Hyper_L ||
           key == Qt::Key_Hyper_R || key == Qt::Key_Mode_switch || key == Qt::Key_Multi_key;
}

} // namespace

SRRecorderControl::SRRecorderControl(QWidget* parent)
    : QAbstractButton(parent), m_clearButton(new QToolButton(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_clearButton->setAutoRaise(true);
    m_clearButton->setFocusPolicy(Qt::NoFocus); // Backspace does the same
    m_clearButton->setText(u"\u2715"_s);
    m_clearButton->setToolTip(tr("Clear"));
    m_clearButton->setAccessibleName(tr("Clear"));
    connect(m_clearButton, &QToolButton::clicked, this, [this] {
        endRecording();
        choose({});
    });
    connect(this, &QAbstractButton::clicked, this,
            [this] { m_isRecording ? endRecording() : beginRecording(); });
    updateTexts();
}

SRRecorderControl::~SRRecorderControl()
{
    if (m_isRecording)
        releaseKeyboard();
}

void SRRecorderControl::setKeyCombo(const SGKeyCombo& combo)
{
    m_keyCombo = combo;
    updateTexts();
}

QString SRRecorderControl::displayText() const
{
    if (m_isRecording && m_recordedKey == 0) {
        if (m_heldModifiers != 0)
            return modifierText(m_heldModifiers) + QChar(u'\u2026');
        switch (m_hint) {
        case Hint::None:
            return tr("Press the new keys\u2026");
        case Hint::NeedsModifier:
            return tr("Hold %1 or the like too").arg(modifierText(commandBit).chopped(1));
        case Hint::KeyNotUsable:
            return tr("This key cannot be used");
        }
    }
    const QString keys = hotKeyText(m_keyCombo);
    return keys.isEmpty() ? tr("Click to record") : keys;
}

QSize SRRecorderControl::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 30, metrics.height() + 12};
}

bool SRRecorderControl::event(QEvent* event)
{
    // Otherwise the window's shortcuts and the keys that move the focus would get the event first.
    if (m_isRecording && event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (m_isRecording && event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        if (event->isAccepted())
            return true;
    }
    return QAbstractButton::event(event);
}

void SRRecorderControl::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = classicModifiers(event->modifiers()) == 0;
    if (m_isRecording) {
        if (!event->isAutoRepeat() && m_recordedKey == 0)
            record(*event);
        // The Tab key that ended the recording also moves the focus.
        event->setAccepted(m_isRecording || event->key() == Qt::Key_Escape ||
                           event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete);
    } else if (isPlain && (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete)) {
        choose({});
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void SRRecorderControl::record(const QKeyEvent& event)
{
    if (const std::int64_t bit = bitOfModifierKey(event.key())) {
        m_heldModifiers = classicModifiers(event.modifiers()) | bit;
        setHint(Hint::None);
        return;
    }
    if (isOtherModifierKey(event.key()))
        return;
    const std::int64_t modifiers = classicModifiers(event.modifiers());
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    if (modifiers == 0 || (isTab && modifiers == shiftBit)) {
        if (event.key() == Qt::Key_Escape || isTab) {
            endRecording();
        } else if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) {
            endRecording();
            choose({});
        } else {
            setHint(Hint::NeedsModifier);
        }
        return;
    }
    const std::int64_t keyCode = platform::desktop().keyboardLayout.keyCodeOf(
        event.nativeScanCode(), event.nativeVirtualKey());
    // Key code 0 cannot be stored.
    if (keyCode <= 0) {
        setHint(Hint::KeyNotUsable);
        return;
    }
    m_recordedKey = event.nativeScanCode();
    choose({keyCode, modifiers});
}

void SRRecorderControl::keyReleaseEvent(QKeyEvent* event)
{
    if (!m_isRecording) {
        QAbstractButton::keyReleaseEvent(event);
        return;
    }
    if (event->isAutoRepeat())
        return;
    if (m_recordedKey != 0 && event->nativeScanCode() == m_recordedKey) {
        endRecording();
    } else if (const std::int64_t bit = bitOfModifierKey(event->key())) {
        m_heldModifiers &= ~bit;
        updateTexts();
    }
}

void SRRecorderControl::focusOutEvent(QFocusEvent* event)
{
    endRecording();
    QAbstractButton::focusOutEvent(event);
}

void SRRecorderControl::hideEvent(QHideEvent* event)
{
    endRecording();
    QAbstractButton::hideEvent(event);
}

void SRRecorderControl::beginRecording()
{
    setFocus(Qt::OtherFocusReason); // a mnemonic clicks without the focus
    m_isRecording = true;
    m_heldModifiers = 0;
    m_recordedKey = 0;
    setHint(Hint::None);
    grabKeyboard();
    Q_EMIT recordingDidBegin();
}

void SRRecorderControl::endRecording()
{
    if (!m_isRecording)
        return;
    m_isRecording = false;
    m_recordedKey = 0;
    releaseKeyboard();
    updateTexts();
    Q_EMIT recordingDidEnd();
}

void SRRecorderControl::choose(const SGKeyCombo& combo)
{
    const bool isChange = combo != m_keyCombo;
    setKeyCombo(combo);
    if (isChange)
        Q_EMIT keyComboDidChange();
}

void SRRecorderControl::setHint(Hint hint)
{
    m_hint = hint;
    updateTexts();
}

void SRRecorderControl::updateTexts()
{
    m_clearButton->setVisible(!m_keyCombo.isClearCombo());
    setAccessibleDescription(displayText());
    update();
}

void SRRecorderControl::resizeEvent(QResizeEvent*)
{
    const int side = height() - 6;
    m_clearButton->setGeometry(isRightToLeft() ? 3 : width() - side - 3, 3, side, side);
}

void SRRecorderControl::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
    frame.state |= QStyle::State_Sunken;
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, frame);
    if (m_isRecording) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlphaF(0.15F);
        painter.fillRect(rect().adjusted(2, 2, -2, -2), tint);
    }
    QColor ink = palette().color(QPalette::Text);
    const bool isCombo = m_keyCombo.isValidHotKeyCombo() && (!m_isRecording || m_recordedKey != 0);
    if (!isCombo)
        ink.setAlphaF(0.65F);
    painter.setPen(ink);
    const int margin = height() - 2; // for the clear button; on both sides, to centre the text
    const QRect area = rect().adjusted(margin, 0, -margin, 0);
    painter.drawText(area, Qt::AlignCenter,
                     fontMetrics().elidedText(displayText(), Qt::ElideRight, area.width()));
}

} // namespace lumbrix
