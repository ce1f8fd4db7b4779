// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/DisplayLoss.h"

#include <cstdio>
#include <cstdlib>

namespace lumbrix
{
namespace
{

bool isExpected = false;

void endAtOnce()
{
    if (!isExpected)
        return;
    std::fputs("lumbrix: the display has gone away\n", stderr);
    std::_Exit(1);
}

} // namespace

DisplayLoss::DisplayLoss()
{
    [[maybe_unused]] static const int registered = std::atexit(endAtOnce);
    isExpected = true;
}

DisplayLoss::~DisplayLoss() { isExpected = false; }

} // namespace lumbrix
