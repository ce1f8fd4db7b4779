// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which applications the user has made private, or not, where that differs from what is so from the
// start; a card with the icon and the title stands for a window of a private one.
#pragma once

#include "platform/Privacy.h"
#include "platform/UserDefaults.h"

namespace lumbrix::PrivateChoices
{

/// Main thread. Files are edited by hand, too: what is no number counts as private.
platform::Privacy::Choices stored(const platform::UserDefaults& defaults);
void store(platform::UserDefaults& defaults, const platform::Privacy::Choices& choices);

} // namespace lumbrix::PrivateChoices
