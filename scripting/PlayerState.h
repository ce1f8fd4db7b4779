// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// What a music player is doing; a paused one is stopped, as it too is offered to be played.
enum class PlayerState { Unknown, Stopped, Playing };

} // namespace lumbrix
