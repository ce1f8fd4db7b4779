// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The way from an icon to its row.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

/// Icons are 48 wide and high, 50 apart, and their middles 28 up; rows begin 34 above these.
class Corridor : public EngineFixture
{
protected:
    Corridor() { settings().keepOnTheWay = 1; }

    /// Hovers Notes and waits until nothing of the way there counts.
    void show(std::size_t windows)
    {
        hover(u"Notes"_s);
        loop.advance(1);
        m_start = desk.inputState().mouseLocation();
        ASSERT_EQ(engine().screenyViews().size(), windows);
        m_notes = shown();
    }
    /// In a straight line and at one pace, 300 points a second, to a place seen from the icon.
    void walk(QPointF target)
    {
        const QPointF start = desk.inputState().mouseLocation();
        const QPointF way = m_start + target - start;
        const int steps = static_cast<int>(std::hypot(way.x(), way.y()) / 3) + 1;
        for (int i = 1; i <= steps; ++i) {
            desk.movePointer(start + way * i / steps);
            loop.advance(0.01);
        }
    }

    const QPointF m_neighbour{50, 0};
    const QPointF m_onTheWay{46, 17}; ///< over the neighbour, to the fourth preview
    QPointF m_start;
    QString m_notes;
};

TEST_F(Corridor, wayOverANeighbour_alsoWithAShortRest_endsOnTheRow)
{
    add(u"Notes"_s, 4);
    add(u"Maps"_s, 1);
    for (const bool isOn : {false, true}) {
        settings().keepOnTheWay = isOn;
        show(4);
        walk(m_onTheWay);
        loop.advance(0.1);
        EXPECT_EQ(shown(), isOn ? m_notes : u"Maps 1"_s);
        walk({294, 109});
        loop.advance(1);
        EXPECT_EQ(shown() == m_notes, isOn);
    }
}

TEST_F(Corridor, neighbourMeant_comesWithoutWaiting)
{
    struct Case {
        std::vector<QPointF> ways;
        double rest; ///< in the end
    };
    const Case cases[] = {
        {{m_neighbour}, 0.05},
        {{m_neighbour + QPointF(4, 10)}, 0.05}, // as hands miss
        {{m_onTheWay, {50, -3}}, 0.05},         // turned away
        {{m_onTheWay}, 0.25},
    };
    add(u"Notes"_s, 3);
    const auto windows = desk.stacking();
    add(u"Maps"_s, 2);
    for (const std::size_t count : {3U, 1U}) {
        for (std::size_t i = count; i < 3 && desk.window(windows[i]); ++i)
            desk.closeWindow(windows[i]);
        loop.advance(3);
        for (const Case& each : cases) {
            show(count);
            for (const QPointF way : each.ways)
                walk(way);
            loop.advance(each.rest);
            EXPECT_EQ(shown(), u"Maps 2, Maps 1"_s) << count;
        }
    }
}

TEST_F(Corridor, itemsOfOtherKinds_waitToo)
{
    add(u"Notes"_s, 4); // the separator comes next
    show(4);
    walk(m_onTheWay);
    loop.advance(0.1);
    EXPECT_EQ(shown(), m_notes);
    loop.advance(0.15);
    EXPECT_EQ(shown(), u""_s);

    desk.minimizeWindow(desk.stacking().front()); // and behind it an icon for this window
    show(4);
    walk({91, 20});
    loop.advance(0.1);
    EXPECT_EQ(shown(), m_notes);
    loop.advance(0.15);
    EXPECT_EQ(shown(), u"Notes 4"_s);
}

// Beside the way that is bridged, the row went with the next tick, or when the delay was over.
TEST_F(Corridor, mouseOffTheDock_keepsTheRowWhileItHeadsForIt)
{
    add(u"Notes"_s, 1); // its row ends 94 to the right
    for (const float delay : {0.0F, 0.3F}) {
        settings().exitDelay = delay;
        show(1);
        desk.movePointer(m_start + QPointF(delay > 0 ? 196 : 136, 52));
        loop.runUntilIdle();
        loop.advance(delay > 0 ? 0.1 : 0);
        walk(delay > 0 ? QPointF(76, 82) : QPointF(80, 38)); // the rim is good enough
        loop.advance(1);
        EXPECT_EQ(shown(), m_notes) << delay;
        walk({146, 62});
        walk({101, 72});
        walk({101, 272});
        loop.advance(1);
        EXPECT_EQ(shown(), u""_s) << delay;
    }
}

} // namespace
} // namespace lumbrix::test
