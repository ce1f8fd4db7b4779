// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The menu of the status item.
#pragma once

#include <QtWidgets/QMenu>

namespace lumbrix
{

/// Main thread.
class StatusMenu final : public QMenu
{
    Q_OBJECT

public:
    StatusMenu();
    /// Sets what the first item does, and the hot key for the same, which is shown beside it; empty
    /// for none. May be called while the menu is open.
    void update(bool isDisabled, const QString& keyEquivalent);

Q_SIGNALS:
    void toggleChosen(); ///< of the first item
    void preferencesChosen();
    void aboutChosen();
    void quitChosen();

private:
    QAction* m_toggle;
};

} // namespace lumbrix
