// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What has the keyboard while a row of previews is worked by keys, and tells assistive tools of it.
#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <vector>

#include "platform/Desktop.h"

namespace lumbrix
{

/// Main thread. Nobody sees it: the previews show what is chosen, and stay as silent as they are
/// when they are hovered. It is a list with an entry for each preview, the chosen one of which has
/// the focus.
class KeyboardPanel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString windowRole READ windowRole WRITE setWindowRole)

public:
    /// The ports outlive it.
    explicit KeyboardPanel(const platform::Desktop& ports);
    ~KeyboardPanel() override;

    /// Takes the keyboard. The name is that of the whole list.
    void begin(const QString& name);
    /// Gives it back to the window that had it, which has it when this returns; nothing when that
    /// was done.
    void end();
    bool isUp() const { return m_isUp; }
    /// What is said of each preview, and which of them is chosen. Said again only where it is
    /// another one, or is said in other words.
    void setEntries(const QStringList& texts, int chosen);

Q_SIGNALS:
    void moved(int steps); ///< an arrow: to another preview
    void raised();
    void closed();
    void left(); ///< by a key, or because the keyboard is somebody else's by now

protected:
    /// By Tab too.
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const platform::Desktop& m_ports;
    std::vector<QWidget*> m_entries; ///< children
    bool m_isUp = false;
};

} // namespace lumbrix
