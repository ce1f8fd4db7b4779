// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "bench/soak_simulated/BusyDesktop.h"
#include "platform/StringLiterals.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;

namespace
{

constexpr std::size_t applicationCount = 40;
constexpr std::size_t windowCount = 200;
constexpr std::size_t maxMinimized = 8; ///< what the Dock still has room for

} // namespace

BusyDesktop::BusyDesktop(Chance& chance) : m_chance(chance)
{
    desk.with([](SimulatedState& state) { state.screens = {{0, 0, 3840, 1600}}; });
    desk.setDockEdge(DockEdge::Bottom);
    m_changes = {
        {"open", 20, [this] { open(); }},
        {"close", 20, [this] { close(); }},
        {"move", 15,
         [this] { changeAny([this](SimulatedWindow& window) { window.frame = anyFrame(); }); }},
        {"retitle", 15,
         [this] {
             changeAny([this](SimulatedWindow& window) {
                 if (!window.isMinimized) // the Dock keeps the title of a minimised one
                     window.title = newName(u"Window "_s);
             });
         }},
        {"redraw", 20,
         [this] {
             changeAny([this](SimulatedWindow& window) {
                 window.color = anyColor();
                 window.version = (window.version + 1) % 256;
             });
         }},
        {"minimise", 5, [this] { minimize(); }},
        {"activate", 5, [this] { desk.activateApplication(anyApplication().pid); }},
        {"quit", 2, [this] { quit(); }},
        {"Space", 2, [this] { showAnotherSpace(); }}};
    for (std::size_t i = 0; i < applicationCount; ++i)
        launch();
    for (std::size_t i = 0; i < windowCount; ++i)
        open();
}

SimulatedApplication BusyDesktop::anyApplication()
{
    return desk.application(m_chance.anyOf(desk.workspace().launchedApplications()));
}

SimulatedApplication BusyDesktop::fullApplication()
{
    return desk.application(desk.workspace().launchedApplications().front());
}

std::vector<WindowID> BusyDesktop::minimized()
{
    std::vector<WindowID> windows;
    for (const WindowID each : desk.stacking())
        if (desk.window(each)->isMinimized)
            windows.push_back(each);
    return windows;
}

long BusyDesktop::pictureBytes()
{
    return desk.with([](SimulatedState& state) {
        long bytes = 0;
        for (const auto& [number, window] : state.windows)
            bytes += static_cast<long>(window.picture.sizeInBytes());
        return bytes;
    });
}

void BusyDesktop::launch()
{
    desk.addApplication({newName(u"Application "_s)});
    // What the desktop keeps about the past must not count as grown memory.
    desk.with([](SimulatedState& state) { state.installed.clear(); });
}

void BusyDesktop::quit()
{
    desk.quitApplication(anyApplication().pid);
    launch();
}

void BusyDesktop::open()
{
    // More than one, because an application that quits takes several with it.
    for (int i = 0; i < 3 && desk.stacking().size() < windowCount; ++i) {
        SimulatedWindow window;
        window.title = newName(u"Window "_s);
        window.frame = anyFrame();
        window.color = anyColor();
        const bool inFull = m_chance.pick(4) == 0;
        desk.addWindow((inFull ? fullApplication() : anyApplication()).pid, window);
    }
}

void BusyDesktop::close()
{
    desk.closeWindow(m_chance.anyOf(desk.stacking()));
    open();
}

void BusyDesktop::minimize()
{
    const auto windows = minimized();
    if (windows.size() >= maxMinimized || (!windows.empty() && m_chance.pick(2) == 0))
        desk.minimizeWindow(m_chance.anyOf(windows), false);
    else
        desk.minimizeWindow(m_chance.anyOf(desk.stacking()));
}

void BusyDesktop::changeAny(const std::function<void(SimulatedWindow&)>& change)
{
    desk.changeWindow(m_chance.anyOf(desk.stacking()), change);
}

QRectF BusyDesktop::anyFrame()
{
    const QPoint place(m_chance.pick(3000), m_chance.pick(1200));
    const QSize size(100 + m_chance.pick(160), 80 + m_chance.pick(120));
    return QRect(place, size);
}

} // namespace lumbrix::bench
