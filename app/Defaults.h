// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Values stored on the first run, and copying the settings into the engine.
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

/// All functions: main thread.

// Store the initial values, in two stages that each run once: the values of the first release, and
// those added later, which existing users get too. Return true on the first run of the stage.
bool seedFirstRun(platform::UserDefaults& defaults);
bool seedBadgeRun(platform::UserDefaults& defaults);
/// Copies every setting that the engine mirrors; has no other effect.
void mirrorEngineSettings(const platform::UserDefaults& defaults, EngineSettings& settings);
/// Copies them into the engine and its companions. A changed style also drops the previews and
/// their cache, which were made for the old style.
void mirrorSettings(const platform::UserDefaults& defaults, LXHandler& handler);
/// An integer setting, clamped to 32 bits.
std::int32_t integerSetting(const platform::UserDefaults& defaults, const QString& key);

} // namespace lumbrix
