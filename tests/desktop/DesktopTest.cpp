// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "DesktopTest.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <map>

#include "Colours.h"
#include "Lumbrix.h"

namespace lumbrix::privatedesk
{

namespace
{

/// Starting a desktop takes longer than most tests, so each is kept until a test fails on it.
std::map<std::string, std::unique_ptr<Desk>>& desks()
{
    static std::map<std::string, std::unique_ptr<Desk>> all;
    return all;
}

std::string named(const std::string& dock, Edge edge)
{
    return edge == Edge::Bottom ? dock : dock + '_' + nameOf(edge);
}

std::string join(const std::vector<QByteArray>& titles)
{
    std::string result;
    for (const QByteArray& title : titles)
        result += "\n  " + title.left(80).toStdString();
    return result;
}

} // namespace

DeskOptions plank(Edge edge) { return {named("plank", edge), DockKind::Plank, edge, {}}; }

DeskOptions tint2(Edge edge)
{
    return {
        named("tint2", edge), DockKind::Tint2, edge, {{1280, 1024}, WindowManager::Openbox, false}};
}

DeskOptions enlarged(Edge edge)
{
    DeskOptions options = plank(edge);
    options.name += "_enlarged";
    options.session.size = {2048, 1536};
    options.session.scale = 2;
    return options;
}

DeskOptions xfcePanel(Edge edge)
{
    return {named("xfce4_panel", edge), DockKind::XfcePanel, edge, {}};
}

DeskOptions panelAndPlank()
{
    SessionOptions session;
    session.accessibility = true;
    return {"panel_and_plank", DockKind::Plank, Edge::Bottom, session, DockKind::XfcePanel};
}

DeskOptions onSecondMonitor(DeskOptions options, const std::string& arrangement)
{
    std::pair<QPoint, QRect> place{{160, 900}, {0, 0, 1600, 900}}; // above
    if (arrangement == "right")
        place = {{0, 0}, {1280, 0, 1024, 768}};
    else if (arrangement == "left")
        place = {{1024, 0}, {0, 400, 1024, 768}};
    options.name += "_monitor_" + arrangement;
    options.session.monitors = {{firstMonitor, {place.first, options.session.size}},
                                {secondMonitor, place.second}};
    options.monitor = secondMonitor;
    return options;
}

Program programOf(DockKind kind)
{
    constexpr Program programs[] = {{"Plank", "plank"},
                                    {"tint2", "tint2"},
                                    {"xfce4-panel", "xfce4-panel"},
                                    {"xfce4-panel as it comes", "xfce4-panel"},
                                    {"mate-panel", "mate-panel"},
                                    {"lxqt-panel", "lxqt-panel"}};
    return programs[static_cast<int>(kind)];
}

Program programOf(WindowManager manager)
{
    constexpr Program programs[] = {
        {"xfwm4", "xfwm4"}, {"Openbox", "openbox"}, {"Marco", "marco"}, {"KWin", "kwin_x11"}};
    return programs[static_cast<int>(manager)];
}

double portionOf(const QImage& picture, const QColor& colour)
{
    const QColor lower = lowerColour(colour);
    double upperCount = 0;
    double lowerCount = 0;
    double upperHeight = 0;
    double lowerHeight = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            if (isAbout(line[x], colour, 24)) {
                ++upperCount;
                upperHeight += y;
            } else if (isAbout(line[x], lower, 24)) {
                ++lowerCount;
                lowerHeight += y;
            }
        }
    }
    if (upperCount == 0 || lowerCount == 0 || upperHeight / upperCount > lowerHeight / lowerCount)
        return 0;
    return std::min(upperCount, lowerCount) / (picture.width() * picture.height());
}

Pixels pixelsOf(const QImage& picture, const std::function<bool(QRgb)>& areSought)
{
    Pixels found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (areSought(picture.pixel(x, y))) {
                ++found.count;
                found.box |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

void DesktopTest::SetUp()
{
    if (!GetParam().session.monitors.empty() && !hasMonitorServer())
        GTEST_SKIP() << "Xorg does not start with its dummy driver";
    std::unique_ptr<Desk>& kept = desks()[GetParam().name];
    if (!kept)
        kept = std::make_unique<Desk>(GetParam());
    m_desk = kept.get();
    m_desk->startLumbrix();
}

void DesktopTest::TearDown()
{
    if (!m_desk)
        return;
    EXPECT_TRUE(m_desk->lumbrix().isRunning()) << "Lumbrix has gone";
    EXPECT_EQ(m_desk->complaints().toStdString(), "");
    if (HasFailure()) {
        savePicture("failed");
        std::cerr << qPrintable(m_desk->session().logs());
    }
    m_desk->park();
    m_applications.clear();
    EXPECT_TRUE(showsNothing());
    if (HasFailure())
        desks().erase(GetParam().name);
}

Application& DesktopTest::launch(const QString& identifier, int windows)
{
    m_applications.push_back(m_desk->launch(identifier));
    m_applications.back()->open(windows);
    return *m_applications.back();
}

void DesktopTest::hover(const Application& application)
{
    ASSERT_TRUE(m_desk->hover(application)) << "the dock shows no icon";
}

Result DesktopTest::match(const Application& application)
{
    const std::vector<Panel> shown = display().previews();
    std::vector<QByteArray> titles;
    titles.reserve(shown.size());
    for (const Panel& panel : shown)
        titles.push_back(panel.title);
    std::vector<QByteArray> expected = application.titles();
    if (!std::is_permutation(titles.begin(), titles.end(), expected.begin(), expected.end()))
        return testing::AssertionFailure()
               << "expected the previews" << join(expected) << "\nbut saw" << join(titles);
    // Windows of the same title are told apart by their pictures alone.
    std::vector<AppWindow> left = application.windows();
    for (const Panel& panel : shown) {
        const QImage picture = display().picture(panel.geometry);
        const auto found = std::find_if(left.begin(), left.end(), [&](const AppWindow& window) {
            return window.title == panel.title && portionOf(picture, window.colour) > 0.1;
        });
        if (found == left.end())
            return testing::AssertionFailure()
                   << "the preview '" << panel.title.left(80).toStdString()
                   << "' shows something else";
        left.erase(found);
    }
    return testing::AssertionSuccess();
}

Result DesktopTest::shows(const Application& application, int milliseconds)
{
    Result result = testing::AssertionFailure();
    display().waitFor([&] { return bool(result = match(application)); }, patience(milliseconds));
    if (!result)
        result << '\n' << inspect().constData();
    return result;
}

Result DesktopTest::hoverShows(const Application& application, int milliseconds)
{
    if (!m_desk->hover(application))
        return testing::AssertionFailure() << "the dock shows no icon";
    return shows(application, milliseconds);
}

QByteArray DesktopTest::inspect()
{
    const auto process =
        m_desk->session().start(u"inspect"_s, lumbrixBinary(), {u"--inspect"_s}, true);
    QByteArray report;
    while (const auto line = process->readLine(patience(10'000)))
        report += *line + '\n';
    EXPECT_EQ(process->waitForExit(patience(2000)), 0);
    EXPECT_TRUE(m_desk->session().log(u"inspect"_s).contains(u"Point at an icon"_s));
    return report;
}

Result DesktopTest::showsNothing(int milliseconds)
{
    if (display().waitFor([&] { return display().panels().empty(); }, patience(milliseconds)))
        return testing::AssertionSuccess();
    Result result = testing::AssertionFailure();
    for (const Panel& panel : display().panels())
        result << "still on the screen: " << panel.role.toStdString() << " '"
               << panel.title.left(80).toStdString() << "'\n";
    return result;
}

Result DesktopTest::parkShowsNothing()
{
    m_desk->park();
    return showsNothing();
}

Result DesktopTest::waitUntil(const std::function<bool()>& condition, int milliseconds)
{
    if (display().waitFor(condition, patience(milliseconds)))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "not within " << milliseconds << " ms";
}

std::optional<Panel> DesktopTest::preview(const QByteArray& title)
{
    for (const Panel& panel : display().previews())
        if (panel.title == title)
            return panel;
    return std::nullopt;
}

QRect DesktopTest::row()
{
    QRect all;
    for (const Panel& panel : display().previews())
        all |= panel.geometry;
    return all;
}

std::optional<Panel> DesktopTest::window(const QString& role)
{
    for (const auto& windows : {display().panels(), display().managedWindows()})
        if (const auto found = std::ranges::find(windows, role, &Panel::role);
            found != windows.end())
            return *found;
    return std::nullopt;
}

Result DesktopTest::getsFocus(const QString& role)
{
    return waitUntil([&] {
               const auto found = window(role);
               return found && display().activeWindow() == found->id;
           })
           << "no window '" << role.toStdString() << "' with the focus";
}

QByteArray DesktopTest::settings()
{
    QFile file(settingsPath(m_desk->session()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Result DesktopTest::isBeside(const QRect& monitor, Edge edge)
{
    const QPoint pointer = display().pointer();
    const auto text = [](const QRect& rect) {
        return testing::Message() << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x'
                                  << rect.height();
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
    if (!monitor.contains(row) || !isAlong || gap < 24 || gap > 110 * GetParam().session.scale)
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

void DesktopTest::moveToPreview(const QByteArray& title)
{
    const auto panel = preview(title);
    ASSERT_TRUE(panel.has_value()) << "no preview of " << title.constData();
    const QPoint target = panel->geometry.center();
    const QPoint icon = display().pointer();
    display().moveTo(isHorizontal(m_desk->dock().edge()) ? QPoint(icon.x(), target.y())
                                                         : QPoint(target.x(), icon.y()));
    display().moveTo(target);
}

void DesktopTest::savePicture(const char* what)
{
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    QString name = QString::fromLatin1(test->name()) + u'.' + QString::fromLatin1(what);
    m_desk->savePicture(name.replace(u'/', u'.'));
}

} // namespace lumbrix::privatedesk

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    lumbrix::privatedesk::desks().clear();
    return result;
}
