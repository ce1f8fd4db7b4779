// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The row of icons at the top of a preferences window.
#pragma once

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QWidget>

class QHBoxLayout;

namespace lumbrix
{

/// An icon above its label. The arrow keys move to its neighbours and choose them.
class PrefsToolbarItem final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `image` is the name of one of the program's drawings.
    PrefsToolbarItem(const QString& identifier, const QString& label, const QString& image,
                     QWidget* parent = nullptr);

    const QString& identifier() const { return m_identifier; }
    const QString& label() const { return m_label; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    const QString m_identifier;
    const QString m_label;
    const QString m_image;
    /// The focus ring is drawn only when the focus was moved by the keyboard.
    bool m_isFocusShown = false;
};

/// One item is selected at a time, and only that one is reached by the Tab key.
class PrefsToolbar final : public QWidget
{
    Q_OBJECT

public:
    explicit PrefsToolbar(QWidget* parent = nullptr);

    PrefsToolbarItem* addItem(const QString& identifier, const QString& label,
                              const QString& image);

Q_SIGNALS:
    /// Emitted when the user chooses an item.
    void chosen(const QString& identifier);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_layout;
    QButtonGroup m_group;
};

} // namespace lumbrix
