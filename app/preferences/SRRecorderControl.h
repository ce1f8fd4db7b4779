// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A field that records a key combination from the keyboard.
#pragma once

#include <QtWidgets/QAbstractButton>

#include <cstdint>

#include "model/SGKeyCombo.h"

class QToolButton;

namespace lumbrix
{

/// Click it or press Space, then the keys, of which at least one is a modifier. Escape cancels,
/// Backspace clears. Main thread.
///
/// While it records, it gets all keys, even those that other programs have grabbed. It keeps them
/// until the last one is released, because a key that becomes a hot key while it is held would act
/// at once.
class SRRecorderControl final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit SRRecorderControl(QWidget* parent = nullptr);
    ~SRRecorderControl() override;

    const SGKeyCombo& keyCombo() const { return m_keyCombo; }
    void setKeyCombo(const SGKeyCombo& combo);
    bool isRecording() const { return m_isRecording; }
    /// The text that the field shows now.
    QString displayText() const;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user changed the combination; it may be the clear combo.
    void keyComboDidChange();
    void recordingDidBegin();
    void recordingDidEnd();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Hint { None, NeedsModifier, KeyNotUsable };

    void beginRecording();
    void endRecording();
    void record(const QKeyEvent& event);
    void choose(const SGKeyCombo& combo);
    void setHint(Hint hint);
    void updateTexts();

    SGKeyCombo m_keyCombo;
    bool m_isRecording = false;
    Hint m_hint = Hint::None;
    std::int64_t m_heldModifiers = 0; ///< while recording
    std::uint32_t m_recordedKey = 0;  ///< scan code of the key that has not been released yet
    QToolButton* const m_clearButton;
};

} // namespace lumbrix
