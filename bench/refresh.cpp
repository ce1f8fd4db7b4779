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
constexpr QSize largeSize(3840, 2160);
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
        m_desk.startLumbrix(withoutZoom);
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
        measureCase("(a) nothing changes", 0, {}, "0");
        measureCase("(b) one window plays a film", 1, {}, "at least 25");
        measureCase("(c) all play one", windowCount, {}, "at least 4");
        measureCase("(d) all play one, the pointer is on a preview", windowCount, hoveredPreview,
                    "at least 4");
        measureSwitcher();
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

    void showRow(const Application& application, std::size_t count)
    {
        if (!m_desk.hover(application) ||
            !m_display.waitFor([&] { return m_display.previews().size() == count; }, 5s))
            qFatal("%zu previews were expected, not %zu", count, m_display.previews().size());
    }

    /// The aim is that of the previews of changing windows, in pictures a second.
    void measureCase(const char* name, int animated, std::optional<std::size_t> hovered,
                     const char* aim)
    {
        hidePreviews();
        const Costs without = spend(animated, [this] { std::this_thread::sleep_for(m_period); });

        showRow(*m_application, windowCount);
        const auto panels = m_display.previews();
        if (hovered)
            m_display.moveTo(panels[*hovered].geometry.center());
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
        const char* most = animated == 1 ? "at most 60" : animated == 0 ? "" : "at most 100";
        table.add("processor time of Lumbrix", with.lumbrix, m_bare.lumbrix, "ms/s");
        table.add("the X server's, because of the previews", with.server - without.server,
                  m_bare.server, "ms/s");
        table.add("both together", with.lumbrix + with.server - without.server,
                  m_bare.lumbrix + m_bare.server, "ms/s", most);
        table.add("the compositor's, because of the previews",
                  figure(with.compositor - without.compositor, "ms/s"));
        table.add("Lumbrix beside Plank and bamfdaemon", with.lumbrix, with.dock, "ms/s");
        table.add("Lumbrix with no preview up", without.lumbrix, without.dock, "ms/s", "", 2);
        table.add("pictures copied a second",
                  figure(static_cast<double>(counter.copies(counts)) / seconds), "", "",
                  animated == 0 ? "0" : "");
        table.add("images painted a second",
                  figure(static_cast<double>(counter.paints(counts)) / seconds), "", "",
                  animated == 0 ? "0" : "");
        addPaces(table, watch, panels, animated, hovered, aim);
        table.print();
        std::printf("requests in %.0f s: %s\n", seconds, counter.describe(counts).c_str());
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

    void addPaces(Table& table, const PaintWatch& watch, const std::vector<Panel>& panels,
                  int animated, std::optional<std::size_t> hovered, const char* aim) const
    {
        auto paces = pacesOf(watch);
        std::vector<double> moving;
        std::vector<double> still;
        const auto& windows = m_application->windows();
        for (std::size_t i = 0; i < panels.size(); ++i) {
            if (i == hovered)
                continue;
            const auto isAnimated = std::any_of(
                windows.begin(), windows.begin() + animated,
                [&](const AppWindow& window) { return window.title == panels[i].title; });
            (isAnimated ? moving : still).push_back(paces[panels[i].id]);
        }
        const auto add = [&](const char* what, const std::vector<double>& each, const char* meant) {
            if (each.empty())
                return;
            const auto [least, most] = std::ranges::minmax(each);
            table.add(what, figure(least) + " to " + figure(most), "", "", meant);
        };
        if (hovered)
            table.add("repaints a second of the hovered preview",
                      figure(paces[panels[*hovered].id]), "", "", "at least 20");
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
    Desk m_desk;
    Display& m_display;
    int m_server = 0;
    int m_compositor = 0;
    int m_dock = 0;
    int m_matcher = 0;
    std::unique_ptr<Application> m_application;
    Costs m_bare; ///< of copying all pictures twice a second
};

/// A cursor that blinks in a window of 3840x2160.
void measureCursor()
{
    Desk desk({"bench_refresh_large",
               DockKind::Plank,
               Edge::Bottom,
               {{4096, 2304}, WindowManager::Xfwm4, true}});
    Display& display = desk.display();
    desk.startLumbrix(withoutZoom);
    const auto editor = desk.launch(u"gamma"_s);
    const AppWindow window = editor->open("editor", Qt::darkGray, {largeSize, {0, 0}});
    BareCopy copier(display.name(), {window.id}, largeSize);
    copier.copyAll();
    constexpr int rounds = 20;
    nanoseconds whole{0};
    for (int i = 0; i < rounds; ++i)
        whole += copier.copyAll() / rounds;
    if (!desk.hover(*editor) ||
        !display.waitFor([&] { return display.previews().size() == 1; }, 5s))
        qFatal("a preview was expected");
    std::this_thread::sleep_for(2s);
    RequestCounter counter(display.name(), desk.lumbrix().pid());
    const auto spentIn = [&](const auto& during) {
        const auto before = *processorTime(desk.lumbrix().pid());
        during();
        return *processorTime(desk.lumbrix().pid()) - before;
    };
    constexpr auto blink = 250ms;
    const auto atRest = spentIn([&] { std::this_thread::sleep_for(rounds * blink); });
    counter.clear();
    xcb_connection_t* connection = display.connection();
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, window.id, 0, nullptr);
    const auto spent = spentIn([&] {
        for (int i = 0; i < rounds; ++i) {
            const std::uint32_t colour = i % 2 ? 0xffffff : 0;
            xcb_change_gc(connection, context, XCB_GC_FOREGROUND, &colour);
            const xcb_rectangle_t cursor{700, 500, 2, 20};
            xcb_poly_fill_rectangle(connection, window.id, context, 1, &cursor);
            xcb_flush(connection);
            std::this_thread::sleep_for(blink);
        }
    });
    const auto counts = counter.counts();
    xcb_free_gc(connection, context);
    Table table("a cursor blinks in a window of 3840x2160");
    const double pixels = static_cast<double>(counts.copiedPixels) / rounds;
    table.add("pixels copied for each change", pixels, 1.0 * largeSize.width() * largeSize.height(),
              "", "at most 0.05", 0);
    table.add("processor time of Lumbrix because of it, beside a bare copy of the window",
              milliseconds(spent - atRest) / rounds, milliseconds(whole), "ms", "at most 0.05", 2);
    table.print();
}

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv,
                          {{u"seconds"_s, u"How long each case is measured."_s, u"N"_s, u"10"_s},
                           {u"cursor"_s, u"Only the cursor in a very large window."_s}});
    const int seconds = program.number(u"seconds"_s);
    if (!program.isSet(u"cursor"_s))
        Refreshing{std::chrono::seconds(seconds)}.run();
    measureCursor();
    return 0;
}
