// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What hands do on a row without leaving it: the wheel, and the entry for what it has no room for.

#include <QtWidgets/QApplication>

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class RowHandsTest : public EngineFixture
{
protected:
    /// The places of the previews that look hovered.
    static QString hovered()
    {
        QString places;
        for (std::size_t i = 0; i < engine().screenyViews().size(); ++i)
            if (engine().screenyViews()[i]->isHovered())
                places += QString::number(i);
        return places;
    }
    void turn(std::size_t over, int steps)
    {
        static_cast<PreviewHost&>(engine()).wheelTurned(preview(over), steps);
        loop.advance(0.2);
    }
    MoreEntry& more() { return engine().row().more(); }
};

TEST_F(RowHandsTest, wheel_choosesWhatAClickMeans_untilTheMouseMoves)
{
    add(u"Notes"_s, 3);
    hover(u"Notes"_s);
    movePointerTo(preview(1));
    loop.advance(0.2);
    const QPointF mouse = preview(1).window()->frame().center();
    for (const auto& [steps, expected] :
         {std::pair(1, "2"), std::pair(5, "2"), std::pair(-1, "1"), std::pair(-5, "0")}) {
        turn(1, steps);
        EXPECT_EQ(hovered(), QString::fromLatin1(expected)) << steps;
    }
    EXPECT_EQ(&engine().meantBy(preview(1)), &preview(0));
    desk.movePointer(mouse + QPointF(4, 0)); // the hand on the wheel
    loop.advance(1);
    EXPECT_EQ(hovered(), u"0"_s);
    desk.movePointer(mouse + QPointF(30, 0));
    loop.advance(0.2);
    EXPECT_EQ(hovered(), u"1"_s);
    EXPECT_EQ(&engine().meantBy(preview(1)), &preview(1));

    turn(1, 1);
    desk.closeWindow(preview(2).elementRef()->wid());
    loop.advance(1);
    EXPECT_EQ(hovered(), u"1"_s) << "the chosen one has gone";
    turn(1, -1);
    desk.movePointer({20, 880});
    loop.advance(1.5);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_TRUE(isAtRest());
    EXPECT_EQ(loop.runningThreads(), 1) << "the one that scans";
    desk.openSwitcher({{u"Notes"_s}});
    loop.runUntilIdle();
    turn(0, 1);
    EXPECT_EQ(&engine().meantBy(preview(0)), &preview(0)) << "the switcher has its own wheel";
}

TEST_F(RowHandsTest, entryForMore_turnsThePage_andKeepsTheRow)
{
    settings().distanceFromDock = 10;
    settings().previewStyle = 3;
    add(u"Notes"_s, 20);
    add(u"Maps"_s, 15);
    hover(u"Maps"_s);
    EXPECT_EQ(more().text(), u""_s);
    leave(1);
    hover(u"Notes"_s);
    const QString first = shown();
    for (const auto& [count, next] : {std::pair(15U, "+5 more"), std::pair(5U, "+15 more")}) {
        EXPECT_EQ(engine().screenyViews().size(), count);
        EXPECT_EQ(more().text(), QString::fromLatin1(next));
        EXPECT_EQ(more().frame().top(), preview(0).window()->frame().bottom()) << "above the row";
        EXPECT_EQ(more().frame().center().x(), desk.dockItemFrame(u"Notes"_s).center().x());
        const auto panels = QApplication::topLevelWidgets();
        const auto entry = std::ranges::find(panels, u"more"_s, &QWidget::windowRole);
        ASSERT_NE(entry, panels.end());
        EXPECT_EQ((*entry)->property("overlayColor").value<QColor>().rgb(),
                  preview(0).bubbleColor().rgb());
        desk.movePointer(more().frame().center());
        loop.advance(2);
        EXPECT_EQ(engine().screenyViews().size(), count) << "the mouse is on the entry";
        more().click();
        loop.advance(0.5);
    }
    EXPECT_EQ(shown(), first);
    more().click();
    desk.movePointer({20, 880});
    loop.advance(2);
    EXPECT_EQ(more().text(), u""_s);
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), first) << "not the page that was shown last";
    desk.quitApplication(desk.window(desk.stacking().back())->pid);
    loop.advance(1);
    EXPECT_EQ(shown() + more().text(), u""_s) << "the application has gone";
}

} // namespace
} // namespace lumbrix::test
