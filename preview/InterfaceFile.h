// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include <memory>

class QWidget;

namespace lumbrix
{

/// Loads an interface file of the program by name ("ScreenyView"), with the program's own widget
/// classes. Null when there is none or it cannot be read. Main thread.
std::unique_ptr<QWidget> loadInterface(const QString& name);

} // namespace lumbrix
