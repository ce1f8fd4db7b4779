// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// What a music player is doing. Paused counts as stopped, as both offer "play".
enum class PlayerState { Unknown, Stopped, Playing };

} // namespace lumbrix
