// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a scan of all windows costs, and how that grows with their number. The yardstick is what no
// scan can do without: the window list once, and what each window says of itself.
//
// The simulated desktop looks through all windows for those of one application, so the bare reads
// grow faster than the windows do when the applications grow with them. What a scan adds shows in
// the ratio to them, and in the scan of a single application.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <string>

#include "model/AXNames.h"
#include "model/AXRead.h"
#include "model/WindowInventory.h"
#include "platform/StringLiterals.h"
#include "tests/support/SimulatedDesktop.h"
#include "tests/support/VirtualRunLoop.h"

namespace lumbrix::test
{
namespace
{

constexpr int windowsPerApplication = 5;

/// A desktop of so many windows, `windowsEach` to an application.
class Scene : public InventoryObserver
{
public:
    explicit Scene(std::int64_t windows, std::int64_t windowsEach = windowsPerApplication)
    {
        for (std::int64_t i = 0; i < windows; ++i) {
            if (i % windowsEach == 0)
                last = desk.addApplication({u"Application %1"_s.arg(i)});
            const auto place = static_cast<double>(i);
            desk.addWindow(last, {u"Window %1"_s.arg(i), {place, 2 * place, 400, 300}});
        }
    }

    VirtualRunLoop loop;
    SimulatedDesktop desk{loop};
    platform::Desktop ports = desk.ports();
    platform::DesktopScope scope{ports};
    EngineSettings settings;
    Pid last = 0;

private:
    void windowsChanged() override {}
    bool isShowingPreviews() const override { return false; }
};

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

void bareReads(benchmark::State& state)
{
    Scene scene(state.range(0));
    const WindowInventory inventory(scene.ports, scene.settings, scene);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(inventory.copyWindowList());
        for (const std::int32_t pid : scene.desk.workspace().launchedApplications()) {
            const auto application = scene.desk.accessibility().createApplication(pid);
            for (const auto& window :
                 AX::readElements(scene.ports.accessibility, application, AX::Windows)) {
                for (const QString& attribute : {AX::Title, AX::Role, AX::Subrole})
                    benchmark::DoNotOptimize(
                        scene.desk.accessibility().copyAttributeValue(window, attribute));
            }
        }
    }
    setSize(state);
}

void firstScan(benchmark::State& state)
{
    Scene scene(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        WindowInventory inventory(scene.ports, scene.settings, scene);
        inventory.windowScanner();
        benchmark::DoNotOptimize(inventory);
    }
    WindowInventory inventory(scene.ports, scene.settings, scene);
    inventory.windowScanner();
    expectWindows(state, inventory);
    setSize(state);
}

void scanRepeatedly(benchmark::State& state, Scene& scene)
{
    WindowInventory inventory(scene.ports, scene.settings, scene);
    inventory.windowScanner();
    for ([[maybe_unused]] auto _ : state)
        inventory.windowScanner();
    expectWindows(state, inventory);
    setSize(state);
}

void repeatedScan(benchmark::State& state)
{
    Scene scene(state.range(0));
    scanRepeatedly(state, scene);
}

void repeatedScanWithSpaces(benchmark::State& state)
{
    Scene scene(state.range(0));
    scene.settings.showSpaces = 1;
    scanRepeatedly(state, scene);
}

void repeatedScanOfOneApplication(benchmark::State& state)
{
    Scene scene(state.range(0), state.range(0));
    scanRepeatedly(state, scene);
}

void windowsForPID(benchmark::State& state)
{
    Scene scene(state.range(0));
    WindowInventory inventory(scene.ports, scene.settings, scene);
    inventory.windowScanner();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(inventory.windowsForPID(scene.last));
    if (inventory.windowsForPID(scene.last).size() != windowsPerApplication)
        state.SkipWithError("not the application's windows");
    setSize(state);
}

/// Says at the end how each compares with the yardstick and how it grows.
class Summary : public benchmark::ConsoleReporter
{
public:
    Summary() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                m_times[run.run_name.function_name][run.complexity_n] = run.GetAdjustedRealTime();
    }
    void Finalize() override
    {
        ConsoleReporter::Finalize();
        const auto bare = m_times["bareReads"];
        std::printf("\nTimes the bare reads of as many windows, and growth (1 = per window the "
                    "same, 2 = quadratic):\n");
        for (const auto& [name, times] : m_times) {
            std::printf("%-30s", name.c_str());
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

BENCHMARK(bareReads)->Apply(sizes);
BENCHMARK(firstScan)->Apply(sizes);
BENCHMARK(repeatedScan)->Apply(sizes);
BENCHMARK(repeatedScanWithSpaces)->Apply(sizes);
BENCHMARK(repeatedScanOfOneApplication)->Apply(sizes);
BENCHMARK(windowsForPID)->Apply(sizes);

} // namespace
} // namespace lumbrix::test

int main(int argc, char* argv[])
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    lumbrix::test::Summary summary;
    return benchmark::RunSpecifiedBenchmarks(&summary) > 0 ? 0 : 1;
}
