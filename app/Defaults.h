// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The settings store: first-run values, and the copy of the values into the engine.
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace lumbrix
{

class LXHandler;
struct EngineSettings;
namespace platform
{
class UserDefaults;
}

/// Main thread, all of them.

// The values a new user starts with, in two stages that each run once: those that came with the
// first release, and later ones, which earlier users get too. Whether it was the first time.
bool seedFirstRun(platform::UserDefaults& defaults);
bool seedBadgeRun(platform::UserDefaults& defaults);
/// Copies every setting that the engine mirrors; nothing else happens.
void mirrorEngineSettings(const platform::UserDefaults& defaults, EngineSettings& settings);
/// The same into the engine and its companions. A changed style also drops the previews and
/// their cache, which were made for the old one.
void mirrorSettings(const platform::UserDefaults& defaults, LXHandler& handler);
/// An integer setting, kept within 32 bits.
std::int32_t integerSetting(const platform::UserDefaults& defaults, const QString& key);

} // namespace lumbrix
