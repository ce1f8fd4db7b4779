// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

namespace lumbrix::bench
{

/// Something that goes wrong for a while.
struct Fault {
    std::string name;
    std::function<void()> begin;
    std::function<void()> end;
    /// The window manager does not answer meanwhile, so that windows cannot be opened or raised.
    bool isWithoutManager = false;
    /// The mouse or the server is held up, so that it cannot be said where panels belong.
    bool isBlind = false;
    /// The program under watch ends, and another is started.
    bool endsProgram = false;
};

} // namespace lumbrix::bench
