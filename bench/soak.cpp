// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hours of use in minutes, on a real X server with a real dock: the mouse goes over the icons of
// six applications with some thirty windows, which open, close, move, change their colour and title
// meanwhile. Each time the previews are waited for and looked at. What Lumbrix holds, also in the X
// server, must not grow; the yardstick is what it held after the first hovers, and the dock beside
// it in the same time.
#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <random>
#include <thread>
#include <unistd.h>

#include "Dock.h"
#include "Lumbrix.h"
#include "Session.h"
#include "support/Crowd.h"
#include "support/Holdings.h"
#include "support/ProcessFigures.h"
#include "support/Program.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr QSize screenSize(1920, 1080);
constexpr int warmUp = 100;
constexpr std::size_t windowCount = 30;
/// Longer than pictures are kept that nobody looks at.
constexpr auto pictureLife = 40s;

class Soak
{
public:
    explicit Soak(unsigned seed)
        : m_random(seed), m_session({screenSize, WindowManager::Xfwm4, true}),
          m_display(m_session.display()), m_crowd(m_session, m_random)
    {
        m_dock = Dock::start(m_session, DockKind::Plank, Edge::Bottom, m_crowd.entries());
        m_crowd.start(windowCount);
        m_lumbrix = startLumbrix(m_session, {{u"displayDelay"_s, u"0"_s}}, [this] {
            park();
            moveTo(m_crowd.any());
        });
        m_pid = find("lumbrix");
        m_plank = find("plank");
    }

    /// Changes something, hovers an application and looks; mostly changes more while it looks.
    void hover()
    {
        if (m_crowd.pick(3) == 0) {
            park();
            if (!m_display.waitFor([this] { return m_display.previews().empty(); }, patience(5000)))
                wrong("previews stay after the mouse left");
        }
        m_crowd.change(m_crowd.any());
        Application& application = m_crowd.any();
        moveTo(application);
        expectPreviews(application, "hovered");
        if (m_crowd.pick(3) == 0) {
            m_crowd.change(application);
            expectPreviews(application, "changed while hovered");
        }
        if (!m_lumbrix->isRunning())
            qFatal("Lumbrix has gone:\n%s", qPrintable(m_session.logs()));
    }

    /// Once nothing shows any more; after a while, if pictures that are kept for later are to have
    /// been given back.
    Holdings held(std::chrono::seconds pause)
    {
        park();
        if (!m_display.waitFor([this] { return m_display.panels().empty(); }, patience(5000)))
            wrong("something stays on the screen");
        std::this_thread::sleep_for(pause);
        auto held = holdingsOf(m_display.connection(), m_pid);
        const auto plank = processFigures(m_plank);
        if (!held || !plank)
            qFatal("Lumbrix or the dock has gone:\n%s", qPrintable(m_session.logs()));
        held->emplace_back("the dock: resident KiB", static_cast<double>(plank->residentKiB));
        held->emplace_back("the dock: descriptors", plank->descriptors);
        held->emplace_back("windows on the desktop", m_crowd.countWindows());
        return *held;
    }
    int wrongs() const { return m_wrong; }
    const std::map<std::string, int>& kinds() const { return m_crowd.kinds(); }

private:
    static int find(const char* name)
    {
        const auto pid = descendantNamed(getpid(), name);
        if (!pid)
            qFatal("no %s runs on the private desktop", name);
        return *pid;
    }
    void park() { m_display.moveTo({screenSize.width() / 2, screenSize.height() / 3}); }
    void moveTo(const Application& application)
    {
        std::optional<QPoint> icon;
        m_display.waitFor(
            [&] {
                icon = m_dock->iconOf(application.entry(), XCB_WINDOW_NONE);
                return icon.has_value();
            },
            patience(5000));
        if (!icon)
            qFatal("the dock shows no icon:\n%s", qPrintable(m_session.logs()));
        m_display.moveTo(*icon);
    }

    void expectPreviews(const Application& application, const char* when)
    {
        if (m_display.waitFor([&] { return m_crowd.isShown(application); }, patience(4000)))
            return;
        wrong(when);
        m_crowd.describe(application);
    }
    void wrong(const char* what)
    {
        ++m_wrong;
        std::printf("WRONG: %s\n", what);
    }

    std::mt19937 m_random;
    Session m_session;
    Display& m_display;
    std::unique_ptr<Dock> m_dock;
    Crowd m_crowd;
    std::unique_ptr<Process> m_lumbrix;
    int m_pid = 0;
    int m_plank = 0;
    int m_wrong = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv,
                          {{u"hovers"_s, u"How many hovers."_s, u"N"_s, u"2000"_s},
                           {u"seed"_s, u"What chance starts from."_s, u"N"_s, u"1"_s}});
    const int hovers = std::max(2, program.text(u"hovers"_s).toInt());
    std::printf("%d hovers over 6 applications with %zu windows, after %d to warm up\n", hovers,
                windowCount, warmUp);
    QElapsedTimer clock;
    clock.start();
    Soak soak(program.text(u"seed"_s).toUInt());
    for (int i = 0; i < warmUp; ++i)
        soak.hover();
    const Holdings start = soak.held(pictureLife);
    Holdings middle;
    for (int i = 1; i <= hovers; ++i) {
        soak.hover();
        if (i == hovers / 2) {
            middle = soak.held(pictureLife);
        } else if (i % std::max(hovers / 10, 1) == 0) {
            const Holdings now = soak.held(0s);
            std::printf(
                "%5d hovers, %4lld s: resident %.0f KiB, shared segments %.0f KiB, X pixmaps "
                "%.0f KiB, X resources %.0f, descriptors %.0f\n",
                i, clock.elapsed() / 1000, valueOf(now, "resident KiB"),
                valueOf(now, "  shared segments KiB"), valueOf(now, "X pixmaps KiB"),
                valueOf(now, "X resources"), valueOf(now, "descriptors"));
        }
    }
    print(start, middle, soak.held(pictureLife), hovers, "hovers");
    std::printf("\nchanges:");
    for (const auto& [kind, count] : soak.kinds())
        std::printf(" %s %d,", kind.c_str(), count);
    std::printf("\nwrong: %d; %lld s\n", soak.wrongs(), clock.elapsed() / 1000);
    return soak.wrongs() == 0 ? 0 : 1;
}
