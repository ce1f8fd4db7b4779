// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What keeping fifteen previews up costs: processor time, copies of windows' pictures and repaints
// of panels, while the windows stand still, one plays a film, or all do, the pointer resting on the
// icon or on a preview; and what a cursor costs that blinks in a very large window. Beside it the
// bare copying of the same pictures twice a second, Plank at rest, and xfwm4's own previews.

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <map>
#include <optional>
#include <thread>
#include <unistd.h>
#include <xcb/xtest.h>

#include "Desk.h"
#include "refresh/BlinkingCursor.h"
#include "support/BareCopy.h"
#include "support/PaintWatch.h"
#include "support/ProcessFigures.h"
#include "support/Program.h"
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
constexpr std::size_t hoveredPreview = 4;
constexpr std::uint8_t tabKey = 23; // the evdev key codes of Xvfb's keyboard
constexpr std::uint8_t altKey = 64;

const Settings withoutZoom{{u"zoomWindows"_s, u"0"_s}};

/// Processor time of our own thread.
nanoseconds ownTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

/// Processes beside each other, in milliseconds of processor time a second.
struct Costs {
    double lumbrix = 0;
    double server = 0;
    double compositor = 0;
    double dock = 0;
    double frames = 0; ///< that an animated window showed a second
};

struct Turn {
    Costs without; ///< with no preview up
    Costs with;
};

/// A second each.
struct Seen {
    double copies = 0;
    double paints = 0;
    double drawings = 0;
    std::string requests;
    std::map<QByteArray, double> paces; ///< repaints by title; an empty one is the hovered preview
};

class Refreshing
{
public:
    Refreshing(std::chrono::seconds period, int turns)
        : m_period(period), m_turns(turns), m_desk({"bench_refresh",
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
        m_desk.startLumbrix(withoutZoom);
        m_application = m_desk.launch(u"beta"_s);
        for (int i = 0; i < windowCount; ++i)
            m_application->open("window " + QByteArray::number(i + 1),
                                QColor::fromHsv(i * 47 % 360, 255, 230),
                                {windowSize, {20 + 30 * i, 20 + 10 * i}});
    }

    /// The letters of the cases.
    void run(const QString& cases)
    {
        const auto isWanted = [&](QChar letter) { return cases.contains(letter); };
        std::printf(
            "%d windows of %dx%d; every case is measured %d times for %lld s, and the medians are "
            "told. Yardsticks:\ncopying all their pictures twice a second and nothing else; Plank "
            "and bamfdaemon; the windows without previews\n",
            windowCount, windowSize.width(), windowSize.height(), m_turns,
            static_cast<long long>(m_period.count()));
        measureBareCopies();
        if (isWanted(u'a'))
            measureCase("(a) nothing changes", 0, {}, "0");
        if (isWanted(u'b'))
            measureCase("(b) one window plays a film", 1, {}, "at least 25");
        if (isWanted(u'c'))
            measureCase("(c) all play one", windowCount, {}, "at least 4");
        if (isWanted(u'd'))
            measureCase("(d) all play one, the pointer is on a preview", windowCount,
                        hoveredPreview, "at least 4");
        if (isWanted(u's'))
            measureSwitcher();
        if (!isWanted(u'e'))
            return;
        hidePreviews();
        m_desk.startLumbrix();
        measureCase("(e) all play one, a preview is zoomed", windowCount, hoveredPreview,
                    "at least 4");
    }

private:
    /// What the processes spend while `during` lasts.
    template <class During> Costs spend(int animated, During during)
    {
        const auto& windows = m_application->windows();
        for (int i = 0; i < animated; ++i)
            m_application->startAnimating(windows[static_cast<std::size_t>(i)], framesPerSecond);
        std::this_thread::sleep_for(1s); // the beginning is not what is asked for
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

    void showRow(std::optional<std::size_t> hovered)
    {
        if (!m_desk.hover(*m_application) ||
            !m_display.waitFor([&] { return m_display.previews().size() == windowCount; }, 5s))
            qFatal("%d previews were expected, not %zu", windowCount, m_display.previews().size());
        if (hovered)
            m_display.moveTo(m_display.previews()[*hovered].geometry.center());
    }

    /// The same without and with previews.
    Turn takeTurn(int animated, std::optional<std::size_t> hovered)
    {
        const auto wait = [this] { std::this_thread::sleep_for(m_period); };
        hidePreviews();
        const Costs without = spend(animated, wait);
        showRow(hovered);
        const Costs with = spend(animated, wait);
        if (m_display.previews().size() != windowCount)
            qFatal("the previews did not stay");
        return {without, with};
    }

    /// By itself, as the server needs as much time to tell of requests and damage as for them.
    Seen observe(int animated, std::optional<std::size_t> hovered)
    {
        hidePreviews();
        showRow(hovered);
        const auto panels = m_display.previews();
        RequestCounter counter(m_display.name(), m_desk.lumbrix().pid());
        PaintWatch watch(m_display.name());
        spend(animated, [&] {
            counter.clear();
            watch.clear();
            std::this_thread::sleep_for(m_period);
        });
        const auto counts = counter.counts();
        const double seconds = std::chrono::duration<double>(m_period).count();
        Seen seen{static_cast<double>(counter.copies(counts)) / seconds,
                  static_cast<double>(counter.paints(counts)) / seconds,
                  static_cast<double>(counter.drawings(counts)) / seconds,
                  counter.describe(counts),
                  {}};
        auto paces = pacesOf(watch);
        for (std::size_t i = 0; i < panels.size(); ++i)
            seen.paces[i == hovered ? QByteArray() : panels[i].title] = paces[panels[i].id];
        return seen;
    }

    /// The aim is that of the previews of changing windows, in pictures a second.
    void measureCase(const char* name, int animated, std::optional<std::size_t> hovered,
                     const char* aim)
    {
        std::vector<Turn> turns;
        turns.reserve(static_cast<std::size_t>(m_turns));
        for (int i = 0; i < m_turns; ++i)
            turns.push_back(takeTurn(animated, hovered));
        const auto each = [&](auto figureOf) {
            std::vector<double> figures;
            std::ranges::transform(turns, std::back_inserter(figures), figureOf);
            std::ranges::sort(figures);
            return figures;
        };
        const auto median = [&](auto figureOf) { return each(figureOf)[turns.size() / 2]; };
        const auto serverShare = [](const Turn& turn) {
            return turn.with.server - turn.without.server;
        };
        const auto both = [&](const Turn& turn) { return turn.with.lumbrix + serverShare(turn); };
        const double lumbrix = median([](const Turn& turn) { return turn.with.lumbrix; });
        const auto dock = median([](const Turn& turn) { return turn.with.dock; });
        Table table(name);
        if (animated != 0)
            table.add("pictures a second that each window showed",
                      median([](const Turn& turn) { return turn.with.frames; }),
                      median([](const Turn& turn) { return turn.without.frames; }), "");
        const char* most = animated == 1 ? "at most 60" : animated == 0 ? "" : "at most 100";
        table.add("processor time of Lumbrix", lumbrix, m_bare.lumbrix, "ms/s");
        table.add("the X server's, because of the previews", median(serverShare), m_bare.server,
                  "ms/s");
        table.add("both together", median(both), m_bare.lumbrix + m_bare.server, "ms/s", most);
        const auto all = each(both);
        table.add("... in each turn", figure(all.front()) + " to " + figure(all.back(), "ms/s"));
        table.add("the compositor's, because of the previews",
                  figure(median([](const Turn& turn) {
                             return turn.with.compositor - turn.without.compositor;
                         }),
                         "ms/s"));
        table.add("Lumbrix beside Plank and bamfdaemon", lumbrix, dock, "ms/s");
        table.add("Lumbrix with no preview up",
                  median([](const Turn& turn) { return turn.without.lumbrix; }),
                  median([](const Turn& turn) { return turn.without.dock; }), "ms/s", "", 2);
        const char* none = animated == 0 ? "0" : "";
        const Seen seen = observe(animated, hovered);
        table.add("pictures copied a second", figure(seen.copies), "", "", none);
        table.add("images painted a second", figure(seen.paints), "", "", none);
        table.add("pictures drawn by the server a second", figure(seen.drawings), "", "", none);
        addPaces(table, seen, animated, aim);
        table.print();
        std::printf("requests in %lld s: %s\n", static_cast<long long>(m_period.count()),
                    seen.requests.c_str());
    }

    /// How often something was drawn on each window; drawings in quick succession are one repaint.
    std::map<xcb_window_t, double> pacesOf(const PaintWatch& watch) const
    {
        std::map<xcb_window_t, std::pair<Clock::time_point, int>> repaints;
        for (const PaintWatch::Event& event : watch.events()) {
            if (event.kind != PaintWatch::Event::Kind::Painted)
                continue;
            auto& [last, count] = repaints[event.window];
            if (count == 0 || event.at - last > 10ms)
                ++count;
            last = event.at;
        }
        std::map<xcb_window_t, double> paces;
        for (const auto& [window, repaint] : repaints)
            paces[window] = repaint.second / std::chrono::duration<double>(m_period).count();
        return paces;
    }

    void addPaces(Table& table, const Seen& seen, int animated, const char* aim) const
    {
        std::vector<double> moving;
        std::vector<double> still;
        const auto& windows = m_application->windows();
        for (const auto& [title, pace] : seen.paces) {
            const auto isAnimated = std::any_of(
                windows.begin(), windows.begin() + animated,
                [&name = title](const AppWindow& window) { return window.title == name; });
            if (title.isEmpty())
                table.add("repaints a second of the hovered preview", figure(pace), "", "",
                          "at least 20");
            else
                (isAnimated ? moving : still).push_back(pace);
        }
        const auto add = [&](const char* what, const std::vector<double>& each, const char* meant) {
            if (each.empty())
                return;
            const auto [least, most] = std::ranges::minmax(each);
            table.add(what, figure(least) + " to " + figure(most), "", "", meant);
        };
        add("repaints a second of a changing window's preview", moving, aim);
        add("repaints a second of an unchanged window's preview", still, "0");
    }

    void key(std::uint8_t type, std::uint8_t code)
    {
        xcb_test_fake_input(m_display.connection(), type, code, XCB_CURRENT_TIME, m_display.root(),
                            0, 0, 0);
        xcb_flush(m_display.connection());
    }

    /// What the window manager's own previews do about a film.
    void measureSwitcher()
    {
        hidePreviews();
        const auto measure = [this](bool isUp) {
            PaintWatch watch(m_display.name());
            if (isUp) {
                key(XCB_KEY_PRESS, altKey);
                key(XCB_KEY_PRESS, tabKey);
                key(XCB_KEY_RELEASE, tabKey);
            }
            const Costs costs = spend(1, [&] {
                watch.clear();
                std::this_thread::sleep_for(m_period);
            });
            key(XCB_KEY_RELEASE, altKey);
            double most = 0;
            for (const auto& [window, pace] : pacesOf(watch))
                most = std::max(most, pace);
            return std::pair(costs, most);
        };
        const auto [without, nothing] = measure(false);
        const auto [with, pace] = measure(true);
        Table table("xfwm4's Alt-Tab with previews, one window plays a film");
        table.add("repaints a second", figure(pace));
        table.add("processor time of xfwm4, because of it",
                  figure(with.compositor - without.compositor, "ms/s"));
        table.add("the X server's, because of it", figure(with.server - without.server, "ms/s"));
        table.print();
    }

    const std::chrono::seconds m_period;
    /// The server does far more for the films than for their previews, and its pace changes from
    /// one moment to the next: so with and without take turns.
    const int m_turns;
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
    const Program program(
        argc, argv,
        {{u"seconds"_s, u"How long each case is measured each time."_s, u"N"_s, u"3"_s},
         {u"turns"_s, u"How many times."_s, u"N"_s, u"9"_s},
         {u"cases"_s, u"Which: a to e, s for xfwm4's switcher, f for a cursor in a large window."_s,
          u"LETTERS"_s, u"abcdsef"_s}});
    const QString cases = program.text(u"cases"_s);
    if (cases != u"f")
        Refreshing{std::chrono::seconds(program.number(u"seconds"_s)), program.number(u"turns"_s)}
            .run(cases);
    if (cases.contains(u'f'))
        measureBlinkingCursor();
    return 0;
}
