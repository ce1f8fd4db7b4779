// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a process holds and has spent so far, as the kernel accounts for it.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lumbrix::bench
{

inline double milliseconds(std::chrono::nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// One thread, or several of the same name together.
struct ThreadFigures {
    int id = 0; ///< 0 for several
    std::string name;
    int count = 1;
    std::chrono::nanoseconds processorTime{0};
    std::uint64_t voluntary = 0;   ///< times it went to sleep, which is once for each wake-up
    std::uint64_t involuntary = 0; ///< times the processor was taken from it
};

struct ProcessFigures {
    std::uint64_t residentKiB = 0;
    std::uint64_t proportionalKiB = 0; ///< pages shared with others count in part
    std::uint64_t anonymousKiB = 0;    ///< resident pages that no file is behind
    std::uint64_t sharedMemoryKiB = 0; ///< resident pages of shared-memory segments
    int threads = 0;
    int descriptors = 0;
    std::chrono::nanoseconds processorTime{0}; ///< of threads that have ended, too
    std::uint64_t voluntary = 0;               ///< context switches of the threads that live
    std::uint64_t involuntary = 0;
    std::vector<ThreadFigures> byThread;
};

/// None once the process is gone.
std::optional<ProcessFigures> processFigures(int pid);
/// Only the time on the processor, which is read without disturbing the process's memory map.
std::optional<std::chrono::nanoseconds> processorTime(int pid);

/// What each thread spent between two looks, threads of one name together, the busiest first.
/// Threads that have ended in between appear together as "(ended)", with their processor time only.
std::vector<ThreadFigures> spentBetween(const ProcessFigures& before, const ProcessFigures& after);

/// The id of the first process of this name that has `ancestor` among its forebears; none if there
/// is no such process. For what the private desktop starts by itself, such as its X server.
std::optional<int> descendantNamed(int ancestor, const std::string& name);

} // namespace lumbrix::bench
