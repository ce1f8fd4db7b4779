// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hours of use in minutes, on a real X server with a real dock: the mouse goes over the icons of
// six applications with some thirty windows, which open, close, move, change their colour and title
// meanwhile. Each time the previews are waited for and looked at. What Lumbrix holds, also in the X
// server, must not grow; the yardstick is what it held after the first hovers, and the dock beside
// it in the same time.
#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <map>
#include <random>
#include <thread>
#include <unistd.h>

#include "Application.h"
#include "Dock.h"
#include "Lumbrix.h"
#include "Session.h"
#include "support/ProcessFigures.h"
#include "support/ServerFigures.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr QSize screenSize(1920, 1080);
constexpr int warmUp = 100;
constexpr std::size_t windowCount = 30;
constexpr std::size_t maxWindows = 12; ///< of one application, so that all are previewed
/// Longer than pictures are kept that nobody looks at.
constexpr auto pictureLife = 40s;

/// Counts and KiB by name, in the order they are to be printed.
using Held = std::vector<std::pair<std::string, double>>;

class Soak
{
public:
    explicit Soak(unsigned seed)
        : m_random(seed), m_session({screenSize, WindowManager::Xfwm4, true}),
          m_display(m_session.display())
    {
        const QStringList names{u"alpha"_s, u"beta"_s,    u"gamma"_s,
                                u"delta"_s, u"epsilon"_s, u"zeta"_s};
        QStringList entries;
        for (const QString& name : names) {
            m_entries[name] = m_session.installApplication(
                name, name, name.at(0).toUpper() + name.mid(1), u"true"_s,
                QColor::fromHsv(static_cast<int>(entries.size()) * 60, 200, 200));
            entries << m_entries[name];
        }
        m_dock = Dock::start(m_session, DockKind::Plank, Edge::Bottom, entries);
        for (const QString& name : names) {
            m_applications.push_back(std::make_unique<Application>(m_session, name));
            open(*m_applications.back());
        }
        while (countWindows() < windowCount)
            open(anyApplication());
        m_lumbrix = startLumbrix(m_session, {{u"displayDelay"_s, u"0"_s}}, [this] {
            park();
            moveTo(*m_applications.front());
        });
        m_pid = find("lumbrix");
        m_plank = find("plank");
    }

    /// Changes something, hovers an application and looks; mostly changes more while it looks.
    void hover()
    {
        if (pick(3) == 0) {
            park();
            if (!m_display.waitFor([this] { return m_display.previews().empty(); }, patience(5000)))
                wrong("previews stay after the mouse left");
        }
        change(anyApplication());
        Application& application = anyApplication();
        moveTo(application);
        expectPreviews(application, "hovered");
        if (pick(3) == 0) {
            change(application);
            expectPreviews(application, "changed while hovered");
        }
        if (!m_lumbrix->isRunning())
            qFatal("Lumbrix has gone:\n%s", qPrintable(m_session.logs()));
    }

    /// Once nothing shows any more; after a while, if pictures that are kept for later are to have
    /// been given back.
    Held held(std::chrono::seconds pause)
    {
        park();
        if (!m_display.waitFor([this] { return m_display.panels().empty(); }, patience(5000)))
            wrong("something stays on the screen");
        std::this_thread::sleep_for(pause);
        const auto own = processFigures(m_pid);
        const auto plank = processFigures(m_plank);
        const auto server = serverFigures(m_display.connection(), m_pid);
        if (!own || !plank || !server)
            qFatal("Lumbrix or the dock has gone:\n%s", qPrintable(m_session.logs()));
        Held held{{"resident KiB", static_cast<double>(own->residentKiB)},
                  {"  anonymous KiB", static_cast<double>(own->anonymousKiB)},
                  {"  shared segments KiB", static_cast<double>(own->sharedMemoryKiB)},
                  {"threads", own->threads},
                  {"descriptors", own->descriptors},
                  {"X connections", server->clients},
                  {"X pixmaps KiB", static_cast<double>(server->pixmapBytes) / 1024},
                  {"X resources", server->resources}};
        for (const auto& [type, count] : server->byType)
            held.emplace_back("  " + type, count);
        held.emplace_back("the dock: resident KiB", static_cast<double>(plank->residentKiB));
        held.emplace_back("the dock: descriptors", plank->descriptors);
        held.emplace_back("windows on the desktop", countWindows());
        return held;
    }
    int wrongs() const { return m_wrong; }
    const std::map<std::string, int>& kinds() const { return m_kinds; }

private:
    static int find(const char* name)
    {
        const auto pid = descendantNamed(getpid(), name);
        if (!pid)
            qFatal("no %s runs on the private desktop", name);
        return *pid;
    }
    // The same for a seed everywhere, unlike the library's distributions.
    int pick(std::size_t count) { return static_cast<int>(m_random() % count); }
    Application& anyApplication()
    {
        return *m_applications[static_cast<std::size_t>(pick(m_applications.size()))];
    }
    AppWindow anyWindow(const Application& application)
    {
        const auto& windows = application.windows();
        return windows[static_cast<std::size_t>(pick(windows.size()))];
    }
    std::size_t countWindows() const
    {
        std::size_t count = 0;
        for (const auto& application : m_applications)
            count += application->windows().size();
        return count;
    }
    QColor anyColour() { return QColor::fromHsv(pick(360), 255, 230); }
    QByteArray anyTitle() { return "window " + QByteArray::number(++m_serial); }
    QPoint anyPlace() { return {pick(1100), pick(500)}; }

    void park() { m_display.moveTo({screenSize.width() / 2, screenSize.height() / 3}); }
    void moveTo(const Application& application)
    {
        std::optional<QPoint> icon;
        m_display.waitFor(
            [&] {
                icon = m_dock->iconOf(m_entries[application.identifier()], XCB_WINDOW_NONE);
                return icon.has_value();
            },
            patience(5000));
        if (!icon)
            qFatal("the dock shows no icon:\n%s", qPrintable(m_session.logs()));
        m_display.moveTo(*icon);
    }

    void open(Application& application)
    {
        if (application.windows().size() < maxWindows)
            application.open(anyTitle(), anyColour(),
                             {{300 + pick(500), 200 + pick(300)}, anyPlace()});
    }
    void change(Application& application)
    {
        const AppWindow window = anyWindow(application);
        const bool isFull = countWindows() >= windowCount;
        switch (pick(5)) {
        case 0:
            if (isFull && application.windows().size() > 1) {
                ++m_kinds["close"];
                application.destroy(window);
            } else {
                ++m_kinds["open"];
                open(application);
            }
            break;
        case 1: {
            ++m_kinds["move"];
            const QPoint place = anyPlace();
            // From a pager, with x, y, width and height given.
            m_display.request(window.id, "_NET_MOVERESIZE_WINDOW",
                              {0x2f00, static_cast<std::uint32_t>(place.x()),
                               static_cast<std::uint32_t>(place.y()),
                               static_cast<std::uint32_t>(300 + pick(500)),
                               static_cast<std::uint32_t>(200 + pick(300))});
            break;
        }
        case 2:
            ++m_kinds["colour"];
            application.setColour(window, anyColour());
            break;
        case 3:
            ++m_kinds["title"];
            application.setTitle(window, anyTitle());
            break;
        default:
            ++m_kinds["raise"];
            application.activate(window);
            break;
        }
    }

    bool isShown(const AppWindow& window, const std::vector<Panel>& shown)
    {
        const auto panel = std::ranges::find(shown, window.title, &Panel::title);
        if (panel == shown.end())
            return false;
        // A wide window leaves room above and below its picture.
        const QImage picture = m_display.picture(panel->geometry);
        const QColor expected = window.colour.toRgb();
        for (int y = 0; y < picture.height(); ++y) {
            const QRgb pixel = picture.pixel(picture.width() / 2, y);
            if (std::abs(qRed(pixel) - expected.red()) < 24 &&
                std::abs(qGreen(pixel) - expected.green()) < 24 &&
                std::abs(qBlue(pixel) - expected.blue()) < 24)
                return true;
        }
        return false;
    }
    /// Exactly this application's windows, each with its title and its present colour.
    void expectPreviews(const Application& application, const char* when)
    {
        const bool right = m_display.waitFor(
            [&] {
                const auto shown = m_display.previews();
                const auto& windows = application.windows();
                return shown.size() == windows.size() &&
                       std::ranges::all_of(windows, [&](const AppWindow& window) {
                           return isShown(window, shown);
                       });
            },
            patience(4000));
        if (right)
            return;
        wrong(when);
        const auto shown = m_display.previews();
        std::printf("  %s has", qPrintable(application.identifier()));
        for (const AppWindow& window : application.windows())
            std::printf(" \"%s\"%s", window.title.constData(),
                        isShown(window, shown) ? "" : " (not shown)");
        std::printf("; shown are");
        for (const Panel& panel : shown)
            std::printf(" \"%s\"", panel.title.constData());
        std::printf("\n");
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
    std::map<QString, QString> m_entries; ///< by identifier
    std::vector<std::unique_ptr<Application>> m_applications;
    std::unique_ptr<Process> m_lumbrix;
    int m_pid = 0;
    int m_plank = 0;
    int m_serial = 0;
    int m_wrong = 0;
    std::map<std::string, int> m_kinds; ///< of changes, how often
};

double valueOf(const Held& held, const std::string& name)
{
    const auto found = std::ranges::find(held, name, &Held::value_type::first);
    return found == held.end() ? 0 : found->second;
}

void print(int hovers, const Held& start, const Held& middle, const Held& end)
{
    std::printf("\n%-26s %10s %10s %10s %12s  per 1,000 hovers, middle to end\n", "", "start",
                "middle", "end", "end/start");
    Held names = end; // and what only the others had
    for (const Held* other : {&start, &middle}) {
        for (const auto& entry : *other)
            if (std::ranges::find(names, entry.first, &Held::value_type::first) == names.end())
                names.emplace_back(entry.first, 0);
    }
    for (const auto& [name, last] : names) {
        const double first = valueOf(start, name);
        const double half = valueOf(middle, name);
        std::printf("%-26s %10.0f %10.0f %10.0f %12.3f %+8.1f\n", name.c_str(), first, half, last,
                    first != 0 ? last / first : 0.0, (last - half) * 2000 / hovers);
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption hoversOption(u"hovers"_s, u"How many hovers."_s, u"N"_s, u"2000"_s);
    const QCommandLineOption seedOption(u"seed"_s, u"What chance starts from."_s, u"N"_s, u"1"_s);
    parser.addOptions({hoversOption, seedOption});
    parser.process(application);
    const int hovers = std::max(2, parser.value(hoversOption).toInt());
    std::printf("%d hovers over 6 applications with %zu windows, after %d to warm up\n", hovers,
                windowCount, warmUp);
    QElapsedTimer clock;
    clock.start();
    Soak soak(parser.value(seedOption).toUInt());
    for (int i = 0; i < warmUp; ++i)
        soak.hover();
    const Held start = soak.held(pictureLife);
    Held middle;
    for (int i = 1; i <= hovers; ++i) {
        soak.hover();
        if (i == hovers / 2) {
            middle = soak.held(pictureLife);
        } else if (i % std::max(hovers / 10, 1) == 0) {
            const Held now = soak.held(0s);
            std::printf(
                "%5d hovers, %4lld s: resident %.0f KiB, shared segments %.0f KiB, X pixmaps "
                "%.0f KiB, X resources %.0f, descriptors %.0f\n",
                i, clock.elapsed() / 1000, valueOf(now, "resident KiB"),
                valueOf(now, "  shared segments KiB"), valueOf(now, "X pixmaps KiB"),
                valueOf(now, "X resources"), valueOf(now, "descriptors"));
        }
    }
    print(hovers, start, middle, soak.held(pictureLife));
    std::printf("\nchanges:");
    for (const auto& [kind, count] : soak.kinds())
        std::printf(" %s %d,", kind.c_str(), count);
    std::printf("\nwrong: %d; %lld s\n", soak.wrongs(), clock.elapsed() / 1000);
    return soak.wrongs() == 0 ? 0 : 1;
}
