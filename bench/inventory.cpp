// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a scan of all windows costs, and how that grows with their number, on the simulated desktop
// and on a real server. The yardstick is what no scan can do without: the window list once, and
// what each window says of itself.
//
// The simulated desktop looks through all windows for those of one application, so the bare reads
// grow faster than the windows do when the applications grow with them. What a scan adds shows in
// the ratio to them, and in the scan of a single application.

#include <benchmark/benchmark.h>

#include <QtGui/QGuiApplication>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "inventory/Scene.h"
#include "model/AXNames.h"
#include "model/AXRead.h"
#include "platform/Workspace.h"

namespace lumbrix::bench
{
namespace
{

constexpr int windowsPerApplication = 5;

using MakeScene = std::unique_ptr<Scene> (*)(std::int64_t windows, std::int64_t windowsEach);

/// Kept from one measurement to the next, as a server takes its time to start.
std::unique_ptr<Scene> keptScene;

Scene& sceneOf(MakeScene make, std::int64_t windows, std::int64_t windowsEach)
{
    static std::tuple<MakeScene, std::int64_t, std::int64_t> known;
    const std::tuple wanted(make, windows, windowsEach);
    if (std::exchange(known, wanted) != wanted || !keptScene) {
        keptScene.reset();
        keptScene = make(windows, windowsEach);
    }
    keptScene->settings.showSpaces = 0;
    return *keptScene;
}

Scene& sceneOf(const benchmark::State& state, MakeScene make)
{
    return sceneOf(make, state.range(0), windowsPerApplication);
}

/// Tells how many windows took part, per scan and in the growth that is fitted.
void setSize(benchmark::State& state)
{
    state.SetComplexityN(state.range(0));
    state.counters["per window"] = benchmark::Counter(
        static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void expectWindows(benchmark::State& state, const WindowInventory& inventory)
{
    if (inventory.windowsArray().size() != static_cast<std::size_t>(state.range(0)))
        state.SkipWithError("the scan did not find all windows");
}

void bareReads(benchmark::State& state, MakeScene make)
{
    Scene& scene = sceneOf(state, make);
    const platform::Desktop& ports = scene.ports();
    const WindowInventory inventory(ports, scene.settings, scene);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(inventory.copyWindowList());
        for (const std::int32_t pid : ports.workspace.launchedApplications()) {
            const auto application = ports.accessibility.createApplication(pid);
            for (const auto& window :
                 AX::readElements(ports.accessibility, application, AX::Windows)) {
                for (const QString& attribute : {AX::Title, AX::Role, AX::Subrole})
                    benchmark::DoNotOptimize(
                        ports.accessibility.copyAttributeValue(window, attribute));
            }
        }
    }
    setSize(state);
}

void firstScan(benchmark::State& state, MakeScene make)
{
    Scene& scene = sceneOf(state, make);
    for ([[maybe_unused]] auto _ : state) {
        WindowInventory inventory(scene.ports(), scene.settings, scene);
        inventory.windowScanner();
        benchmark::DoNotOptimize(inventory);
    }
    WindowInventory inventory(scene.ports(), scene.settings, scene);
    inventory.windowScanner();
    expectWindows(state, inventory);
    setSize(state);
}

void scanRepeatedly(benchmark::State& state, Scene& scene)
{
    WindowInventory inventory(scene.ports(), scene.settings, scene);
    inventory.windowScanner();
    for ([[maybe_unused]] auto _ : state)
        inventory.windowScanner();
    expectWindows(state, inventory);
    setSize(state);
}

void repeatedScan(benchmark::State& state, MakeScene make)
{
    scanRepeatedly(state, sceneOf(state, make));
}

void repeatedScanWithSpaces(benchmark::State& state, MakeScene make)
{
    Scene& scene = sceneOf(state, make);
    scene.settings.showSpaces = 1;
    scanRepeatedly(state, scene);
}

void windowsForPID(benchmark::State& state, MakeScene make)
{
    Scene& scene = sceneOf(state, make);
    WindowInventory inventory(scene.ports(), scene.settings, scene);
    inventory.windowScanner();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(inventory.windowsForPID(scene.lastApplication()));
    if (inventory.windowsForPID(scene.lastApplication()).size() != windowsPerApplication)
        state.SkipWithError("not the application's windows");
    setSize(state);
}

void repeatedScanOfOneApplication(benchmark::State& state, MakeScene make)
{
    scanRepeatedly(state, sceneOf(make, state.range(0), state.range(0)));
}

/// Says at the end how each compares with the yardstick and how it grows.
class Summary : public benchmark::ConsoleReporter
{
public:
    Summary() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            m_times[run.run_name.function_name][run.complexity_n] = run.GetAdjustedRealTime();
        }
    }
    void Finalize() override
    {
        ConsoleReporter::Finalize();
        std::printf("\nTimes the bare reads of as many windows, and growth (1 = per window the "
                    "same, 2 = quadratic):\n");
        for (const auto& [name, times] : m_times) {
            const auto& bare = m_times["bareReads" + name.substr(name.find('/'))];
            std::printf("%-38s", name.c_str());
            for (const auto& [windows, time] : times)
                if (const auto found = bare.find(windows); found != bare.end())
                    std::printf(" %6.2f (%d)", time / found->second, static_cast<int>(windows));
            if (times.size() > 1) {
                const auto first = times.begin();
                const auto last = times.rbegin();
                const double windows =
                    static_cast<double>(last->first) / static_cast<double>(first->first);
                std::printf("   growth %.2f",
                            std::log(last->second / first->second) / std::log(windows));
            }
            std::printf("\n");
        }
    }

private:
    std::map<std::string, std::map<std::int64_t, double>> m_times;
};

void sizes(benchmark::internal::Benchmark* each)
{
    each->Arg(10)->Arg(100)->Arg(500)->Unit(benchmark::kMicrosecond)->Complexity();
}

#define LUMBRIX_ON_BOTH(what)                                                                      \
    BENCHMARK_CAPTURE(what, simulated, simulatedScene)->Apply(sizes);                              \
    BENCHMARK_CAPTURE(what, real, realScene)->Apply(sizes)

LUMBRIX_ON_BOTH(bareReads);
LUMBRIX_ON_BOTH(firstScan);
LUMBRIX_ON_BOTH(repeatedScan);
LUMBRIX_ON_BOTH(repeatedScanWithSpaces);
LUMBRIX_ON_BOTH(windowsForPID);
LUMBRIX_ON_BOTH(repeatedScanOfOneApplication);

} // namespace
} // namespace lumbrix::bench

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the adapter asks the toolkit for names of themes
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    lumbrix::bench::Summary summary;
    const auto count = benchmark::RunSpecifiedBenchmarks(&summary);
    lumbrix::bench::keptScene.reset();
    return count > 0 ? 0 : 1;
}
