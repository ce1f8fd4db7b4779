// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// The toolkit ends the program by exit() when its display goes away. While one of these exists,
/// exit() says so and ends the program at once, with status 1: destroying what is left would reach
/// for parts of the toolkit that are gone by then. Main thread; one at a time.
class DisplayLoss
{
public:
    DisplayLoss();
    ~DisplayLoss();
    DisplayLoss(const DisplayLoss&) = delete;
    DisplayLoss& operator=(const DisplayLoss&) = delete;
};

} // namespace lumbrix
