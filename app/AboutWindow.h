// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the program is, in a window.
#pragma once

#include <QtWidgets/QDialog>

namespace lumbrix
{

/// Main thread. Escape closes it.
class AboutWindow final : public QDialog
{
    Q_OBJECT

public:
    AboutWindow();
    /// Shows it in front of everything, and active; others may cover it then.
    void makeKeyAndOrderFront();
};

} // namespace lumbrix
