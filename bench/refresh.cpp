// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What keeping fifteen previews up costs: processor time, copies of windows' pictures and repaints
// of panels, while the pointer rests on the icon and the windows stand still, all change, or one
// plays a film. Beside it the bare copying of the same pictures twice a second, and Plank at rest.
#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <map>
#include <thread>
#include <unistd.h>

#include "Desk.h"
#include "support/BareCopy.h"
#include "support/PaintWatch.h"
#include "support/ProcessFigures.h"
#include "support/RequestCounter.h"
#include "support/Table.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using std::chrono::nanoseconds;

constexpr QSize windowSize(1280, 800);
constexpr int windowCount = 15;
constexpr int framesPerSecond = 30;
constexpr double pace = 2; ///< pictures a second that a preview is meant to show

/// Processor time of our own thread.
nanoseconds ownTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

double milliseconds(nanoseconds time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

/// Processes beside each other, in milliseconds of processor time a second.
struct Costs {
    double lumbrix = 0;
    double server = 0;
    double compositor = 0;
    double dock = 0;
    double frames = 0; ///< that an animated window showed a second
};

class Refreshing
{
public:
    explicit Refreshing(std::chrono::seconds period)
        : m_period(period), m_desk({"bench_refresh",
                                    DockKind::Plank,
                                    Edge::Bottom,
                                    {{1920, 1080}, WindowManager::Xfwm4, true}}),
          m_display(m_desk.display())
    {
        const auto find = [](const char* name) {
            const auto pid = descendantNamed(getpid(), name);
            if (!pid)
                qFatal("no %s runs on the private desktop", name);
            return *pid;
        };
        m_server = find("Xvfb");
        m_compositor = find("xfwm4");
        m_dock = find("plank");
        m_matcher = find("bamfdaemon");
        m_desk.startLumbrix();
        m_application = m_desk.launch(u"beta"_s);
        for (int i = 0; i < windowCount; ++i)
            m_application->open("window " + QByteArray::number(i + 1),
                                QColor::fromHsv(i * 47 % 360, 255, 230),
                                {windowSize, {20 + 30 * i, 20 + 10 * i}});
    }

    void run()
    {
        std::printf(
            "%d windows of %dx%d; every case is measured for %lld s. Yardsticks: copying all "
            "their pictures\ntwice a second and nothing else; Plank and bamfdaemon; the "
            "windows without previews\n",
            windowCount, windowSize.width(), windowSize.height(),
            static_cast<long long>(m_period.count()));
        measureBareCopies();
        measureCase("(a) nothing changes", 0);
        measureCase("(b) all windows change", windowCount);
        measureCase("(c) one window plays a film", 1);
    }

private:
    /// What the processes spend while `during` lasts.
    template <class During> Costs spend(int animated, During during)
    {
        const auto& windows = m_application->windows();
        for (int i = 0; i < animated; ++i)
            m_application->startAnimating(windows[static_cast<std::size_t>(i)], framesPerSecond);
        std::this_thread::sleep_for(2s); // the beginning is not what is asked for
        const auto times = [this] {
            return std::array{*processorTime(m_desk.lumbrix().pid()), *processorTime(m_server),
                              *processorTime(m_compositor),
                              *processorTime(m_dock) + *processorTime(m_matcher)};
        };
        // Starting again counts the pictures from here on.
        for (int i = 0; i < animated; ++i)
            m_application->startAnimating(windows[static_cast<std::size_t>(i)], framesPerSecond);
        const auto before = times();
        const auto start = Clock::now();
        during();
        const auto after = times();
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        const auto perSecond = [&](int i) { return milliseconds(after[i] - before[i]) / seconds; };
        Costs costs{perSecond(0), perSecond(1), perSecond(2), perSecond(3), 0};
        for (int i = 0; i < animated; ++i)
            costs.frames += m_application->stopAnimating(windows[static_cast<std::size_t>(i)]) /
                            seconds / animated;
        return costs;
    }

    void hidePreviews()
    {
        m_desk.park();
        if (!m_display.waitFor([this] { return m_display.panels().empty(); }, 10s))
            qFatal("the previews do not go");
    }

    void measureBareCopies()
    {
        hidePreviews();
        std::vector<xcb_window_t> ids;
        for (const AppWindow& window : m_application->windows())
            ids.push_back(window.id);
        BareCopy copier(m_display.name(), ids, windowSize);
        copier.copyAll();
        nanoseconds own{0};
        int rounds = 0;
        m_bare = spend(0, [&] {
            const auto start = Clock::now();
            const auto before = ownTime();
            for (; Clock::now() - start < m_period; ++rounds) {
                copier.copyAll();
                std::this_thread::sleep_until(start + (rounds + 1) * 500ms);
            }
            own = ownTime() - before;
        });
        // Where Lumbrix would stand.
        m_bare.lumbrix = milliseconds(own) / std::chrono::duration<double>(m_period).count();
    }

    void measureCase(const char* name, int animated)
    {
        hidePreviews();
        const Costs without = spend(animated, [this] { std::this_thread::sleep_for(m_period); });

        if (!m_desk.hover(*m_application) ||
            !m_display.waitFor([this] { return m_display.previews().size() == windowCount; }, 5s))
            qFatal("%d previews were expected, not %zu", windowCount, m_display.previews().size());
        const auto panels = m_display.previews();
        RequestCounter counter(m_display.name(), m_desk.lumbrix().pid());
        PaintWatch watch(m_display.name());
        const Costs with = spend(animated, [&] {
            counter.clear();
            watch.clear();
            std::this_thread::sleep_for(m_period);
        });
        const auto counts = counter.counts();
        if (m_display.previews().size() != windowCount)
            qFatal("the previews did not stay");

        const double seconds = std::chrono::duration<double>(m_period).count();
        Table table(name);
        if (animated != 0)
            table.add("pictures a second that each window showed", with.frames, without.frames, "");
        table.add("processor time of Lumbrix", with.lumbrix, m_bare.lumbrix, "ms/s");
        table.add("the X server's, because of the previews", with.server - without.server,
                  m_bare.server, "ms/s");
        table.add("both together", with.lumbrix + with.server - without.server,
                  m_bare.lumbrix + m_bare.server, "ms/s");
        table.add("the compositor's, because of the previews",
                  figure(with.compositor - without.compositor, "ms/s"));
        table.add("Lumbrix beside Plank and bamfdaemon", with.lumbrix, with.dock, "ms/s");
        table.add("Lumbrix with no preview up", without.lumbrix, without.dock, "ms/s", "", 2);
        const double aimed = animated * pace;
        table.add("pictures copied a second", static_cast<double>(counter.copies(counts)) / seconds,
                  aimed, "", "at most " + figure(aimed, {}, 0));
        table.add("images painted a second", static_cast<double>(counter.paints(counts)) / seconds,
                  aimed, "", animated == 0 ? "0" : "");
        addPaces(table, watch, panels, animated);
        table.print();
        std::printf("requests in %.0f s: %s\n", seconds, counter.describe(counts).c_str());
    }

    /// How often each preview was drawn on; drawings in quick succession are one repaint.
    void addPaces(Table& table, const PaintWatch& watch, const std::vector<Panel>& panels,
                  int animated)
    {
        std::map<xcb_window_t, std::pair<Clock::time_point, int>> repaints;
        for (const PaintWatch::Event& event : watch.events()) {
            if (event.kind != PaintWatch::Event::Kind::Painted)
                continue;
            auto& [last, count] = repaints[event.window];
            if (count == 0 || event.at - last > 50ms)
                ++count;
            last = event.at;
        }
        std::vector<double> moving;
        std::vector<double> still;
        const auto& windows = m_application->windows();
        for (const Panel& panel : panels) {
            const auto isAnimated =
                std::any_of(windows.begin(), windows.begin() + animated,
                            [&](const AppWindow& window) { return window.title == panel.title; });
            (isAnimated ? moving : still)
                .push_back(repaints[panel.id].second /
                           std::chrono::duration<double>(m_period).count());
        }
        const auto add = [&](const char* what, const std::vector<double>& paces, const char* aim) {
            if (paces.empty())
                return;
            const auto [least, most] = std::ranges::minmax(paces);
            table.add(what, figure(least) + " to " + figure(most), "", "", aim);
        };
        add("repaints a second of a changing window's preview", moving, "2");
        add("repaints a second of an unchanged window's preview", still, "0");
    }

    const std::chrono::seconds m_period;
    Desk m_desk;
    Display& m_display;
    int m_server = 0;
    int m_compositor = 0;
    int m_dock = 0;
    int m_matcher = 0;
    std::unique_ptr<Application> m_application;
    Costs m_bare; ///< of copying all pictures twice a second
};

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({u"seconds"_s, u"How long each case is measured."_s, u"N"_s, u"10"_s});
    parser.process(application);
    const int seconds = std::max(1, parser.value(u"seconds"_s).toInt());
    Refreshing{std::chrono::seconds(seconds)}.run();
    return 0;
}
