// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "refresh/BlinkingCursor.h"

#include <chrono>
#include <thread>

#include "Desk.h"
#include "support/BareCopy.h"
#include "support/ProcessFigures.h"
#include "support/RequestCounter.h"
#include "support/Table.h"

namespace lumbrix::bench
{
namespace
{

constexpr QSize largeSize(3840, 2160);

} // namespace

void measureBlinkingCursor()
{
    using namespace privatedesk;
    using namespace std::chrono_literals;
    using namespace Qt::StringLiterals;
    Desk desk({"bench_refresh_large",
               DockKind::Plank,
               Edge::Bottom,
               {{4096, 2304}, WindowManager::Xfwm4, true}});
    Display& display = desk.display();
    desk.startLumbrix({{u"zoomWindows"_s, u"0"_s}});
    const auto editor = desk.launch(u"gamma"_s);
    const AppWindow window = editor->open("editor", Qt::darkGray, {largeSize, {0, 0}});
    BareCopy copier(display.name(), {window.id}, largeSize);
    copier.copyAll();
    constexpr int rounds = 20;
    std::chrono::nanoseconds whole{0};
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

} // namespace lumbrix::bench
