// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Days of use in minutes: the mouse goes over the Dock of a simulated desktop whose applications
// and windows come, go and change under it. What the program holds must not grow, and what it shows
// must be right whenever the mouse has come to rest. The yardstick is what it held after the first
// hovers.

#include <QtCore/QCommandLineParser>
#include <QtCore/QElapsedTimer>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <unistd.h>

#include "bench/soak_simulated/BusyDesktop.h"
#include "engine/HoverDelays.h"
#include "engine/LXHandler.h"
#include "engine/SWObserver.h"
#include "model/AXNames.h"
#include "platform/StringLiterals.h"

namespace lumbrix::bench
{
namespace
{

constexpr std::size_t maxPreviews = 15;
constexpr int warmUp = 500;
constexpr int samples = 10;
constexpr int maxFaultsPrinted = 20;
/// By then everything that was begun has been ended. The longest: half a second until a closed
/// window's preview goes, and one more for which the row is then left alone.
constexpr platform::Seconds settleTime = 1.8;
constexpr platform::Seconds scanTime = 2.6; ///< a scan too

/// What this process holds.
struct Held {
    long residentKiB = 0;
    long heapKiB = 0; ///< in use, but for the pictures that the desktop's windows have
    long threads = 0;
    long descriptors = 0;
    long panels = 0;
    long listed = 0; ///< windows in the inventory
};

long entries(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder),
                         std::filesystem::directory_iterator());
}

class Soak final : public HoverDelays
{
public:
    explicit Soak(unsigned seed) : m_chance(seed), m_busy(m_chance)
    {
        LXHandler::installCompanions(m_busy.ports(), {});
        EngineSettings& settings = engine().settings();
        settings.windowWidth = 160;
        settings.windowHeight = 120;
        settings.distanceFromDock = 10;
        settings.showInDock = 1;
        settings.showInTab = 1;
        settings.showSpaces = 1;
        settings.showFastKeys = 1;
        settings.zoomWindows = 1;
        observeDock();
        engine().clearCache();
        m_busy.loop.advance(settleTime);
    }
    ~Soak() override
    {
        m_busy.loop.shutdown();
        m_dockObserver.reset();
        LXHandler::releaseSharedHandler();
    }

    /// Changes something, hovers something, and sometimes looks at what shows once all is at rest;
    /// mostly the mouse goes on before.
    void hover()
    {
        leavePreview();
        for (int i = m_chance.pick(3); i > 0; --i)
            m_busy.change();
        if (m_chance.pick(50) == 0)
            m_chance.doOneOf(m_settings);
        m_chance.doOneOf(m_hovers);
        if (m_chance.pick(4) != 0) {
            m_busy.loop.advance(0.01 * m_chance.pick(80));
        } else {
            m_busy.loop.advance(settleTime);
            check();
        }
        QCoreApplication::processEvents();
        m_busy.desk.with([](SimulatedState& state) { state.commands.clear(); });
    }
    /// With nothing shown any more.
    Held held()
    {
        leave();
        m_busy.loop.advance(std::max(settleTime, scanTime));
        check();
        const std::size_t listed = engine().inventory().windowsArray().size();
        if (const std::size_t open = m_busy.desk.stacking().size(); listed != open)
            fault(u"%1 windows listed of %2"_s.arg(listed).arg(open));
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const long kibibyte = 1024;
        Held held;
        long size = 0;
        std::ifstream("/proc/self/statm") >> size >> held.residentKiB;
        held.residentKiB *= sysconf(_SC_PAGESIZE) / kibibyte;
        held.heapKiB = heapBytes() / kibibyte;
        held.threads = entries("/proc/self/task");
        held.descriptors = entries("/proc/self/fd");
        held.panels = static_cast<long>(QApplication::topLevelWidgets().size());
        held.listed = static_cast<long>(listed);
        return held;
    }
    long heapBytes()
    {
        const struct mallinfo2 heap = mallinfo2();
        return static_cast<long>(heap.uordblks + heap.hblkhd) - m_busy.pictureBytes();
    }
    int faults() const { return m_faults; }
    long checks() const { return m_checks; }
    void printKinds() const
    {
        print("changes of windows", m_busy.changes());
        print("changes of settings", m_settings);
        print("hovers", m_hovers);
    }

private:
    static LXHandler& engine() { return LXHandler::sharedHandler(); }
    float displayDelay() const override { return 0.05F * static_cast<float>(m_delays % 3); }
    std::int32_t dontDelayIfOpen() const override { return m_delays % 2; }
    void observeDock()
    {
        const Pid pid = m_busy.desk.dockPid();
        m_dockObserver =
            SWObserver::observerWithPid(m_busy.desk.accessibility(), pid, handleAXNotification);
        const auto dock = m_busy.desk.accessibility().createApplication(pid);
        for (const QString& name :
             {AX::SelectedChildrenChanged, AX::MenuOpened, AX::FocusedUIElementChanged})
            m_dockObserver->observer().addNotification(dock, name, this);
        m_dockObserver->observer().addToRunLoop();
    }

    void changeStyle()
    {
        leave(); // to where the settings are
        m_busy.loop.advance(settleTime);
        engine().settings().previewStyle = m_chance.pick(6);
        engine().clearCache();
    }

    // What the mouse does.
    void hoverAny() { m_busy.desk.hoverDockItem(m_busy.anyApplication().name); }
    void hoverFull() { m_busy.desk.hoverDockItem(m_busy.fullApplication().name); }
    void sweep()
    {
        for (int i = 3 + m_chance.pick(8); i > 0; --i) {
            hoverAny();
            m_busy.loop.advance(0.005 * m_chance.pick(10));
        }
    }
    void hoverMinimized()
    {
        if (const auto windows = m_busy.minimized(); !windows.empty())
            m_busy.desk.hoverDockItem(m_busy.desk.window(m_chance.anyOf(windows))->title);
    }
    void hoverTrash() { m_busy.desk.hoverDockItem(u"Trash"_s); }
    void leave() { m_busy.desk.leaveDock(); }
    /// From an icon up to its row; null when there is none.
    ScreenyViewPtr reachPreview()
    {
        hoverAny();
        m_busy.loop.advance(0.3);
        const auto& previews = engine().screenyViews();
        if (previews.empty())
            return nullptr;
        ScreenyViewPtr preview = m_chance.anyOf(previews);
        m_busy.desk.movePointer(preview->window()->frame().center());
        m_busy.loop.advance(0.2);
        return preview;
    }
    /// A panel on a real desktop is told that the mouse leaves it before the Dock is told what the
    /// mouse reaches.
    static void leavePreview()
    {
        const auto previews = engine().screenyViews();
        for (const ScreenyViewPtr& each : previews)
            if (each->isHovered())
                each->mouseExited();
    }
    void clickPreview()
    {
        if (const ScreenyViewPtr preview = reachPreview())
            preview->clickImage();
    }
    void closePreview()
    {
        if (const ScreenyViewPtr preview = reachPreview())
            preview->clickCloseButton();
    }
    void openMenu()
    {
        hoverAny();
        m_busy.loop.advance(0.2);
        m_busy.desk.openDockMenu();
        m_busy.loop.advance(settleTime);
        if (!engine().screenyViews().empty())
            fault(u"previews over the Dock's menu"_s);
        leave();
    }
    void useSwitcher()
    {
        leave();
        std::vector<test::SimulatedSwitcherEntry> entries;
        for (const Pid pid : m_busy.desk.workspace().launchedApplications())
            entries.push_back({m_busy.desk.application(pid).name});
        const std::size_t count = entries.size();
        m_busy.desk.openSwitcher(std::move(entries));
        for (int i = m_chance.pick(4); i >= 0; --i) {
            m_busy.loop.advance(0.1 * m_chance.pick(5));
            m_busy.desk.selectInSwitcher(static_cast<std::size_t>(m_chance.pick(count)),
                                         m_chance.pick(2) == 0);
        }
        m_busy.loop.advance(0.1 * m_chance.pick(10));
        m_busy.desk.closeSwitcher();
    }

    // What must hold once everything has settled.
    void check()
    {
        ++m_checks;
        const auto& previews = engine().screenyViews();
        if (previews.size() > maxPreviews)
            fault(u"%1 previews"_s.arg(previews.size()));
        for (const ScreenyViewPtr& each : previews)
            if (!each->elementRef() || !each->window()->isFront())
                fault(u"a preview without a window, or not on screen"_s);
            else if (m_busy.desk.application(each->elementRef()->pid()).pid == 0)
                fault(u"a preview of an application that has quit"_s);
        const auto isShown = [](const MAWindow* panel) { return panel && panel->isFront(); };
        for (const ScreenyViewPtr& each : engine().row().cache().cacheArray())
            if (isShown(each->window()) || isShown(each->zoomWindow()))
                fault(u"an idle preview is on screen"_s);
        checkHoveredItem();
    }
    void checkHoveredItem()
    {
        const auto& previews = engine().screenyViews();
        std::vector<WindowID> expected;
        std::size_t count = 0;
        const QString item = m_busy.desk.with([&](SimulatedState& state) {
            const SimulatedDockItem* hovered = state.dockItem(state.hoveredItem);
            expectPreviews(state, hovered, expected, count);
            return hovered ? hovered->title : QString();
        });
        if (item.isNull() && std::any_of(previews.begin(), previews.end(),
                                         [](const auto& each) { return each->isHovered(); }))
            return; // the mouse is on one
        for (const ScreenyViewPtr& each : previews) {
            const WindowID window = each->elementRef() ? each->elementRef()->wid() : 0;
            if (std::find(expected.begin(), expected.end(), window) == expected.end())
                fault(u"over \"%1\": a preview of \"%2\""_s.arg(item, each->titleString()));
        }
        if (previews.size() != count)
            fault(u"over \"%1\": %2 previews, not %3"_s.arg(item).arg(previews.size()).arg(count));
    }
    static void expectPreviews(SimulatedState& state, const SimulatedDockItem* hovered,
                               std::vector<WindowID>& expected, std::size_t& count)
    {
        using Item = SimulatedDockItem::Kind;
        if (!hovered ||
            (hovered->kind != Item::Application && hovered->kind != Item::MinimizedWindow))
            return;
        const auto& previews = engine().screenyViews();
        const SWElementPtr first = previews.empty() ? nullptr : previews.front()->elementRef();
        const SimulatedWindow* firstWindow = first ? state.window(first->wid()) : nullptr;
        if (hovered->kind == Item::Application) {
            expected = state.windowsOf(state.applicationAt(hovered->url)->pid);
            count = std::min(expected.size(), maxPreviews);
            // Coming from the icon of one of its windows, that one's preview stays.
            if (previews.size() == 1 && firstWindow && firstWindow->isMinimized)
                count = 1;
        } else if (firstWindow && firstWindow->number == hovered->window) {
            // Coming from its application, whose row it leads, the row stays.
            expected = state.windowsOf(firstWindow->pid);
            count = previews.size();
        } else {
            expected = {hovered->window};
            count = 1;
        }
    }
    void fault(const QString& what)
    {
        if (++m_faults <= maxFaultsPrinted)
            std::printf("WRONG at check %ld: %s, after%s\n", m_checks, qPrintable(what),
                        qPrintable(m_chance.last()));
    }

    Chance m_chance;
    BusyDesktop m_busy;
    std::unique_ptr<SWObserver> m_dockObserver;
    int m_delays = 0;
    int m_faults = 0;
    long m_checks = 0;
    Kinds m_settings{{"style", 1, [this] { changeStyle(); }},
                     {"delays", 1, [this] { m_delays = m_chance.pick(6); }}};
    Kinds m_hovers{
        {"application", 45, [this] { hoverAny(); }}, {"full one", 5, [this] { hoverFull(); }},
        {"sweep", 8, [this] { sweep(); }},           {"minimised", 4, [this] { hoverMinimized(); }},
        {"trash", 3, [this] { hoverTrash(); }},      {"leave", 15, [this] { leave(); }},
        {"preview", 8, [this] { reachPreview(); }},  {"click", 4, [this] { clickPreview(); }},
        {"close", 3, [this] { closePreview(); }},    {"menu", 3, [this] { openMenu(); }},
        {"switcher", 2, [this] { useSwitcher(); }}};
};

void print(int hovers, const Held& held)
{
    std::printf("%7d %12ld %10ld %8ld %12ld %7ld %8ld\n", hovers, held.residentKiB, held.heapKiB,
                held.threads, held.descriptors, held.panels, held.listed);
    std::fflush(stdout);
}

int run(int hovers, unsigned seed)
{
    std::printf("%d hovers after %d to warm up, seed %u\n hovers resident KiB   heap KiB  threads  "
                "descriptors  panels  windows\n",
                hovers, warmUp, seed);
    QElapsedTimer clock;
    clock.start();
    Soak soak(seed);
    for (int i = 0; i < warmUp; ++i)
        soak.hover();
    const Held start = soak.held();
    print(0, start);
    Held middle = start;
    Held end = start;
    for (int i = 1; i <= hovers; ++i) {
        soak.hover();
        if (i % std::max(hovers / samples, 1) != 0)
            continue;
        end = soak.held();
        print(i, end);
        if (i <= hovers / 2)
            middle = end;
    }
    soak.printKinds();
    const double tenThousands = hovers / 2.0 / 10'000;
    std::printf("growth per 10,000 hovers from the middle to the end: resident %+.0f KiB, heap "
                "%+.1f KiB\n",
                static_cast<double>(end.residentKiB - middle.residentKiB) / tenThousands,
                static_cast<double>(end.heapKiB - middle.heapKiB) / tenThousands);
    std::printf("end / start: resident %.3f, heap %.3f\n",
                static_cast<double>(end.residentKiB) / static_cast<double>(start.residentKiB),
                static_cast<double>(end.heapKiB) / static_cast<double>(start.heapKiB));
    const long heap = soak.heapBytes();
    QPixmapCache::clear();
    std::printf("of the heap at the end the toolkit's cache of pixmaps, which is limited to %d "
                "KiB: %ld KiB\n",
                QPixmapCache::cacheLimit(), (heap - soak.heapBytes()) / 1024);
    std::printf("%ld checks of a desktop at rest, %d wrong; %lld s\n", soak.checks(), soak.faults(),
                clock.elapsed() / 1000);
    return soak.faults() == 0 ? 0 : 1;
}

} // namespace
} // namespace lumbrix::bench

using namespace Qt::StringLiterals;

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The platform plugin that shows nothing says so for each panel.
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext& context, const QString& message) {
            if (qstrcmp(context.category, "qt.qpa.plugin") != 0 &&
                !message.startsWith(QLatin1String("This plugin does not support")))
                std::fprintf(stderr, "%s\n", qPrintable(message));
        });
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    const QCommandLineOption hovers(u"hovers"_s, u"How many hovers."_s, u"N"_s, u"50000"_s);
    const QCommandLineOption seed(u"seed"_s, u"What chance starts from."_s, u"N"_s, u"1"_s);
    parser.addOptions({hovers, seed});
    parser.addHelpOption();
    parser.process(application);
    return lumbrix::bench::run(parser.value(hovers).toInt(), parser.value(seed).toUInt());
}
