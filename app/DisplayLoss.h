// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// The toolkit calls exit() when it loses the display. While an object of this class exists, exit()
/// prints a message and ends the process at once, with status 1: running the remaining destructors
/// would use parts of the toolkit that are already gone. Main thread; one at a time.
class DisplayLoss
{
public:
    DisplayLoss();
    ~DisplayLoss();
    DisplayLoss(const DisplayLoss&) = delete;
    DisplayLoss& operator=(const DisplayLoss&) = delete;
};

} // namespace lumbrix
