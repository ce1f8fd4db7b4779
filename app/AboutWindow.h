// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The "About Lumbrix" window.
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
    /// Brings it to the front and activates it; other windows may cover it later.
    void makeKeyAndOrderFront();
};

} // namespace lumbrix
