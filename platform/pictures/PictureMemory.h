// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where pictures lie in memory, so that what is freed of them goes back to the system. Both do
// nothing with a C library that does not let us choose.
#pragma once

namespace lumbrix::platform
{

/// Gives each picture of the size of a preview, or larger, pages of its own. Otherwise pictures lie
/// among what the threads that make them allocate besides; little of that is enough to keep the
/// room of many pictures, and each thread has such a place. To be called once, before there are
/// threads.
void keepPicturesApart();

/// Gives back what is free of the memory in use. Any thread; takes some milliseconds.
void giveBackFreedMemory();

} // namespace lumbrix::platform
