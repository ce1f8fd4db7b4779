// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How the pictures of a row follow their windows, and what that may cost.

#include <QtWidgets/QApplication>

#include "preview/PictureView.h"
#include "tests/engine/EngineFixture.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace lumbrix::test
{
namespace
{

class PictureFeedTest : public EngineFixture
{
protected:
    void addFilms(int count, QSizeF size)
    {
        m_notes = add(u"Notes"_s, count);
        m_windows = desk.stacking();
        for (const WindowID window : m_windows)
            desk.changeWindow(window, [&](auto& each) { each.frame.setSize(size); });
        loop.advance(3);
    }
    /// Films whose pictures are captured at once, until the test says how long that takes.
    void addFilmsOf(SlowWindowServer& server, int count)
    {
        server.duration = 0;
        install(desk.accessibility(), server);
        addFilms(count, {400, 300});
    }
    void show(WindowID window)
    {
        desk.changeWindow(window, [](auto& each) { each.version = (each.version + 1) % 256; });
    }
    int version(std::size_t index) { return preview(index).image().pixel(0, 0) & 0xff; }
    bool isExact(std::size_t index) { return (preview(index).image().pixel(0, 0) & 0x100) == 0; }
    /// Plays in the first so many windows, with thirty pictures a second; what was copied of each
    /// window, a second.
    std::vector<double> play(int films)
    {
        constexpr int seconds = 4;
        const auto captures = [this] {
            std::vector<int> all;
            for (const WindowID window : m_windows)
                all.push_back(desk.captures(window));
            return all;
        };
        const std::vector<int> first = captures();
        std::vector<int> last = first;
        int rounds = 0;
        for (int i = 0; i < 30 * seconds; ++i) {
            for (int film = 0; film < films; ++film)
                show(m_windows[static_cast<std::size_t>(film)]);
            loop.advance(1.0 / 30);
            const std::vector<int> before = std::exchange(last, captures());
            rounds += before == last ? 0 : 1;
        }
        m_roundRate = 1.0 * rounds / seconds;
        std::vector<double> rates;
        for (std::size_t i = 0; i < m_windows.size(); ++i)
            rates.push_back((last[i] - first[i]) * 1.0 / seconds);
        return rates;
    }
    static double sum(const std::vector<double>& rates)
    {
        return std::accumulate(rates.begin(), rates.end(), 0.0);
    }

    Pid m_notes = 0;
    std::vector<WindowID> m_windows;
    double m_roundRate = 0; ///< how often something was copied in the last play(), a second
};

TEST_F(PictureFeedTest, films_areFollowedWithinTheBudget_theHoveredOneFirst)
{
    addFilms(15, {1280, 800});
    hover(u"Notes"_s);
    ASSERT_EQ(engine().screenyViews().size(), 15U);
    EXPECT_EQ(sum(play(0)), 0);
    const auto alone = play(1);
    EXPECT_GE(alone[0], 25);
    EXPECT_EQ(sum(alone), alone[0]);
    std::size_t film = 0;
    while (preview(film).elementRef()->wid() != m_windows[0])
        ++film;
    EXPECT_FALSE(isExact(film)) << "while it plays, this costs less";
    const int whileItPlayed = desk.captures(m_windows[0]);
    loop.advance(1);
    EXPECT_TRUE(isExact(film));
    EXPECT_EQ(desk.captures(m_windows[0]), whileItPlayed + 1) << "once, where it stopped";
    const auto [slowest, fastest] = std::ranges::minmax(play(15));
    EXPECT_GE(slowest, 5);
    EXPECT_LE(fastest, 8);
    EXPECT_LE(m_roundRate, 8) << "nobody looks at one of them: all are painted together";

    const std::size_t hovered = 4;
    movePointerTo(preview(hovered));
    preview(hovered).mouseEntered();
    const auto shown = engine().screenyViews();
    auto rates = play(15);
    EXPECT_LE(sum(rates), 105);
    EXPECT_GE(m_roundRate, 20);
    const auto window = std::ranges::find(m_windows, shown[hovered]->elementRef()->wid());
    ASSERT_NE(window, m_windows.end());
    const auto index = static_cast<std::size_t>(window - m_windows.begin());
    EXPECT_GE(rates[index], 20);
    rates.erase(rates.begin() + static_cast<std::ptrdiff_t>(index));
    EXPECT_GE(std::ranges::min(rates), 4);

    // Large ones are slower, and none of them is left out.
    std::swap(m_windows[0], m_windows[index]);
    m_windows.resize(5);
    for (const WindowID each : m_windows)
        desk.changeWindow(each, [](auto& large) { large.frame.setSize({3840, 2160}); });
    loop.advance(1);
    rates = play(5);
    EXPECT_LE(sum(rates), 20);
    EXPECT_GE(rates[0], 4);
    EXPECT_GE(std::ranges::min(rates), 1);
    preview(hovered).mouseExited();
    hover(u"Notes"_s);
    rates = play(5);
    EXPECT_GE(m_roundRate, 0.8 * sum(rates)) << "one by one";
}

TEST_F(PictureFeedTest, films_areDrawnByTheServerWhereItCan_andCapturedOnceTheyRest)
{
    addFilms(2, {100, 60});
    hover(u"Notes"_s);
    QApplication::processEvents(); // they are on the screen
    desk.with([](SimulatedState& state) { state.drawsPictures = true; });
    const std::size_t film = preview(0).elementRef()->wid() == m_windows[0] ? 0 : 1;
    const auto drawings = [this] { return desk.drawings(m_windows[0]); };
    const auto latest = [this] {
        return desk.with(
            [&](SimulatedState& state) { return state.window(m_windows[0])->version; });
    };
    EXPECT_EQ(play(2)[0], 0.5) << "before it was known to move, and once again";
    ASSERT_GE(drawings().size(), 60U);
    EXPECT_NE(version(film), latest());
    const auto plain = drawings().back().surface;
    EXPECT_EQ(plain.picture.size(), preview(film).image().size());

    // Where the toolkit has to paint meanwhile, it is nothing that is older than what is seen.
    movePointerTo(preview(film));
    preview(film).mouseEntered();
    preview(film).window()->grab();
    EXPECT_EQ(version(film), latest());
    play(1);
    const auto hovered = drawings().back().surface;
    EXPECT_EQ(hovered.picture, plain.picture);
    const auto liesWithin = [&](const platform::PictureSurface& surface, int edge) {
        return plain.picture.adjusted(edge, edge, -edge, -edge)
            .contains(surface.free.boundingRect());
    };
    EXPECT_FALSE(liesWithin(plain, 1));
    EXPECT_TRUE(liesWithin(hovered, 4)) << "a ring is about it";

    // Well before the set is looked at again.
    loop.advance(0.7);
    EXPECT_EQ(version(film), latest());
    for (int i = 0; i < 3; ++i) {
        show(m_windows[0]);
        loop.advance(1.0 / 30);
    }
    EXPECT_NE(version(film), latest());
    loop.advance(PictureFeed::restInterval + 0.01);
    EXPECT_EQ(version(film), latest());
    EXPECT_TRUE(isExact(film));
    const auto seen = drawings().size();
    settings().zoomWindows = 1;
    preview(film).mouseEntered();
    loop.advance(0.4);
    ASSERT_TRUE(preview(film).isZoomed());
    EXPECT_GE(play(1)[0], 20) << "whole ones are needed";
    EXPECT_EQ(drawings().size(), seen);

    // While it is still and zoomed, the other one's turn comes.
    const int before = desk.captures(m_windows[1]);
    for (int i = 0; i < 30 * 4; ++i) {
        show(m_windows[1]);
        loop.advance(1.0 / 30);
    }
    EXPECT_EQ(desk.captures(m_windows[1]), before + 2);
}

TEST_F(PictureFeedTest, filmsThatAreDrawn_areHeardOfAsOftenAsNeeded_andCapturedInTurn)
{
    addFilms(10, {100, 60});
    hover(u"Notes"_s);
    QApplication::processEvents();
    desk.with([](SimulatedState& state) { state.drawsPictures = true; });
    const auto count = [this](std::size_t film) {
        const auto drawings = desk.drawings(m_windows[film]);
        return std::pair(drawings.size(),
                         std::ranges::count_if(drawings, &platform::PictureDrawing::tellsNext));
    };
    play(1);
    const auto [alone, toldAlone] = count(0);
    EXPECT_GE(alone, 100U);
    EXPECT_EQ(toldAlone, alone) << "it is shown as often as it changes";

    play(10); // until each is known to move
    std::vector<double> all(10);
    const auto before = count(3);
    for (int i = 0; i < 3; ++i) { // twelve seconds
        const auto rates = play(10);
        EXPECT_LE(sum(rates), 2) << "one by one";
        std::ranges::transform(all, rates, all.begin(), std::plus());
    }
    EXPECT_GT(*std::ranges::min_element(all), 0);
    const auto after = count(3);
    EXPECT_GE(after.first - before.first, 12 * 8U);
    const auto told = after.second - before.second;
    EXPECT_GE(told, 12 * 2);
    EXPECT_LE(told, 12 / PictureFeed::tellingInterval);

    loop.advance(PictureFeed::tellingInterval + PictureFeed::maxRoundInterval +
                 PictureFeed::restInterval);
    loop.runUntilIdle();
    for (std::size_t i = 0; i < 10; ++i)
        EXPECT_TRUE(isExact(i)) << i;
}

TEST_F(PictureFeedTest, changedWindow_isShownAtOnce_whileItsRowIsUpAndPicturesAreAlive)
{
    addFilms(2, {400, 300});
    hover(u"Notes"_s);
    const WindowID first = preview(0).elementRef()->wid();
    for (int expected = 1; expected <= 3; ++expected) {
        loop.advance(0.2);
        show(first);
        loop.runUntilIdle();
        EXPECT_EQ(version(0), expected);
        EXPECT_TRUE(isExact(0));
        EXPECT_EQ(version(1), 0);
        EXPECT_EQ(loop.runningThreads("capture"), 0);
    }
    // In full size too.
    settings().zoomWindows = 1;
    movePointerTo(preview(0));
    preview(0).mouseEntered();
    loop.advance(0.4);
    ASSERT_TRUE(preview(0).isZoomed());
    show(first);
    loop.runUntilIdle();
    const auto* zoomed = preview(0).zoomWindow()->findChild<PictureView*>();
    EXPECT_EQ(zoomed->image().pixel(0, 0) & 0xff, 4U);
    EXPECT_EQ(version(0), 4);

    settings().disableLivePreviews = 1;
    loop.advance(0.5);
    const int before = desk.captures(first);
    EXPECT_EQ(sum(play(2)), 0);
    settings().disableLivePreviews = 0;
    loop.advance(0.6);
    EXPECT_EQ(desk.captures(first), before + 2) << "what it missed, whole and reduced";
    preview(0).mouseExited();
    leave(2);
    ASSERT_EQ(panelsOnScreen(), 0);
    EXPECT_EQ(sum(play(2)), 0);
}

TEST_F(PictureFeedTest, picturesOfARound_areShownTogether)
{
    SlowWindowServer slow(desk.windowServer());
    addFilmsOf(slow, 5);
    hover(u"Notes"_s);
    loop.advance(1);
    slow.duration = 0.002;
    for (const WindowID window : m_windows)
        show(window);
    const auto fresh = [this] {
        int count = 0;
        for (std::size_t i = 0; i < 5; ++i)
            count += version(i);
        return count;
    };
    // The first one that is heard of at once, the others in the next round, two at a time.
    loop.advance(PictureFeed::roundInterval + 0.003);
    EXPECT_EQ(fresh(), 1);
    loop.advance(0.003);
    EXPECT_EQ(fresh(), 5);
}

// As the pointer's arrival has pictures captured, too.
TEST_F(PictureFeedTest, pictureThatIsFreshByNow_comesWithTheRow_andIsNotCapturedAgain)
{
    SlowWindowServer slow(desk.windowServer());
    addFilmsOf(slow, 2);
    hover(u"Notes"_s);
    leave(2);
    for (const WindowID window : m_windows)
        show(window);
    desk.addWindow(m_notes, {u"never seen"_s, QRectF(0, 0, 400, 300)});
    slow.duration = 0.02;
    hover(u"Notes"_s);
    ASSERT_EQ(engine().screenyViews().size(), 3U);
    EXPECT_TRUE(preview(0).isHeld());
    const int before = desk.captures(m_windows[0]);
    desk.windowServer().captureWindow(m_windows[0], {});
    loop.advance(0.021);
    const auto versionOf = [this](WindowID window) {
        std::size_t place = 0;
        while (preview(place).elementRef()->wid() != window)
            ++place;
        return version(place);
    };
    EXPECT_FALSE(preview(0).isHeld());
    EXPECT_EQ(versionOf(m_windows[0]), 1);
    EXPECT_EQ(versionOf(m_windows[1]), 0);
    loop.advance(0.1);
    EXPECT_EQ(versionOf(m_windows[1]), 1);
    EXPECT_EQ(desk.captures(m_windows[0]), before + 1);
    show(m_windows[0]);
    loop.advance(0.1);
    EXPECT_EQ(versionOf(m_windows[0]), 2) << "it is followed";
}

TEST_F(PictureFeedTest, row_comesAtOnceWithOldPictures_andFreshOnesFollow)
{
    SlowWindowServer slow(desk.windowServer());
    addFilmsOf(slow, 3);
    hover(u"Notes"_s);
    loop.advance(0.1);
    leave(2);
    slow.duration = 0.4;
    for (const WindowID window : m_windows)
        show(window);
    hover(u"Notes"_s);
    ASSERT_EQ(engine().screenyViews().size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_FALSE(preview(i).isHeld());
        EXPECT_EQ(version(i), 0);
    }
    loop.advance(0.9);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(version(i), 1);
    // Its preview goes while it is being copied.
    show(m_windows[0]);
    loop.runUntilIdle();
    EXPECT_EQ(loop.runningThreads("capture"), 1);
    desk.closeWindow(m_windows[0]);
    loop.advance(0.6);
    EXPECT_EQ(engine().screenyViews().size(), 2U);
    show(m_windows[1]);
    loop.advance(1);
    EXPECT_EQ(loop.runningThreads("capture"), 0);
    EXPECT_EQ(version(preview(0).elementRef()->wid() == m_windows[1] ? 0 : 1), 2);
}

} // namespace
} // namespace lumbrix::test
