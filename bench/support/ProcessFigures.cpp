// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/ProcessFigures.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace lumbrix::bench
{

namespace
{

namespace fs = std::filesystem;
using std::chrono::nanoseconds;

/// The ids that a folder of /proc is made of. Empty when it has gone.
std::vector<int> idsIn(const fs::path& folder)
{
    std::vector<int> ids;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (!name.empty() && std::all_of(name.begin(), name.end(),
                                         [](unsigned char c) { return std::isdigit(c) != 0; }))
            ids.push_back(std::stoi(name));
    }
    return ids;
}

/// The numbers of lines such as "Rss:   1234 kB".
std::map<std::string, std::uint64_t> fieldsOf(const fs::path& path)
{
    std::map<std::string, std::uint64_t> fields;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::istringstream in(line);
        std::string name;
        std::uint64_t value = 0;
        if (in >> name >> value && name.ends_with(':'))
            fields[name.substr(0, name.size() - 1)] = value;
    }
    return fields;
}

std::string lineOf(const fs::path& path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::optional<ThreadFigures> threadFigures(const fs::path& task, int id)
{
    ThreadFigures figures{id, lineOf(task / "comm")};
    std::ifstream times(task / "schedstat");
    std::int64_t spent = 0;
    if (!(times >> spent))
        return std::nullopt;
    figures.processorTime = nanoseconds(spent);
    auto fields = fieldsOf(task / "status");
    figures.voluntary = fields["voluntary_ctxt_switches"];
    figures.involuntary = fields["nonvoluntary_ctxt_switches"];
    return figures;
}

void subtract(ThreadFigures& from, const ThreadFigures& earlier)
{
    from.processorTime -= earlier.processorTime;
    from.voluntary -= earlier.voluntary;
    from.involuntary -= earlier.involuntary;
}

} // namespace

std::optional<nanoseconds> processorTime(int pid)
{
    clockid_t clock = 0;
    timespec time{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return std::nullopt;
    return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

std::optional<ProcessFigures> processFigures(int pid)
{
    const fs::path process = fs::path("/proc") / std::to_string(pid);
    ProcessFigures figures;
    const auto spent = processorTime(pid);
    auto memory = fieldsOf(process / "smaps_rollup");
    if (!spent || memory.empty())
        return std::nullopt;
    figures.processorTime = *spent;
    figures.residentKiB = memory["Rss"];
    figures.proportionalKiB = memory["Pss"];
    figures.anonymousKiB = memory["Anonymous"];
    figures.sharedMemoryKiB = fieldsOf(process / "status")["RssShmem"];
    std::error_code error;
    figures.descriptors = static_cast<int>(
        std::distance(fs::directory_iterator(process / "fd", error), fs::directory_iterator()));
    for (const int id : idsIn(process / "task")) {
        const auto thread = threadFigures(process / "task" / std::to_string(id), id);
        if (!thread)
            continue;
        figures.voluntary += thread->voluntary;
        figures.involuntary += thread->involuntary;
        figures.byThread.push_back(*thread);
    }
    figures.threads = static_cast<int>(figures.byThread.size());
    return figures;
}

std::vector<ThreadFigures> spentBetween(const ProcessFigures& before, const ProcessFigures& after)
{
    std::map<std::string, ThreadFigures> byName;
    nanoseconds ended = after.processorTime - before.processorTime;
    for (ThreadFigures thread : after.byThread) {
        const auto earlier = std::ranges::find(before.byThread, thread.id, &ThreadFigures::id);
        if (earlier != before.byThread.end())
            subtract(thread, *earlier);
        ended -= thread.processorTime;
        ThreadFigures& sum =
            byName.try_emplace(thread.name, ThreadFigures{.id = 0, .name = thread.name, .count = 0})
                .first->second;
        ++sum.count;
        sum.processorTime += thread.processorTime;
        sum.voluntary += thread.voluntary;
        sum.involuntary += thread.involuntary;
    }
    std::vector<ThreadFigures> result;
    result.reserve(byName.size() + 1);
    for (const auto& [name, thread] : byName)
        result.push_back(thread);
    // The two accounts are not read at the same instant, hence a margin.
    if (ended > std::chrono::microseconds(100))
        result.push_back({0, "(ended)", 0, ended, 0, 0});
    std::ranges::sort(result, std::ranges::greater(), &ThreadFigures::processorTime);
    return result;
}

std::optional<int> descendantNamed(int ancestor, const std::string& name)
{
    std::map<int, int> parents;
    std::vector<int> named;
    for (const int pid : idsIn("/proc")) {
        const fs::path process = fs::path("/proc") / std::to_string(pid);
        // The name in the middle may hold anything, so count from its last parenthesis.
        const std::string stat = lineOf(process / "stat");
        const auto end = stat.rfind(") ");
        std::istringstream in(end == std::string::npos ? std::string() : stat.substr(end + 2));
        char state = 0;
        in >> state >> parents[pid];
        if (lineOf(process / "comm") == name)
            named.push_back(pid);
    }
    for (const int pid : named) {
        for (int up = pid; up > 1; up = parents[up])
            if (up == ancestor)
                return pid;
    }
    return std::nullopt;
}

} // namespace lumbrix::bench
