// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include <memory>
#include <span>

#include "platform/Desktop.h"

class QWidget;

namespace lumbrix
{

/// A widget class that interface files use.
struct InterfaceClass {
    QLatin1String name;
    QWidget* (*create)(QWidget* parent);
};

/// Loads an interface file of the program by name ("ScreenyView"), with the widget classes of the
/// previews and the given ones; the panels in it get the ports. Null if the file does not exist or
/// cannot be read. Main thread.
std::unique_ptr<QWidget> loadInterface(const platform::Desktop& ports, const QString& name,
                                       std::span<const InterfaceClass> classes = {});

} // namespace lumbrix
