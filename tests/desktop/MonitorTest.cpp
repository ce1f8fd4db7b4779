// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Two monitors, in several arrangements, with a dock on the second one, which is not the primary.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

namespace
{

const QString first = u"DUMMY0"_qs;
const QString second = u"DUMMY1"_qs;

DeskOptions monitors(const char* arrangement, const QRect& primary, const QRect& other)
{
    DeskOptions options{.name = std::string("monitors_") + arrangement, .session = {}};
    options.session.monitors = {{first, primary}, {second, other}};
    options.monitor = second;
    return options;
}

const char* nameOf(DockKind kind)
{
    switch (kind) {
    case DockKind::Tint2:
        return "tint2";
    case DockKind::XfcePanel:
        return "xfce4-panel";
    default:
        return "plank";
    }
}

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

    /// Whether all that is shown is on that monitor, the row beside the pointer's icon.
    Result isBeside(const QRect& monitor, Edge edge)
    {
        const QPoint pointer = display().pointer();
        const auto text = [](const QRect& rect) {
            return testing::Message()
                   << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
        };
        QRect row;
        for (const Panel& panel : display().previews()) {
            if (row.intersects(panel.geometry))
                return testing::AssertionFailure() << "previews overlap";
            row |= panel.geometry;
        }
        const bool isAlong = isHorizontal(edge)
                                 ? row.left() <= pointer.x() && pointer.x() <= row.right()
                                 : row.top() <= pointer.y() && pointer.y() <= row.bottom();
        const int gap = edge == Edge::Bottom ? pointer.y() - row.bottom()
                        : edge == Edge::Top  ? row.top() - pointer.y()
                        : edge == Edge::Left ? row.left() - pointer.x()
                                             : pointer.x() - row.right();
        if (!monitor.contains(row) || !isAlong || gap < 24 || gap > 100)
            return testing::AssertionFailure()
                   << "the row is at " << text(row) << ", the pointer at " << pointer.x() << ','
                   << pointer.y() << ", the monitor " << text(monitor);
        for (const Panel& panel : display().panels()) {
            if (!monitor.contains(panel.geometry))
                return testing::AssertionFailure()
                       << panel.role.toStdString() << " at " << text(panel.geometry);
        }
        return testing::AssertionSuccess();
    }
};

INSTANTIATE_TEST_SUITE_P(
    , MonitorTest,
    testing::Values(monitors("right", {0, 0, 1280, 1024}, {1280, 0, 1024, 768}),
                    monitors("left", {1024, 0, 1280, 1024}, {0, 400, 1024, 768}),
                    monitors("above", {160, 900, 1280, 1024}, {0, 0, 1600, 900})),
    deskName);

TEST_P(MonitorTest, rows_ofADockThatIsMoved_areBesideTheIconOnItsMonitor)
{
    Application& alpha = launch(u"alpha"_qs);
    for (int i = 0; i < 5; ++i)
        open(alpha, "alpha " + QByteArray::number(i), QColor::fromHsv(i * 60, 255, 230),
             i % 2 == 0 ? first : second);
    Application& beta = launch(u"beta"_qs);
    open(beta, "beta", Qt::darkCyan, first);
    for (const DockKind kind : {DockKind::Plank, DockKind::Tint2, DockKind::XfcePanel}) {
        SCOPED_TRACE(nameOf(kind));
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
            savePicture(nameOf(kind));
            desk().park();
            EXPECT_TRUE(showsNothing());
        }
    }
}

TEST_P(MonitorTest, windowOnTheOtherMonitor_hoveredAndClicked_isShownAndRaisedThere)
{
    Application& alpha = launch(u"alpha"_qs);
    const AppWindow far = open(alpha, "far", Qt::red, first);
    open(alpha, "near", Qt::blue, second);
    Application& beta = launch(u"beta"_qs);
    beta.open("above it", Qt::green, {{500, 400}, area(first).center() - QPoint(250, 200)});
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    moveToPreview(far.title);
    const QRect place = display().geometry(far.id).value_or(QRect());
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::any_of(display().panels(),
                                   [&](const Panel& panel) {
                                       return panel.role == u"zoom"_qs &&
                                              panel.geometry.contains(place) &&
                                              area(first).contains(panel.geometry);
                                   }) &&
               portionOf(display().picture(place), far.colour) > 0.4;
    }));
    savePicture("zoom");
    display().click();
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == far.id; }));
    desk().park();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(waitUntil([&] { return portionOf(display().picture(place), far.colour) > 0.4; }));
}

TEST_P(MonitorTest, monitorOfTheRow_switchedOffAndOn_takesItAlongAndBack)
{
    const std::vector<Monitor> both = desk().session().monitors();
    const Application& alpha = launch(u"alpha"_qs, 2);
    for (const DockKind kind : {DockKind::Plank, DockKind::Tint2, DockKind::XfcePanel}) {
        SCOPED_TRACE(nameOf(kind));
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
        desk().park();
        EXPECT_TRUE(showsNothing());
    }
}

} // namespace lumbrix::privatedesk
