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

#include "Colours.h"
#include "Desk.h"
#include "support/Arrival.h"
#include "support/BareCopy.h"
#include "support/Hand.h"
#include "support/Program.h"

using namespace lumbrix::privatedesk;
using lumbrix::bench::Arrival;
using lumbrix::bench::ArrivalTimes;
using lumbrix::bench::BareCopy;
using lumbrix::bench::Clock;
using lumbrix::bench::Program;
using lumbrix::bench::quantile;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr QSize usualSize(1280, 800);
constexpr QSize largeSize(3840, 2160);
constexpr std::uint8_t tabKey = 23; // the evdev key codes of Xvfb's keyboard
constexpr std::uint8_t altKey = 64;

struct Figures {
    std::vector<double> mapped;  ///< milliseconds to the last preview's mapping
    std::vector<double> first;   ///< milliseconds until each was drawn on once
    std::vector<double> painted; ///< milliseconds to the last drawing
    int wrong = 0;
};

double median(const std::vector<double>& values) { return quantile(values, 0.5); }

class Hovering
{
public:
    Hovering(int trials, bool isVerbose, QSize screen)
        : m_trials(trials), m_isVerbose(isVerbose),
          m_desk(
              {"bench_hover", DockKind::Plank, Edge::Bottom, {screen, WindowManager::Xfwm4, true}}),
          m_display(m_desk.display()), m_arrival(m_display)
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
            m_arrival.send(XCB_MOTION_NOTIFY, 0, from + (way * part).toPoint());
        }
    }

    Figures hover(const Application& application, const std::function<void()>& prepare,
                  const std::function<void()>& approach, int trials)
    {
        Figures figures;
        for (int i = 0; i < trials; ++i) {
            m_desk.park();
            m_display.waitFor([this] { return m_display.panels().empty(); }, 5s);
            prepare();
            m_arrival.settle();
            approach();
            m_arrival.begin();
            m_arrival.send(XCB_MOTION_NOTIFY, 0, m_icon);
            m_arrival.awaitPreviews(application.windows().size());
            note(figures, m_arrival.timesOfPreviews(m_isVerbose));
            if (!isRight(application, m_display.previews()))
                ++figures.wrong;
        }
        m_desk.park();
        return figures;
    }

    Figures switchWindows()
    {
        Figures figures;
        for (int i = 0; i < m_trials; ++i) {
            m_arrival.settle();
            m_arrival.send(XCB_KEY_PRESS, altKey);
            m_arrival.begin();
            m_arrival.send(XCB_KEY_PRESS, tabKey);
            m_arrival.settle([this] { return m_arrival.hasPaintedAny(); });
            if (!note(figures, m_arrival.times([](xcb_window_t) { return true; }, m_isVerbose)))
                ++figures.wrong;
            m_arrival.send(XCB_KEY_RELEASE, tabKey);
            m_arrival.send(XCB_KEY_RELEASE, altKey);
        }
        return figures;
    }

    static bool note(Figures& figures, const std::optional<ArrivalTimes>& times)
    {
        if (!times)
            return false;
        figures.mapped.push_back(times->mapped);
        figures.first.push_back(times->first);
        figures.painted.push_back(times->painted);
        return true;
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
                   const bool isRight = isAbout(top, expected);
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
    Arrival m_arrival;
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
