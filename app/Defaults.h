// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The settings store: first-run values, and the copy of the values into the engine.
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace lumbrix
{

class LXHandler;
namespace platform
{
class UserDefaults;
}

/// Main thread, all three.

/// Writes the values a new user starts with, in two stages that each run once.
void firstRunCheck();
/// Copies every setting the engine mirrors into it. A changed style also drops the previews and
/// their cache, which were made for the old one.
void mirrorSettings(const platform::UserDefaults& defaults, LXHandler& handler);
/// An integer setting, kept within 32 bits.
std::int32_t integerSetting(const platform::UserDefaults& defaults, const QString& key);

} // namespace lumbrix
