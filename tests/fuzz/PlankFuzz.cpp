// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What Plank says of its docks and their items, up to where the icons are.

#include "platform/linux/docks/PlankGeometry.h"
#include "platform/linux/docks/PlankUnnamed.h"
#include "platform/linux/docks/PlankWindows.h"
#include "tests/fuzz/FuzzWindow.h"

using namespace lumbrix;
using namespace platform;
using test::FuzzInput;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    require(plankDocksIn(input.text().repeated(1 + input.below(64))).size() <= 30, "few docks");
    const QStringList kept{input.text(), input.text()};
    const int count = input.below(256);
    const QStringList asked = plankItemsToAsk(kept, QStringList(count, input.text()));
    require(asked.size() <= 121 && asked.contains(QString()), "few items, and the first unnamed");
    std::vector<PlankWithoutWindow> docks;
    std::vector<PlankWindow> windows;
    for (int i = input.below(4); i > 0; --i) {
        PlankItems items;
        for (int n = input.below(8); n > 0; --n) {
            const QString uri = input.text();
            const auto [x, y] = std::array{input.number<int>(), input.number<int>()};
            items.add(uri, x, y, input.below(5));
        }
        items.count = plankItemCount(input.number<int>());
        const DockEdge edge = items.edge.value_or(DockEdge::Bottom);
        const QRect dock = test::fuzzRect(input);
        const PlankLook look{input.below(256), true, input.number<std::uint16_t>()};
        const PlankItems scaled = items.scaledBy(1 + input.below(16));
        const auto points = scaled.points();
        require(plankPlaces(points, edge, dock, look).size() == points.size(), "each has a place");
        std::vector<int> centres;
        for (const QPoint point : points)
            centres.push_back(isHorizontal(edge) ? point.x() : point.y());
        const int pitch = plankPitch(centres, look.iconSize);
        const auto free =
            plankFreeCentres(input.number<std::int16_t>(), items.count, pitch, centres);
        std::vector<PlankUnnamed::Candidate> candidates;
        for (int n = input.below(4); n > 0; --n)
            candidates.push_back({input.text(), input.number<std::int16_t>()});
        require(PlankUnnamed().assign(candidates, free, pitch).size() <= free.size(),
                "one a place");
        docks.push_back({input.below(4), edge, items.points()});
        windows.push_back({.window = {static_cast<xcb_window_t>(i), 0, dock},
                           .pid = input.below(4),
                           .scale = 1 + input.below(16),
                           .touched = test::fuzzRect(input)});
    }
    require(windowsOfPlanks(docks, windows).size() == docks.size(), "each is answered for");
    return 0;
}
