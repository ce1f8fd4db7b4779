// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Five hundred windows of sixty applications on a real desktop, and how what Lumbrix does grows
// with them: the start, rest, memory, and the hovering of one application with 15 windows among
// them. The yardstick is the same with ten windows of two.
#include <algorithm>
#include <cstdio>
#include <thread>
#include <unistd.h>

#include "Application.h"
#include "Dock.h"
#include "Lumbrix.h"
#include "Session.h"
#include "support/Arrival.h"
#include "support/Hand.h"
#include "support/Multitude.h"
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

constexpr QSize screenSize(4096, 2304);
constexpr QSize usualSize(1280, 800);
constexpr QSize largeSize(3840, 2160);
constexpr int hoveredWindows = 15;
constexpr auto restTime = 20s;

struct Options {
    int windows = 0;
    int applications = 0;
    int trials = 0;
    bool hasPanels = false; ///< forty of our own, or one, instead of Plank
};

struct Hovered {
    std::vector<double> mapped;
    std::vector<double> painted;
    double requests = 0;
    double processor = 0; ///< ms
    int wrong = 0;
};

struct Figures {
    std::vector<double> start;          ///< ms until all windows are known
    std::vector<double> startProcessor; ///< ms of the processor until then
    double resident = 0;                ///< MiB
    double rest = 0;                    ///< ms of the processor a second
    double wakeUps = 0;                 ///< a second
    double restRequests = 0;
    double passing = 0; ///< ms of the processor for a window that comes and goes
    Hovered usual;
    Hovered large;
    double residentAfter = 0;
};

double median(const std::vector<double>& values) { return quantile(values, 0.5); }

class Many
{
public:
    explicit Many(const Options& options)
        : m_options(options), m_session({screenSize, WindowManager::Xfwm4, true}),
          m_display(m_session.display()), m_multitude(m_session, options.applications)
    {
        const QString entry = m_session.installApplication(u"hovered"_s, u"Hovered"_s, u"Hovered"_s,
                                                           u"true"_s, Qt::red);
        if (!options.hasPanels)
            m_dock = Dock::start(m_session, DockKind::Plank, Edge::Bottom,
                                 m_multitude.entries() << entry);
        m_multitude.open(options.windows, {400, 300});
        if (options.hasPanels)
            makePanels();
        park();
    }

    Figures measure()
    {
        Figures figures;
        writeSettings();
        for (int i = 0; i < m_options.trials; ++i)
            start(figures);
        rest(figures);
        passing(figures);
        m_arrival = std::make_unique<Arrival>(m_display);
        figures.usual = hover(usualSize);
        figures.large = hover(largeSize);
        figures.residentAfter = static_cast<double>(look().residentKiB) / 1024;
        return figures;
    }

private:
    void park() { m_display.moveTo({screenSize.width() / 2, screenSize.height() / 3}); }

    void makePanels()
    {
        const auto& windows = m_multitude.windows();
        // All but the last button have a window of their own; the last is for what is hovered.
        const int count = std::min(40, static_cast<int>(windows.size()) / Panels::buttonsEach + 1);
        m_panels = std::make_unique<Panels>(m_display, count);
        m_lastButton = count * Panels::buttonsEach - 1;
        for (int i = 0; i < std::min(m_lastButton, static_cast<int>(windows.size())); ++i)
            m_panels->place(i, {windows[static_cast<std::size_t>(i)]});
    }

    void writeSettings()
    {
        m_session.write(settingsPath(m_session),
                        "[General]\nfirstRun=true\nbadgeDockIconsFirstRun=true\nshowInDock=1\n"
                        "badgeDock=1\nshowSpaces=1\nspaceSize=0\nzoomWindows=1\nshowFastKeys=1\n"
                        "windowWidth=243\nwindowHeight=190\ndistanceFromDock=33\n"
                        "previewStyle=1\nshouldBubbleWrap=1\nkeepOnTheWay=1\n");
    }

    ProcessFigures look() const
    {
        const auto figures = processFigures(m_lumbrix->pid());
        if (!figures)
            qFatal("Lumbrix has gone:\n%s", qPrintable(m_session.logs()));
        return *figures;
    }

    /// Ends the one that runs; the new one tells of each window that it comes to know.
    void start(Figures& figures)
    {
        m_lumbrix.reset();
        const QString log = u"lumbrix"_s;
        QFile::remove(m_session.path(u"logs/"_s + log));
        const auto begun = Clock::now();
        m_lumbrix = m_session.start(log, u"env"_s,
                                    {u"DBUS_SYSTEM_BUS_ADDRESS="_s + m_session.busAddress(),
                                     lumbrixBinary(), u"--verbose=windows"_s});
        const auto isKnown = [&] {
            return m_session.log(log).count(u" is known"_s) >= m_options.windows;
        };
        for (int i = 0; !isKnown(); ++i) {
            if (i > 10'000 || !m_lumbrix->isRunning())
                qFatal("the windows are not known:\n%s", qPrintable(m_session.logs()));
            std::this_thread::sleep_for(2ms);
        }
        figures.start.push_back(milliseconds(Clock::now() - begun));
        if (const auto spent = processorTime(m_lumbrix->pid()))
            figures.startProcessor.push_back(milliseconds(*spent));
        waitUntilCalm();
    }

    void waitUntilCalm()
    {
        auto before = look().processorTime;
        for (int calm = 0, second = 0; calm < 2 && second < 30; ++second) {
            std::this_thread::sleep_for(1s);
            const auto now = look().processorTime;
            calm = now - before < 10ms ? calm + 1 : 0;
            before = now;
        }
    }

    void rest(Figures& figures)
    {
        RequestCounter counter(m_display.name(), m_lumbrix->pid());
        const ProcessFigures before = look();
        std::this_thread::sleep_for(restTime);
        const ProcessFigures after = look();
        const double seconds = std::chrono::duration<double>(restTime).count();
        figures.resident = static_cast<double>(after.residentKiB) / 1024;
        figures.rest = milliseconds(after.processorTime - before.processorTime) / seconds;
        for (const ThreadFigures& thread : spentBetween(before, after))
            figures.wakeUps += static_cast<double>(thread.voluntary) / seconds;
        figures.restRequests = static_cast<double>(RequestCounter::total(counter.counts()));
    }

    void passing(Figures& figures)
    {
        constexpr int count = 20;
        Application application(m_session, u"app001"_s);
        const auto before = look().processorTime;
        for (int i = 0; i < count; ++i) {
            const AppWindow window = application.open("passing", Qt::darkCyan);
            std::this_thread::sleep_for(200ms);
            application.destroy(window);
            std::this_thread::sleep_for(200ms);
        }
        figures.passing = milliseconds(look().processorTime - before) / count;
        waitUntilCalm();
    }

    QPoint iconOf(const Application& application)
    {
        if (m_panels) {
            std::vector<xcb_window_t> windows;
            for (const AppWindow& window : application.windows())
                windows.push_back(window.id);
            m_panels->place(m_lastButton, windows);
            return m_panels->centreOf(m_lastButton);
        }
        std::optional<QPoint> icon;
        const auto find = [&] {
            icon = m_dock->iconOf(application.entry(), XCB_WINDOW_NONE);
            return icon.has_value();
        };
        if (!m_display.waitFor(find, patience(10'000)))
            qFatal("the dock shows no icon:\n%s", qPrintable(m_session.logs()));
        return *icon;
    }

    Hovered hover(QSize size)
    {
        Application application(m_session, u"hovered"_s);
        for (int i = 0; i < hoveredWindows; ++i)
            application.open("hovered " + QByteArray::number(i + 1),
                             QColor::fromHsv(i * 47 % 360, 255, 230),
                             {size, {20 + 15 * i, 60 + 7 * i}});
        const QPoint icon = iconOf(application);
        waitUntilCalm();
        Hovered hovered;
        RequestCounter counter(m_display.name(), m_lumbrix->pid());
        for (int i = 0; i < 3 + 4 * m_options.trials; ++i) {
            park();
            m_display.waitFor([this] { return m_display.previews().empty(); }, 5s);
            m_arrival->settle();
            counter.clear();
            const auto before = look().processorTime;
            m_arrival->begin();
            m_arrival->send(XCB_MOTION_NOTIFY, 0, icon);
            m_arrival->awaitPreviews(hoveredWindows);
            const auto spent = look().processorTime - before;
            const auto requests = RequestCounter::total(counter.counts());
            const auto times = m_arrival->timesOfPreviews();
            if (i < 3)
                continue; // the first ones also load what all need
            if (!times || m_display.previews().size() != hoveredWindows) {
                ++hovered.wrong;
                continue;
            }
            hovered.mapped.push_back(times->mapped);
            hovered.painted.push_back(times->painted);
            hovered.requests += static_cast<double>(requests) / (4 * m_options.trials);
            hovered.processor += milliseconds(spent) / (4 * m_options.trials);
        }
        park();
        m_display.waitFor([this] { return m_display.previews().empty(); }, 5s);
        return hovered;
    }

    const Options m_options;
    Session m_session;
    Display& m_display;
    Multitude m_multitude;
    std::unique_ptr<Dock> m_dock;
    std::unique_ptr<Panels> m_panels;
    int m_lastButton = 0;
    std::unique_ptr<Process> m_lumbrix;
    std::unique_ptr<Arrival> m_arrival;
};

void print(const std::string& title, const Figures& many, const Figures& few)
{
    Table table(title);
    table.add("start, until all windows are known", median(many.start), median(few.start), "ms");
    table.add("  of the processor", median(many.startProcessor), median(few.startProcessor), "ms");
    table.add("resident memory, before any preview", many.resident, few.resident, "MiB");
    table.add("processor time at rest", many.rest, few.rest, "ms/s", "", 2);
    table.add("wake-ups at rest", many.wakeUps, few.wakeUps, "/s", "", 2);
    table.add("requests at rest, in 20 s", many.restRequests, few.restRequests, "", "", 0);
    table.add("a window that comes and goes", many.passing, few.passing, "ms", "", 2);
    for (const auto& [name, hovered] : {std::pair("15 windows of 1280x800", &Figures::usual),
                                        std::pair("15 windows of 3840x2160", &Figures::large)}) {
        const Hovered& ofMany = many.*hovered;
        const Hovered& ofFew = few.*hovered;
        table.add(std::string("hovering ") + name + ", last one mapped", median(ofMany.mapped),
                  median(ofFew.mapped), "ms");
        table.add("  last one painted", median(ofMany.painted), median(ofFew.painted), "ms",
                  "at most 1.3");
        table.add("  nine tenths of these below", quantile(ofMany.painted, 0.9),
                  quantile(ofFew.painted, 0.9), "ms");
        table.add("  processor time, until settled", ofMany.processor, ofFew.processor, "ms");
        table.add("  requests, until settled", ofMany.requests, ofFew.requests, "");
        if (ofMany.wrong + ofFew.wrong > 0)
            table.add("  WRONG", ofMany.wrong, ofFew.wrong, "");
    }
    table.add("resident memory, after the hovering", many.residentAfter, few.residentAfter, "MiB");
    table.print();
}

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv,
                          {{u"trials"_s, u"Starts; four times as many hovers."_s, u"N"_s, u"5"_s},
                           {u"windows"_s, u"How many are many."_s, u"N"_s, u"500"_s},
                           {u"panels"_s, u"Only with panels, or only without: 1 or 0."_s, u"N"_s}});
    Options options{.trials = program.number(u"trials"_s)};
    for (const bool hasPanels : {false, true}) {
        if (program.isSet(u"panels"_s) && hasPanels != (program.text(u"panels"_s) == u"1"_s))
            continue;
        options.hasPanels = hasPanels;
        options.windows = 10;
        options.applications = 2;
        const Figures few = Many(options).measure();
        options.windows = program.number(u"windows"_s);
        options.applications = 60;
        const Figures many = Many(options).measure();
        print(std::to_string(options.windows) + " windows of 60 applications, beside 10 of 2, " +
                  (hasPanels ? "buttons on 40 panels and 1" : "Plank"),
              many, few);
    }
    return 0;
}
