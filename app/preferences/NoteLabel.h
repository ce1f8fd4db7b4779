// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A text that explains a control or warns about it.
#pragma once

#include <QtWidgets/QLabel>

namespace lumbrix
{

/// Smaller and paler than other texts, or red; wraps its lines.
class NoteLabel final : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(bool warning READ isWarning WRITE setWarning)

public:
    explicit NoteLabel(QWidget* parent = nullptr);

    bool isWarning() const { return m_isWarning; }
    void setWarning(bool on);

protected:
    void changeEvent(QEvent* event) override;

private:
    void updateColor();

    bool m_isWarning = false;
    bool m_isUpdating = false;
};

} // namespace lumbrix
