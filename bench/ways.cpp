// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What becomes of the ways that hands make about a dock: from an icon to its row, slanting over its
// neighbours and with short pauses, to the neighbour, onto an icon, and across the whole dock. The
// yardstick is the same with the setting keepOnTheWay off; LUMBRIX_BINARY measures another build.
#include <QtCore/QFile>

#include <algorithm>
#include <cstdio>
#include <map>

#include "Desk.h"
#include "support/Hand.h"
#include "support/PaintWatch.h"
#include "support/Program.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr int iconReach = 8;      ///< pixels off the middle of an icon that a hand may be
constexpr int itemHalf = 30;      ///< of the place of an icon
constexpr auto longestGap = 25ms; ///< between reports, for a motion to count

struct Figures {
    int arrived = 0;
    int ways = 0;
    int opened = 0; ///< rows by sweeps
    int sweeps = 0;
    int voided = 0;                ///< motions that the busy machine interrupted, made again
    std::vector<double> neighbour; ///< milliseconds from the hand's stop to its row
    std::vector<double> entered;   ///< milliseconds from the icon's edge to the first preview
    std::vector<double> stopped;   ///< the same from the hand's stop, negative before it
};

class Ways
{
public:
    Ways(Edge edge, int ways)
        : m_desk({"bench_ways", DockKind::Plank, edge, {{1920, 1080}, WindowManager::Xfwm4, true}}),
          m_display(m_desk.display()), m_edge(edge), m_ways(ways)
    {
    }

    void measure(std::map<int, std::map<bool, Figures>>& figures)
    {
        const auto before = m_desk.launch(u"alpha"_s);
        before->open(1);
        const auto application = m_desk.launch(u"beta"_s);
        const auto after = m_desk.launch(u"gamma"_s);
        after->open(2);
        for (const int count : {1, 3, 8}) {
            application->open(count - static_cast<int>(application->windows().size()));
            for (const bool isOn : {true, false}) {
                m_desk.startLumbrix({{u"keepOnTheWay"_s, isOn ? u"1"_s : u"0"_s}});
                m_watch = std::make_unique<PaintWatch>(m_display.name());
                m_figures = &figures[count][isOn];
                const QPoint icon = iconOf(*application);
                for (int i = 0; i < m_ways; ++i)
                    toRow(*application, icon, static_cast<unsigned>(i));
                for (int i = 0; i < m_ways; ++i)
                    toNeighbour(*application, icon, i % 2 == 0 ? *before : *after,
                                static_cast<unsigned>(i));
                if (!isOn)
                    continue; // the rest does not depend on it
                for (int i = 0; i < m_ways; ++i)
                    ontoIcon(icon, static_cast<unsigned>(i));
                for (int i = 0; i < m_ways; ++i)
                    across(icon, static_cast<unsigned>(i));
            }
        }
    }

private:
    QPoint iconOf(const Application& application)
    {
        const auto icon = m_desk.iconOf(application);
        if (!icon)
            qFatal("Plank shows no icon");
        return *icon;
    }

    void leave()
    {
        m_desk.park();
        m_display.waitFor([this] { return m_display.previews().empty(); }, 5s);
        m_display.waitFor([] { return false; }, 100ms);
    }

    bool isShown(const Application& application)
    {
        const auto shown = m_display.previews();
        return shown.size() == application.windows().size() &&
               std::ranges::all_of(shown, [&](const Panel& panel) {
                   return std::ranges::count(application.windows(), panel.title,
                                             &AppWindow::title) == 1;
               });
    }

    /// Whether the row is up.
    bool hover(const Application& application, QPointF place)
    {
        leave();
        m_display.moveTo(place.toPoint());
        const bool isUp = m_display.waitFor([&] { return isShown(application); }, 3s);
        m_display.waitFor([] { return false; }, 150ms); // people look, then move
        return isUp;
    }

    std::chrono::milliseconds follow(const Way& way)
    {
        return m_display.moveAlong([&way](Duration passed) { return way.at(passed); }, way.time());
    }

    void toRow(const Application& application, QPoint icon, unsigned seed)
    {
        for (;;) {
            Hand hand(seed);
            const QPointF start = hand.near(icon, iconReach, iconReach);
            if (!hover(application, start))
                qFatal("no row comes up");
            const auto row = m_display.previews();
            const auto distance = [&](const Panel& panel) {
                const QPointF way = QPointF(panel.geometry.center()) - start;
                return QPointF::dotProduct(way, way);
            };
            const Panel target = seed % 2 == 0 ? *std::ranges::min_element(row, {}, distance)
                                               : *std::ranges::max_element(row, {}, distance);
            const QSizeF size = target.geometry.size();
            Way way = hand.way(
                start, hand.near(target.geometry.center(), size.width() * 0.3, size.height() * 0.3),
                0.08);
            if (seed % 4 >= 2)
                way.pause(hand.between(0.1, 0.5), Duration(hand.between(0.02, 0.1)));
            // A pause that the machine makes longer is another way.
            if (follow(way) > longestGap) {
                ++m_figures->voided;
                continue;
            }
            m_display.waitFor([] { return false; }, 250ms);
            const auto left = m_display.previews();
            const bool hasArrived =
                isShown(application) && std::ranges::any_of(left, [&](const Panel& panel) {
                    return panel.id == target.id && panel.geometry.contains(m_display.pointer());
                });
            m_figures->arrived += hasArrived ? 1 : 0;
            ++m_figures->ways;
            return;
        }
    }

    void toNeighbour(const Application& application, QPoint icon, const Application& neighbour,
                     unsigned seed)
    {
        Hand hand(seed + 1000);
        const QPoint next = iconOf(neighbour);
        const QPointF start = hand.near(icon, iconReach, iconReach);
        if (!hover(application, start))
            qFatal("no row comes up");
        follow(hand.way(start, hand.near(next, iconReach, iconReach), 0.05));
        const auto stopped = Clock::now();
        if (m_display.waitFor([&] { return isShown(neighbour); }, 3s))
            m_figures->neighbour.push_back(Milliseconds(Clock::now() - stopped).count());
    }

    /// When the first preview was mapped since the watch was cleared.
    std::optional<Clock::time_point> firstPreview()
    {
        for (const PaintWatch::Event& event : m_watch->events())
            if (event.kind == PaintWatch::Event::Kind::Mapped &&
                m_display.bytes(event.window, "WM_WINDOW_ROLE") == "preview")
                return event.at;
        return std::nullopt;
    }

    void ontoIcon(QPoint icon, unsigned seed)
    {
        Hand hand(seed + 2000);
        leave();
        const QPoint start = hand.near(QPointF(960, 540), 500, 200).toPoint();
        m_display.moveTo(start);
        m_display.waitFor([] { return false; }, 100ms);
        const Way way(start, hand.near(icon, iconReach, iconReach), hand.between(-0.05, 0.05),
                      400ms);
        const QRect item(icon - QPoint(itemHalf, itemHalf), QSize(2 * itemHalf, 2 * itemHalf));
        m_watch->clear();
        std::optional<Clock::time_point> entered;
        m_display.moveAlong(
            [&](Duration passed) {
                const QPointF place = way.at(passed);
                if (!entered && item.contains(place.toPoint()))
                    entered = Clock::now();
                return place;
            },
            way.time());
        const auto stopped = Clock::now();
        std::optional<Clock::time_point> shown;
        m_display.waitFor([&] { return (shown = firstPreview()).has_value(); }, 3s);
        if (!shown || !entered)
            return;
        m_figures->entered.push_back(Milliseconds(*shown - *entered).count());
        m_figures->stopped.push_back(Milliseconds(*shown - stopped).count());
    }

    /// Along the dock, or aslant over it, as fast as hands do, at one speed or as hands move.
    void across(QPoint icon, unsigned seed)
    {
        for (;;) {
            Hand hand(seed + 3000);
            const double speed = hand.between(800, 4000);
            constexpr double reach = 450; // well beyond the ends of the dock
            const bool isAlongX = isHorizontal(m_edge);
            const double slant = seed % 3 == 2 ? hand.between(0.02, 0.05) * reach : 0;
            const QPointF half = isAlongX ? QPointF(reach, slant) : QPointF(slant, reach);
            const QPointF middle = hand.near(icon, iconReach, iconReach);
            const double sign = hand.between(-1, 1) < 0 ? -1 : 1;
            const QPointF from = middle - half * sign;
            const QPointF to = middle + half * sign;
            leave();
            m_display.moveTo(from.toPoint());
            m_display.waitFor([] { return false; }, 100ms);
            m_watch->clear();
            const bool isSteady = seed % 2 == 0;
            // A hand's greatest speed is 15/8 of the mean.
            const Duration time(2 * reach / speed * (isSteady ? 1 : 1.875));
            const auto gap = m_display.moveAlong(
                [&](Duration passed) {
                    const double part = passed / time;
                    return from + (to - from) * (isSteady ? part : smooth(part));
                },
                time);
            m_display.waitFor([] { return false; }, 200ms);
            if (gap > longestGap) { // it stood still, perhaps on an icon
                ++m_figures->voided;
                continue;
            }
            m_figures->opened += firstPreview() ? 1 : 0;
            ++m_figures->sweeps;
            return;
        }
    }

    Desk m_desk;
    Display& m_display;
    std::unique_ptr<PaintWatch> m_watch;
    Edge m_edge;
    int m_ways;
    Figures* m_figures = nullptr;
};

void print(const char* name, const Figures& figures)
{
    const auto times = [](const std::vector<double>& values) {
        return u"%1 (%2)"_s.arg(quantile(values, 0.5), 0, 'f', 0)
            .arg(quantile(values, 0.9), 0, 'f', 0)
            .toLatin1();
    };
    std::printf("  %-10s %3d of %3d   %12s   %12s   %12s   %3d of %3d   %d\n", name,
                figures.arrived, figures.ways, times(figures.neighbour).constData(),
                times(figures.entered).constData(), times(figures.stopped).constData(),
                figures.opened, figures.sweeps, figures.voided);
}

void add(Figures& sum, const Figures& more)
{
    sum.arrived += more.arrived;
    sum.ways += more.ways;
    sum.opened += more.opened;
    sum.sweeps += more.sweeps;
    sum.voided += more.voided;
    for (const auto values : {&Figures::neighbour, &Figures::entered, &Figures::stopped})
        (sum.*values).insert((sum.*values).end(), (more.*values).begin(), (more.*values).end());
}

void printLoad()
{
    QFile load(u"/proc/loadavg"_s);
    if (load.open(QIODevice::ReadOnly))
        std::printf("load of the machine: %s", load.readAll().constData());
}

} // namespace

int main(int argc, char** argv)
{
    const Program program(
        argc, argv,
        {{u"ways"_s, u"Ways of each kind, on each side, with each row."_s, u"N"_s, u"12"_s}});
    const int ways = program.number(u"ways"_s);
    printLoad();
    std::map<bool, Figures> all;
    for (const Edge edge : {Edge::Bottom, Edge::Left, Edge::Top}) {
        std::map<int, std::map<bool, Figures>> figures;
        Ways(edge, ways).measure(figures);
        for (auto& [count, bySetting] : figures) {
            std::printf("%s, rows of %d\n", nameOf(edge), count);
            for (const bool isOn : {true, false}) {
                print(isOn ? "on" : "off", bySetting[isOn]);
                add(all[isOn], bySetting[isOn]);
            }
        }
    }
    std::printf("\nall          arrived      neighbour ms   from entry ms   from stop ms   rows by "
                "sweeps   made again\n");
    print("on", all[true]);
    print("off", all[false]);
    printLoad();
    return 0;
}
