// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What Lumbrix takes while nobody uses it, and with fifteen previews up: memory, and how often it
// wakes up while the mouse is still. Beside it a dock with its window matcher in the same moments.

#include <cstdio>
#include <thread>
#include <unistd.h>

#include "Desk.h"
#include "support/ProcessFigures.h"
#include "support/Program.h"
#include "support/ServerFigures.h"
#include "support/Table.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr QSize windowSize(1280, 800);
constexpr QSize largeSize(3840, 2160);
constexpr int windowCount = 15;
/// Longer than pictures are kept that nobody looks at.
constexpr auto pictureLife = 40s;

int find(const char* name)
{
    const auto pid = descendantNamed(getpid(), name);
    if (!pid)
        qFatal("no %s runs on the private desktop", name);
    return *pid;
}

ProcessFigures look(int pid)
{
    const auto figures = processFigures(pid);
    if (!figures)
        qFatal("process %d is gone", pid);
    return *figures;
}

std::string mebibytes(std::uint64_t kibibytes)
{
    return figure(static_cast<double>(kibibytes) / 1024, "MiB");
}

class Remembering
{
public:
    Remembering(std::chrono::seconds period, QSize screen)
        : m_period(period), m_desk({"bench_memory",
                                    DockKind::Plank,
                                    Edge::Bottom,
                                    {screen, WindowManager::Xfwm4, true}}),
          m_display(m_desk.display()), m_dock(find("plank")), m_matcher(find("bamfdaemon"))
    {
    }

    void run()
    {
        std::printf("%d windows of %dx%d; every period is %lld s. Yardstick: Plank and bamfdaemon "
                    "together, in the same moment\n",
                    windowCount, windowSize.width(), windowSize.height(),
                    static_cast<long long>(m_period.count()));
        std::fflush(stdout);
        start();
        open();
        m_desk.hover(*m_application);
        if (!m_display.waitFor([this] { return m_display.previews().size() == windowCount; }, 5s))
            qFatal("%d previews were expected, not %zu", windowCount, m_display.previews().size());
        waitUntilCalm();
        measure("15 previews up, mouse still on the icon", false);
        hide();
        measure("after the 15 previews went", true);
        std::this_thread::sleep_for(pictureLife);
        measure("idle, 40 s after the last preview went", true);
    }

    /// What windows cost that were previewed and then minimised.
    void runMinimised()
    {
        m_desk.startLumbrix();
        m_pid = find("lumbrix");
        measureMinimised();
        measureMarginal();
    }

private:
    void start()
    {
        std::unique_ptr<Application> probe = m_desk.launch(u"alpha"_s);
        probe->open("probe", Qt::gray);
        bool isFirst = true;
        m_lumbrix = startLumbrix(m_desk.session(), {}, [&] {
            if (std::exchange(isFirst, false)) {
                m_pid = find("lumbrix");
                waitUntilCalm();
                measure("idle after the start, before any preview", true);
            }
            m_desk.park();
            m_desk.hover(*probe);
        });
        hide();
        measure("idle after one preview of a small window", true);
    }

    void open()
    {
        m_application = m_desk.launch(u"beta"_s);
        for (int i = 0; i < windowCount; ++i)
            m_application->open("window " + QByteArray::number(i + 1),
                                QColor::fromHsv(i * 47 % 360, 255, 230),
                                {windowSize, {20 + 30 * i, 20 + 10 * i}});
    }

    void hide()
    {
        m_desk.park();
        if (!m_display.waitFor([this] { return m_display.panels().empty(); }, 10s))
            qFatal("the previews do not go");
        waitUntilCalm();
    }

    /// Waits until Lumbrix does next to nothing for a while.
    void waitUntilCalm()
    {
        constexpr int calmSeconds = 3;
        auto before = processorTime(m_pid);
        for (int calm = 0, second = 0; calm < calmSeconds && second < 30; ++second) {
            std::this_thread::sleep_for(1s);
            const auto now = processorTime(m_pid);
            if (!now || !before)
                return;
            calm = *now - *before < 2ms ? calm + 1 : 0;
            before = now;
        }
    }

    void measure(const char* state, bool isIdle)
    {
        const ProcessFigures before = look(m_pid);
        const ProcessFigures dockBefore = look(m_dock);
        const ProcessFigures matcherBefore = look(m_matcher);
        const auto start = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(m_period);
        const ProcessFigures after = look(m_pid);
        const ProcessFigures dock = look(m_dock);
        const ProcessFigures matcher = look(m_matcher);
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

        Table table(state);
        const auto memory = [&](const char* name, std::uint64_t ProcessFigures::*field,
                                const char* aim) {
            table.add(name, static_cast<double>(after.*field) / 1024,
                      static_cast<double>(dock.*field + matcher.*field) / 1024, "MiB", aim);
        };
        memory("resident memory", &ProcessFigures::residentKiB, "ratio below 1");
        memory("proportional memory", &ProcessFigures::proportionalKiB, "ratio below 1");
        memory("  of the resident: anonymous", &ProcessFigures::anonymousKiB, "");
        memory("  of the resident: shared segments", &ProcessFigures::sharedMemoryKiB, "");
        addServer(table);
        table.add("threads", std::to_string(after.threads),
                  std::to_string(dock.threads + matcher.threads));
        table.add("descriptors", std::to_string(after.descriptors),
                  std::to_string(dock.descriptors + matcher.descriptors));
        const auto spent = [seconds](const ProcessFigures& from, const ProcessFigures& to) {
            return std::chrono::duration<double, std::milli>(to.processorTime - from.processorTime)
                       .count() /
                   seconds;
        };
        table.add("processor time", spent(before, after),
                  spent(dockBefore, dock) + spent(matcherBefore, matcher), "ms/s", "", 2);
        const auto wakes = [seconds](const ProcessFigures& from, const ProcessFigures& to) {
            std::uint64_t sum = 0;
            for (const ThreadFigures& thread : spentBetween(from, to))
                sum += thread.voluntary;
            return static_cast<double>(sum) / seconds;
        };
        table.add("wake-ups", wakes(before, after),
                  wakes(dockBefore, dock) + wakes(matcherBefore, matcher), "/s",
                  isIdle ? "the scanner's 0.4, the timer's 0.3" : "", 2);
        for (const ThreadFigures& thread : spentBetween(before, after)) {
            if (thread.voluntary == 0 && thread.processorTime < 10us)
                continue;
            table.add(
                "  thread " + thread.name +
                    (thread.count > 1 ? " (" + std::to_string(thread.count) + ')' : ""),
                figure(static_cast<double>(thread.voluntary) / seconds, "/s", 2), "", "",
                figure(std::chrono::duration<double, std::micro>(thread.processorTime).count() /
                           seconds,
                       "us/s"));
        }
        table.print();
    }

    std::uint64_t pixmapKiB()
    {
        const auto own = serverFigures(m_display.connection(), m_pid);
        return own ? own->pixmapBytes / 1024 : 0;
    }

    struct Share {
        double server; ///< MiB of pixmaps
        double own;    ///< MiB of Lumbrix, without what the program's files take
        double both() const { return server + own; }
        Share operator-(const Share& other) const
        {
            return {server - other.server, own - other.own};
        }
    };

    Share lookAtShares()
    {
        const ProcessFigures figures = look(m_pid);
        return {static_cast<double>(pixmapKiB()) / 1024,
                static_cast<double>(figures.anonymousKiB + figures.sharedMemoryKiB) / 1024};
    }

    /// Shows so many previews of it for a second.
    void preview(const Application& application, std::size_t count)
    {
        m_desk.hover(application);
        if (!m_display.waitFor([&] { return m_display.previews().size() == count; }, 5s))
            qFatal("%zu previews were expected", count);
        std::this_thread::sleep_for(1s);
        hide();
    }

    void measureMinimised()
    {
        const auto application = m_desk.launch(u"gamma"_s);
        const AppWindow probe = application->open("usual", Qt::gray);
        preview(*application, 1);
        std::this_thread::sleep_for(5s);
        const Share before = lookAtShares();
        const AppWindow large = application->open("large", Qt::darkCyan, {largeSize, {0, 0}});
        preview(*application, 2);
        std::this_thread::sleep_for(5s);
        const Share open = lookAtShares() - before;
        application->minimise(large);
        std::this_thread::sleep_for(5s);
        const Share minimised = lookAtShares() - before;
        Table table("one window of 3840x2160 more, and one panel");
        const auto add = [&](const std::string& name, double Share::*share) {
            table.add(name + ", while it is open", figure(open.*share, "MiB", 2));
            table.add(name + ", minimised", figure(minimised.*share, "MiB", 2));
        };
        add("pixmaps in the server", &Share::server);
        add("memory of Lumbrix", &Share::own);
        table.add("both together, minimised", figure(minimised.both(), "MiB", 2), "", "",
                  "at most 1 MiB");
        table.print();
    }

    /// What one of five such windows costs that were previewed and then minimised.
    Share costOfMinimised(QSize size)
    {
        constexpr int count = 5;
        const Share before = lookAtShares();
        const auto application = m_desk.launch(u"beta"_s);
        for (int i = 0; i < count; ++i)
            application->open("window " + QByteArray::number(i + 1),
                              QColor::fromHsv(i * 47 % 360, 255, 230), {size, {20 * i, 20 * i}});
        preview(*application, count);
        for (const AppWindow& window : std::vector(application->windows()))
            application->minimise(window);
        std::this_thread::sleep_for(5s);
        const Share all = lookAtShares() - before;
        return {all.server / count, all.own / count};
    }

    void measureMarginal()
    {
        costOfMinimised(windowSize); // makes the panels, which stay
        std::this_thread::sleep_for(5s);
        const Share usual = costOfMinimised(windowSize);
        std::this_thread::sleep_for(5s);
        const Share large = costOfMinimised(largeSize);
        Table table("each of five minimised windows, once there are panels for all");
        const auto add = [&](const char* size, const Share& share) {
            table.add(std::string("of ") + size + ": pixmaps in the server",
                      figure(share.server, "MiB", 2));
            table.add("  memory of Lumbrix", figure(share.own, "MiB", 2));
            table.add("  both together", figure(share.both(), "MiB", 2), "", "", "at most 1 MiB");
        };
        add("1280x800", usual);
        add("3840x2160", large);
        table.print();
    }

    void addServer(Table& table)
    {
        const auto own = serverFigures(m_display.connection(), m_pid);
        const auto dock = serverFigures(m_display.connection(), m_dock);
        const auto matcher = serverFigures(m_display.connection(), m_matcher);
        if (!own || !dock || !matcher)
            return;
        table.add("pixmaps in the server", mebibytes(own->pixmapBytes / 1024),
                  mebibytes((dock->pixmapBytes + matcher->pixmapBytes) / 1024));
        table.add("resources in the server", std::to_string(own->resources),
                  std::to_string(dock->resources + matcher->resources));
    }

    const std::chrono::seconds m_period;
    Desk m_desk;
    Display& m_display;
    const int m_dock;
    const int m_matcher;
    std::unique_ptr<Process> m_lumbrix;
    int m_pid = 0;
    std::unique_ptr<Application> m_application;
};

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv,
                          {{u"seconds"_s, u"How long each state is measured."_s, u"N"_s, u"12"_s},
                           {u"minimised"_s, u"Only what minimised windows cost."_s}});
    const int seconds = program.number(u"seconds"_s);
    if (!program.isSet(u"minimised"_s))
        Remembering{std::chrono::seconds(seconds), {1920, 1080}}.run();
    Remembering{std::chrono::seconds(seconds), {4096, 2304}}.runMinimised();
    return 0;
}
