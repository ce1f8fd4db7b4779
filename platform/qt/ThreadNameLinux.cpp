// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/qt/ThreadName.h"

#include <pthread.h>

namespace lumbrix::platform
{

void nameCurrentThread(const std::string& name)
{
    // The kernel keeps 15 characters and refuses longer names altogether.
    pthread_setname_np(pthread_self(), name.substr(0, 15).c_str());
}

} // namespace lumbrix::platform
