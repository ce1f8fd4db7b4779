// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What it costs to read a panel's buttons from the accessibility tree, which is needed beside a
// second dock: the same desktop with xfce4-panel and Plank, once with that tree and once without.

#include <algorithm>
#include <cstdio>
#include <thread>
#include <unistd.h>

#include "Desk.h"
#include "support/ProcessFigures.h"
#include "support/Program.h"
#include "support/Table.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr int standingWindows = 10;
constexpr int passingWindows = 20;
constexpr auto restTime = 12s;

struct Cost {
    ProcessFigures figures;
    double restTime = 0; ///< ms of processor time a second
    double wakeUps = 0;  ///< a second
    double window = 0;   ///< ms of processor time for one that comes and goes
};

ProcessFigures look(int pid)
{
    const auto figures = processFigures(pid);
    if (!figures)
        qFatal("process %d is gone", pid);
    return *figures;
}

double milliseconds(const ProcessFigures& from, const ProcessFigures& to)
{
    return std::chrono::duration<double, std::milli>(to.processorTime - from.processorTime).count();
}

Cost measure(bool withTree)
{
    SessionOptions session;
    session.accessibility = withTree;
    Desk desk({"bench_accessibility", DockKind::Plank, Edge::Bottom, session, DockKind::XfcePanel});
    const auto application = desk.launch(u"alpha"_s);
    application->open(standingWindows);
    desk.startLumbrix();
    const int pid = *descendantNamed(getpid(), "lumbrix");
    desk.park();
    // Until panels that keep silent are asked, and their answers are in.
    std::this_thread::sleep_for(5s);

    Cost cost;
    const ProcessFigures atRest = look(pid);
    std::this_thread::sleep_for(restTime);
    cost.figures = look(pid);
    const double seconds = std::chrono::duration<double>(restTime).count();
    cost.restTime = milliseconds(atRest, cost.figures) / seconds;
    for (const ThreadFigures& thread : spentBetween(atRest, cost.figures))
        cost.wakeUps += static_cast<double>(thread.voluntary) / seconds;

    for (int i = 0; i < passingWindows; ++i) {
        const AppWindow window = application->open("passing", Qt::darkCyan);
        std::this_thread::sleep_for(200ms);
        application->destroy(window);
        std::this_thread::sleep_for(200ms);
    }
    cost.window = milliseconds(cost.figures, look(pid)) / passingWindows;
    return cost;
}

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv, {});
    const Cost without = measure(false);
    const Cost with = measure(true);
    Table table("xfce4-panel and Plank, " + std::to_string(standingWindows) +
                " windows: with the panel's tree, and without");
    const auto memory = [&](const char* name, std::uint64_t ProcessFigures::*field) {
        table.add(name, static_cast<double>(with.figures.*field) / 1024,
                  static_cast<double>(without.figures.*field) / 1024, "MiB");
    };
    memory("resident memory", &ProcessFigures::residentKiB);
    memory("  of it anonymous", &ProcessFigures::anonymousKiB);
    table.add("threads", with.figures.threads, without.figures.threads, "", "", 0);
    table.add("processor time at rest", with.restTime, without.restTime, "ms/s", "", 2);
    table.add("wake-ups at rest", with.wakeUps, without.wakeUps, "/s", "", 2);
    table.add("a window that comes and goes", with.window, without.window, "ms", "", 2);
    table.print();
    return 0;
}
