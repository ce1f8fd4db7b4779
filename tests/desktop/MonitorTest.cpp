// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Two monitors, in several arrangements, with a dock on the second one, which is not the primary.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

namespace
{

const QString first = firstMonitor;
const QString second = secondMonitor;

} // namespace

class MonitorTest : public DesktopTest
{
protected:
    QRect area(const QString& monitor) { return desk().session().monitorArea(monitor); }

    /// Opens a window in the middle of that monitor.
    AppWindow open(Application& application, const QByteArray& title, const QColor& colour,
                   const QString& monitor)
    {
        const QSize size(300, 200);
        return application.open(title, colour, {size, area(monitor).center() - QPoint(150, 100)});
    }

    /// Waits until the application's previews are in a row beside the pointer's icon, inside of the
    /// monitor, and of another part of the screen none of Lumbrix's windows takes any.
    Result showsOn(const QString& monitor, Edge edge, const Application& application)
    {
        if (const Result shown = shows(application); !shown)
            return shown;
        Result result = testing::AssertionFailure();
        display().waitFor([&] { return bool(result = isBeside(area(monitor), edge)); },
                          patience(2000));
        return result;
    }
};

INSTANTIATE_TEST_SUITE_P(, MonitorTest,
                         testing::Values(onSecondMonitor(plank(), "right"),
                                         onSecondMonitor(plank(), "left"),
                                         onSecondMonitor(plank(), "above")),
                         deskName);

TEST_P(MonitorTest, rows_ofADockThatIsMoved_areBesideTheIconOnItsMonitor)
{
    Application& alpha = launch(u"alpha"_s);
    for (int i = 0; i < 5; ++i)
        open(alpha, "alpha " + QByteArray::number(i), QColor::fromHsv(i * 60, 255, 230),
             i % 2 == 0 ? first : second);
    Application& beta = launch(u"beta"_s);
    open(beta, "beta", Qt::darkCyan, first);
    for (const DockKind kind : {DockKind::Plank, DockKind::Tint2, DockKind::XfcePanel}) {
        SCOPED_TRACE(programOf(kind).shown);
        if (kind != DockKind::Plank)
            desk().changeDock(kind, {Edge::Bottom, second});
        for (const DockPlace& place : {DockPlace(Edge::Left, second), DockPlace(Edge::Top, first),
                                       DockPlace(Edge::Bottom, second)}) {
            desk().dock().moveTo(place);
            SCOPED_TRACE(testing::Message()
                         << int(place.edge) << " of " << qPrintable(place.monitor));
            for (const Application* application : {&alpha, &beta}) {
                hover(*application);
                EXPECT_TRUE(showsOn(place.monitor, place.edge, *application));
            }
            savePicture(programOf(kind).command);
            EXPECT_TRUE(parkShowsNothing());
        }
    }
}

TEST_P(MonitorTest, monitorOfTheRow_switchedOffAndOn_takesItAlongAndBack)
{
    const std::vector<Monitor> both = desk().session().monitors();
    const Application& alpha = launch(u"alpha"_s, 2);
    for (const DockKind kind : {DockKind::Plank, DockKind::Tint2, DockKind::XfcePanel}) {
        SCOPED_TRACE(programOf(kind).shown);
        desk().changeDock(kind, {Edge::Bottom, second});
        hover(alpha);
        ASSERT_TRUE(showsOn(second, Edge::Bottom, alpha));
        desk().session().setMonitors({both.front()});
        EXPECT_TRUE(waitUntil([&] {
            return display().panels().empty() || isBeside(area(first), Edge::Bottom);
        })) << "left over";
        if (kind == DockKind::Plank)
            desk().dock().moveTo({Edge::Bottom, second});
        if (kind != DockKind::XfcePanel) { // which goes with the monitor that was chosen for it
            EXPECT_TRUE(waitUntil([&] { return desk().dock().isInPlace(); }));
            hover(alpha);
            EXPECT_TRUE(showsOn(first, Edge::Bottom, alpha));
        }
        desk().session().setMonitors(both);
        if (kind == DockKind::Plank)
            desk().dock().moveTo({Edge::Bottom, second});
        EXPECT_TRUE(waitUntil([&] { return desk().dock().isInPlace(); }));
        hover(alpha);
        EXPECT_TRUE(showsOn(second, Edge::Bottom, alpha));
        EXPECT_TRUE(parkShowsNothing());
    }
}

// Of one program, with the windows of its monitor on each.
TEST_P(MonitorTest, dockOnEachMonitor_hoveredInTurn_hasTheRowBesideIt)
{
    desk().changeDock(DockKind::Tint2, Edge::Bottom);
    Application& alpha = launch(u"alpha"_s);
    const AppWindow window = open(alpha, "alpha", Qt::red, first);
    Application& beta = launch(u"beta"_s);
    open(beta, "beta", Qt::blue, second);
    for (int i = 0; i < 2; ++i) {
        hover(alpha);
        EXPECT_TRUE(showsOn(first, Edge::Bottom, alpha));
        hover(beta);
        EXPECT_TRUE(showsOn(second, Edge::Bottom, beta));
    }
    savePicture("each");
    constexpr std::uint32_t toPlace = 0x300;
    const QPoint place = area(second).topLeft() + QPoint(50, 50);
    display().request(
        window.id, "_NET_MOVERESIZE_WINDOW",
        {toPlace, static_cast<std::uint32_t>(place.x()), static_cast<std::uint32_t>(place.y())});
    ASSERT_TRUE(waitUntil([&] {
        return area(second).contains(desk().iconOf(alpha).value_or(area(first).center()));
    }));
    hover(alpha);
    EXPECT_TRUE(showsOn(second, Edge::Bottom, alpha));
}

TEST_P(MonitorTest, dockThatHides_comingOut_hasTheRowBesideIt)
{
    for (const auto& [kind, identifier] :
         {std::pair(DockKind::Plank, u"alpha"_s), std::pair(DockKind::Tint2, u"beta"_s)}) {
        SCOPED_TRACE(programOf(kind).shown);
        desk().changeDock(kind, {Edge::Left, second, true});
        const Application& application = launch(identifier, 2);
        const QImage hidden = display().picture();
        display().moveTo(area(second).topLeft() + QPoint(0, area(second).height() / 2));
        // Whoever leaves the edge before the dock is there sends it back.
        ASSERT_TRUE(waitUntil([&] {
            const QPoint icon = desk().iconOf(application).value_or(QPoint());
            return display().picture().pixel(icon) != hidden.pixel(icon);
        }));
        hover(application);
        EXPECT_TRUE(showsOn(second, Edge::Left, application));
        savePicture((std::string("hides_") + programOf(kind).command).c_str());
        EXPECT_TRUE(parkShowsNothing());
    }
}

} // namespace lumbrix::privatedesk
