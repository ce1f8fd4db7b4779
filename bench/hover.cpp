// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How long it takes from the pointer arriving on an icon to the last preview being mapped and
// painted, seen from outside by another client of the server, beside the Alt-Tab list of xfwm4 with
// previews of the same windows and the bare copying of their pictures.
//
// "Painted" is the last drawing on any preview before a tenth of a second without any; the previews
// are then looked at, and a trial in which one does not show its window is counted as wrong.
// "First" is when each preview had been drawn on, perhaps with an older picture.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <xcb/xtest.h>

#include "Desk.h"
#include "support/BareCopy.h"
#include "support/PaintWatch.h"
#include "support/Program.h"

using namespace lumbrix::privatedesk;
using lumbrix::bench::BareCopy;
using lumbrix::bench::Clock;
using lumbrix::bench::PaintWatch;
using lumbrix::bench::Program;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr QSize usualSize(1280, 800);
constexpr QSize largeSize(3840, 2160);
constexpr auto quiet = 100ms;
constexpr std::uint8_t tabKey = 23; // the evdev key codes of Xvfb's keyboard
constexpr std::uint8_t altKey = 64;

struct Figures {
    std::vector<double> mapped;  ///< milliseconds to the last preview's mapping
    std::vector<double> first;   ///< milliseconds until each was drawn on once
    std::vector<double> painted; ///< milliseconds to the last drawing
    int wrong = 0;
};

double quantile(std::vector<double> values, double part)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(
        std::lround(part * static_cast<double>(values.size() - 1)))];
}

double median(const std::vector<double>& values) { return quantile(values, 0.5); }

class Hovering
{
public:
    Hovering(int trials, bool isVerbose, QSize screen)
        : m_trials(trials), m_isVerbose(isVerbose),
          m_desk(
              {"bench_hover", DockKind::Plank, Edge::Bottom, {screen, WindowManager::Xfwm4, true}}),
          m_display(m_desk.display()), m_watch(m_display.name())
    {
        m_desk.startLumbrix({{u"displayDelay"_s, u"0"_s}});
    }

    void measure(int count, QSize windowSize)
    {
        const auto application = m_desk.launch(u"beta"_s);
        for (int i = 0; i < count; ++i)
            application->open("window " + QByteArray::number(i + 1),
                              QColor::fromHsv(i * 47 % 360, 255, 230),
                              {windowSize, {20 + 30 * i, 20 + 10 * i}});
        std::vector<xcb_window_t> ids;
        for (const AppWindow& window : application->windows())
            ids.push_back(window.id);
        const auto icon = m_desk.iconOf(*application);
        if (!icon)
            qFatal("Plank shows no icon");
        m_icon = *icon;

        BareCopy copier(m_display.name(), ids, windowSize);
        std::vector<double> bare;
        bare.reserve(static_cast<std::size_t>(m_trials));
        for (int i = 0; i < m_trials; ++i)
            bare.push_back(Milliseconds(copier.copyAll()).count());
        m_bare = median(bare);

        const auto repaint = [&] {
            for (const AppWindow& window : std::vector(application->windows()))
                application->setColour(window,
                                       QColor::fromHsv((window.colour.hue() + 61) % 360, 255, 230));
        };
        hover(
            *application, [] {}, [] {}, 3); // the first ones also load what all need
        std::printf("\n%d window%s of %dx%d                      mapped      first    painted   "
                    "slowest tenth\n",
                    count, count == 1 ? "" : "s", windowSize.width(), windowSize.height());
        std::printf("  bare copying through MIT-SHM                    %7.2f ms\n", m_bare);
        const Figures switcher = switchWindows();
        m_yardstick = median(switcher.painted);
        print("xfwm4's Alt-Tab with previews", switcher);
        print("Lumbrix, windows unchanged",
              hover(
                  *application, [] {}, [this] { approach(); }, m_trials));
        print("Lumbrix, all windows repainted before",
              hover(
                  *application, repaint, [this] { approach(); }, m_trials));
        const Figures sudden = hover(
            *application, repaint, [] {}, m_trials);
        print("Lumbrix, the same, pointer out of nowhere", sudden);
        if (windowSize == usualSize)
            m_firstOfUsual[count] = median(sudden.first);
        else if (m_firstOfUsual.contains(count))
            std::printf("  first paint beside that of windows of usual size: %.2f (at most 1.2)\n",
                        median(sudden.first) / m_firstOfUsual[count]);
        const auto cinema = m_desk.launch(u"gamma"_s);
        const AppWindow film = cinema->open("film", Qt::gray, {windowSize, {600, 240}});
        cinema->startAnimating(film, 30);
        print("Lumbrix, windows unchanged, a film beside",
              hover(
                  *application, [] {}, [this] { approach(); }, m_trials));
        cinema->stopAnimating(film);
    }

private:
    /// Moves from the parking place to just above the icon as hands are known to move: smoothly,
    /// the fastest in the middle, in less than half a second. The step that follows is the arrival.
    void approach()
    {
        constexpr auto duration = 400ms;
        constexpr auto report = 8ms; // an ordinary mouse reports 125 times a second
        const QPoint from = m_display.pointer();
        const QPointF way = m_icon - QPoint(0, 45) - from;
        const auto start = Clock::now();
        for (double t = 0; t < 1;) {
            m_display.waitFor([] { return false; }, report);
            t = std::min(1.0, std::chrono::duration<double>(Clock::now() - start) / duration);
            const double part = t * t * t * (10 - 15 * t + 6 * t * t);
            send(XCB_MOTION_NOTIFY, 0, from + (way * part).toPoint());
        }
    }

    void send(std::uint8_t type, std::uint8_t detail, QPoint at = {})
    {
        xcb_test_fake_input(m_display.connection(), type, detail, XCB_CURRENT_TIME,
                            m_display.root(), static_cast<std::int16_t>(at.x()),
                            static_cast<std::int16_t>(at.y()), 0);
        xcb_flush(m_display.connection());
    }

    /// Waits until nothing was mapped or painted for a while, and then for what is to be seen.
    void settle(const std::function<bool()>& isSeen = [] { return true; })
    {
        m_display.waitFor([&] { return Clock::now() - m_watch.lastEvent() > quiet && isSeen(); },
                          2s);
    }

    /// Asks the server, so not while something is measured.
    bool arePainted(std::size_t count)
    {
        const auto shown = m_display.previews();
        const auto painted = m_watch.paintedWindows();
        return shown.size() == count && std::ranges::all_of(shown, [&](const Panel& panel) {
                   return painted.contains(panel.id);
               });
    }

    Figures hover(const Application& application, const std::function<void()>& prepare,
                  const std::function<void()>& approach, int trials)
    {
        Figures figures;
        for (int i = 0; i < trials; ++i) {
            m_desk.park();
            m_display.waitFor([this] { return m_display.panels().empty(); }, 5s);
            prepare();
            settle();
            approach();
            m_watch.clear();
            const auto start = Clock::now();
            send(XCB_MOTION_NOTIFY, 0, m_icon);
            // Looked at only after everything happened, so as not to disturb it.
            settle([&] { return arePainted(application.windows().size()); });
            const auto shown = m_display.previews();
            note(figures, start, [&shown](xcb_window_t window) {
                return std::ranges::any_of(
                    shown, [window](const Panel& panel) { return panel.id == window; });
            });
            if (!isRight(application, shown))
                ++figures.wrong;
        }
        m_desk.park();
        return figures;
    }

    Figures switchWindows()
    {
        Figures figures;
        for (int i = 0; i < m_trials; ++i) {
            settle();
            send(XCB_KEY_PRESS, altKey);
            m_watch.clear();
            const auto start = Clock::now();
            send(XCB_KEY_PRESS, tabKey);
            settle([this] { return !m_watch.paintedWindows().empty(); });
            const std::size_t before = figures.painted.size();
            note(figures, start, [](xcb_window_t) { return true; });
            if (figures.painted.size() == before)
                ++figures.wrong;
            send(XCB_KEY_RELEASE, tabKey);
            send(XCB_KEY_RELEASE, altKey);
        }
        return figures;
    }

    void note(Figures& figures, Clock::time_point start,
              const std::function<bool(xcb_window_t)>& counts)
    {
        double mapped = 0;
        double painted = 0;
        std::map<xcb_window_t, double> firsts;
        if (m_isVerbose)
            std::printf("   ");
        for (const PaintWatch::Event& event : m_watch.events()) {
            if (!counts(event.window))
                continue;
            const double time = Milliseconds(event.at - start).count();
            if (m_isVerbose)
                std::printf(" %c%x@%.2f", "mup"[static_cast<int>(event.kind)],
                            event.window & 0xffffU, time);
            if (event.kind == PaintWatch::Event::Kind::Mapped)
                mapped = time;
            else if (event.kind == PaintWatch::Event::Kind::Painted) {
                painted = time;
                firsts.try_emplace(event.window, time);
            }
        }
        if (m_isVerbose)
            std::printf("\n");
        if (mapped == 0 || painted == 0)
            return;
        figures.mapped.push_back(mapped);
        figures.painted.push_back(painted);
        double first = 0;
        for (const auto& [window, time] : firsts)
            first = std::max(first, time);
        figures.first.push_back(first);
    }

    bool isRight(const Application& application, const std::vector<Panel>& shown)
    {
        const auto& windows = application.windows();
        return shown.size() == windows.size() &&
               std::ranges::all_of(windows, [&](const AppWindow& window) {
                   const auto panel = std::ranges::find(shown, window.title, &Panel::title);
                   if (panel == shown.end())
                       return false;
                   const QImage picture = m_display.picture(panel->geometry);
                   const QRgb top = picture.pixel(picture.width() / 2, picture.height() / 3);
                   const QColor expected = window.colour.toRgb();
                   const bool isRight = std::abs(qRed(top) - expected.red()) < 24 &&
                                        std::abs(qGreen(top) - expected.green()) < 24 &&
                                        std::abs(qBlue(top) - expected.blue()) < 24;
                   if (!isRight && m_isVerbose)
                       std::printf("    %s is %06x instead of %06x\n", panel->title.constData(),
                                   top & 0xffffffU, expected.rgb() & 0xffffffU);
                   return isRight;
               });
    }

    void print(const char* name, const Figures& figures) const
    {
        std::printf("  %-42s %7.2f   %7.2f   %7.2f   %7.2f ms   %.2f x xfwm4  %.1f x bare", name,
                    median(figures.mapped), median(figures.first), median(figures.painted),
                    quantile(figures.painted, 0.9),
                    m_yardstick > 0 ? median(figures.painted) / m_yardstick : 0.0,
                    median(figures.painted) / m_bare);
        if (figures.wrong)
            std::printf("   %d of %d WRONG", figures.wrong, m_trials);
        std::printf("\n");
    }

    int m_trials;
    bool m_isVerbose; ///< prints when each window was mapped (m) and painted (p)
    Desk m_desk;
    Display& m_display;
    PaintWatch m_watch;
    QPoint m_icon;
    double m_bare = 0;
    double m_yardstick = 0;
    std::map<int, double> m_firstOfUsual; ///< by the number of windows
};

} // namespace

int main(int argc, char** argv)
{
    const Program program(
        argc, argv,
        {{u"trials"_s, u"Trials of each kind."_s, u"N"_s, u"21"_s},
         {u"windows"_s, u"Only with so many windows."_s, u"N"_s},
         {u"large"_s, u"Only with 15 windows, of the usual size and very large."_s},
         {u"verbose"_s, u"Print every event seen."_s}});
    const int trials = program.number(u"trials"_s);
    const bool isVerbose = program.isSet(u"verbose"_s);
    if (!program.isSet(u"large"_s)) {
        Hovering hovering(trials, isVerbose, {1920, 1080});
        if (program.isSet(u"windows"_s)) {
            hovering.measure(std::clamp(program.text(u"windows"_s).toInt(), 1, 15), usualSize);
            return 0;
        }
        for (const int count : {1, 5, 15})
            hovering.measure(count, usualSize);
    }
    std::printf("\nOn a screen of 4096x2304:\n");
    Hovering hovering(trials, isVerbose, {4096, 2304});
    hovering.measure(15, usualSize);
    hovering.measure(15, largeSize);
    return 0;
}
