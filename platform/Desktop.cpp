// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/Desktop.h"

#include <QtCore/QtGlobal>

#include <atomic>

namespace lumbrix::platform
{
namespace
{
std::atomic<const Desktop*> installed{nullptr};
} // namespace

const Desktop& desktop()
{
    const Desktop* current = installed.load(std::memory_order_acquire);
    if (!current)
        qFatal("no desktop is installed");
    return *current;
}

DesktopScope::DesktopScope(const Desktop& desktop)
{
    const Desktop* expected = nullptr;
    if (!installed.compare_exchange_strong(expected, &desktop))
        qFatal("a desktop is installed already");
}

DesktopScope::~DesktopScope() { installed.store(nullptr, std::memory_order_release); }

} // namespace lumbrix::platform
