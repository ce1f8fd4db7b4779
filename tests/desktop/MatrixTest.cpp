// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One tour of what previews are for, on each kind of desktop. scripts/matrix runs them all and
// writes docs/desktops.md from the properties that the tests record.
#include "DesktopTest.h"

#include <QtCore/QStandardPaths>

#include <functional>

namespace lumbrix::privatedesk
{

namespace
{

/// Why a step cannot be tried; null where it can. The page has the reasons below its table.
const char* whyImpossible(const DeskOptions& row, const std::string& step)
{
    return row.dock == DockKind::Tint2 && step == "menu" ? "tint2 has no menus" : nullptr;
}

DeskOptions matePanelAndPlank()
{
    DeskOptions options = panelAndPlank();
    options.name = "mate_panel_and_plank";
    options.session.windowManager = WindowManager::Marco;
    options.panel = DockKind::MatePanel;
    return options;
}

enum class Compositing { None, Own, Picom };

std::vector<DeskOptions> rows()
{
    using enum Compositing;
    const auto row = [](const char* name, DockKind dock, Edge edge, WindowManager manager,
                        Compositing compositing) {
        SessionOptions session{{1280, 1024}, manager, compositing == Own};
        session.picom = compositing == Picom;
        return DeskOptions{name, dock, edge, session};
    };
    constexpr Edge bottom = Edge::Bottom;
    std::vector<DeskOptions> all{
        row("stock_xfce", DockKind::StockXfcePanel, Edge::Top, WindowManager::Xfwm4, Own)};
    for (const auto desktop : {xfcePanel, tint2, plank})
        for (const Edge edge : {bottom, Edge::Top, Edge::Left, Edge::Right})
            all.push_back(desktop(edge));
    all.insert(
        all.end(),
        {enlarged(bottom),
         enlarged(Edge::Left),
         panelAndPlank(),
         matePanelAndPlank(),
         row("mate_panel", DockKind::MatePanel, bottom, WindowManager::Marco, Own),
         row("mate_panel_top", DockKind::MatePanel, Edge::Top, WindowManager::Marco, Own),
         row("mate_panel_plain", DockKind::MatePanel, bottom, WindowManager::Marco, None),
         row("mate_panel_picom", DockKind::MatePanel, bottom, WindowManager::Marco, Picom),
         row("lxqt_panel", DockKind::LxqtPanel, bottom, WindowManager::Openbox, None),
         row("lxqt_panel_top", DockKind::LxqtPanel, Edge::Top, WindowManager::Openbox, None),
         row("lxqt_panel_left", DockKind::LxqtPanel, Edge::Left, WindowManager::Openbox, None),
         row("lxqt_panel_picom", DockKind::LxqtPanel, bottom, WindowManager::Openbox, Picom),
         row("lxqt_panel_kwin", DockKind::LxqtPanel, bottom, WindowManager::KWin, Own),
         row("xfce4_panel_plain", DockKind::XfcePanel, bottom, WindowManager::Xfwm4, None),
         row("xfce4_panel_picom", DockKind::XfcePanel, bottom, WindowManager::Xfwm4, Picom),
         row("tint2_picom", DockKind::Tint2, bottom, WindowManager::Openbox, Picom),
         row("tint2_kwin", DockKind::Tint2, bottom, WindowManager::KWin, Own),
         row("plank_plain", DockKind::Plank, bottom, WindowManager::Xfwm4, None),
         row("plank_openbox", DockKind::Plank, bottom, WindowManager::Openbox, None),
         row("plank_picom", DockKind::Plank, bottom, WindowManager::Openbox, Picom),
         row("plank_marco", DockKind::Plank, bottom, WindowManager::Marco, Own),
         row("plank_kwin", DockKind::Plank, bottom, WindowManager::KWin, Own),
         row("plank_kwin_plain", DockKind::Plank, bottom, WindowManager::KWin, None),
         onSecondMonitor(plank(), "right"),
         onSecondMonitor(plank(Edge::Left), "left"),
         onSecondMonitor(tint2(), "left"),
         onSecondMonitor(tint2(Edge::Top), "above"),
         onSecondMonitor(xfcePanel(), "right"),
         onSecondMonitor(xfcePanel(), "above")});
    return all;
}

} // namespace

class MatrixTest : public DesktopTest
{
protected:
    using Icons = std::function<std::optional<QPoint>(const Application&)>;

    void SetUp() override
    {
        const DeskOptions& row = GetParam();
        std::vector<Program> programs{programOf(row.dock), programOf(row.session.windowManager)};
        if (row.panel)
            programs.push_back(programOf(*row.panel));
        if (row.session.picom)
            programs.push_back({"picom", "picom"});
        for (const Program& program : programs)
            if (QStandardPaths::findExecutable(QString::fromLatin1(program.command)).isEmpty())
                GTEST_SKIP() << program.command << " is not installed";
        DesktopTest::SetUp();
    }

    /// Records what the row is about.
    void describe(const std::string& dock, Edge edge)
    {
        const SessionOptions& session = GetParam().session;
        const bool hasOwn = session.compositor && session.windowManager != WindowManager::Openbox;
        RecordProperty("dock", dock);
        RecordProperty("edge", nameOf(edge));
        RecordProperty("window manager", programOf(session.windowManager).shown);
        RecordProperty("compositor", session.picom ? "picom" : hasOwn ? "its own" : "none");
        RecordProperty("monitors", session.monitors.empty() ? "1" : "2, " + arrangement());
        RecordProperty("scale", session.scale);
    }

    /// How the monitor with the dock lies to the primary one.
    static std::string arrangement()
    {
        const std::string& name = GetParam().name;
        const std::string last = name.substr(name.rfind('_') + 1);
        return last == "left" ? "left and lower" : last;
    }

    /// Takes one step of the tour, from a desktop without previews, and back to there.
    void step(const char* name, const std::function<Result()>& take)
    {
        if (const char* reason = whyImpossible(GetParam(), name)) {
            RecordProperty(name, std::string("none: ") + reason);
            return;
        }
        const Result result = take();
        if (!result)
            savePicture(name);
        RecordProperty(name, result ? "green" : std::string("red: ") + result.message());
        EXPECT_TRUE(result) << "in the step '" << name << '\'';
        EXPECT_TRUE(parkShowsNothing());
    }

    Result hovered(const Application& application)
    {
        const auto icon = m_icons(application);
        if (!icon)
            return testing::AssertionFailure() << "the dock shows no icon";
        display().moveTo(*icon);
        return shows(application);
    }
    Result hoveredOnPreview(const Application& application, const AppWindow& window)
    {
        if (const Result result = hovered(application); !result)
            return result;
        moveToPreview(window.title);
        return preview(window.title)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << "the preview went on the way to it";
    }

    /// What the docks keep for themselves, on the screen.
    std::vector<QRect> struts()
    {
        std::vector<QRect> result;
        const int width = display().size().width();
        const int height = display().size().height();
        for (const xcb_window_t window : display().numbers(display().root(), "_NET_CLIENT_LIST")) {
            const auto numbers = display().numbers(window, "_NET_WM_STRUT_PARTIAL");
            const std::vector<int> strut(numbers.begin(), numbers.end());
            if (strut.size() != 12)
                continue;
            const int startEnd[] = {strut[4], strut[5], strut[6],  strut[7],
                                    strut[8], strut[9], strut[10], strut[11]};
            const auto length = [&](int side) {
                return startEnd[side * 2 + 1] - startEnd[side * 2] + 1;
            };
            result.push_back({0, startEnd[0], strut[0], length(0)});
            result.push_back({width - strut[1], startEnd[2], strut[1], length(1)});
            result.push_back({startEnd[4], 0, length(2), strut[2]});
            result.push_back({startEnd[6], height - strut[3], length(3), strut[3]});
        }
        std::erase_if(result, [](const QRect& area) { return area.isEmpty(); });
        return result;
    }

    /// Whether the row that is shown is where it belongs, with the pointer on the icon.
    Result isInPlace(Edge edge)
    {
        const std::vector<QRect> docks = struts();
        if (docks.empty())
            return testing::AssertionFailure() << "the dock keeps no room for itself";
        for (const Panel& panel : display().previews()) {
            if (!panel.overrideRedirect)
                return testing::AssertionFailure() << "the window manager has it";
            const QRect& area = panel.geometry;
            if (isHorizontal(edge) ? area.top() != row().top() : area.left() != row().left())
                return testing::AssertionFailure() << "not in one row";
            if (std::ranges::any_of(docks,
                                    [&](const QRect& dock) { return dock.intersects(area); }))
                return testing::AssertionFailure() << "over the dock";
        }
        return isBeside(desk().session().monitorArea(GetParam().monitor), edge);
    }

    void tour(Dock& dock, const Icons& icons)
    {
        m_icons = icons;
        Application& alpha = launch(u"alpha"_s, 3);
        const Application& beta = launch(u"beta"_s, 2);
        step("previews", [&] {
            const xcb_window_t active = display().activeWindow();
            const Result result = hovered(alpha);
            savePicture("hover");
            return display().activeWindow() == active
                       ? result
                       : testing::AssertionFailure() << "the focus has moved";
        });
        step("place", [&] {
            const Result result = hovered(alpha);
            return result ? isInPlace(dock.edge()) : result;
        });
        step("switching", [&] {
            for (const Application& application :
                 {std::cref<Application>(alpha), std::cref(beta), std::cref<Application>(alpha)}) {
                if (const Result result = hovered(application); !result)
                    return result;
            }
            return testing::AssertionSuccess();
        });
        step("leaving", [&] {
            if (const Result result = hoveredOnPreview(alpha, alpha.windows()[1]); !result)
                return result;
            if (const Result result = shows(alpha); !result)
                return result;
            desk().park();
            return showsNothing();
        });
        step("raising", [&] {
            const AppWindow& window = alpha.windows().front();
            if (const Result result = hoveredOnPreview(alpha, window); !result)
                return result;
            if (display().activeWindow() == window.id)
                return testing::AssertionFailure() << "it had the focus before the click";
            display().click();
            return waitUntil([&] { return display().activeWindow() == window.id; });
        });
        step("closing", [&] {
            const AppWindow window = alpha.windows()[1];
            if (const Result result = hoveredOnPreview(alpha, window); !result)
                return result;
            display().moveTo(preview(window.title)->geometry.topLeft() +
                             closeButton * GetParam().session.scale);
            display().click();
            if (const Result result = waitUntil(
                    [&] { return alpha.closeRequests() == std::vector<int>{window.index}; });
                !result)
                return result;
            alpha.destroy(window); // already gone; only our list of the windows changes
            return shows(alpha);
        });
        step("menu", [&] {
            if (const Result result = hovered(alpha); !result)
                return result;
            display().click(3);
            if (!waitUntil([&] { return display().hasMenu(); }))
                return testing::AssertionFailure() << "the dock shows no menu";
            const Result result = showsNothing(1000);
            if (!display().hasMenu())
                return testing::AssertionFailure() << "the menu was closed, too";
            desk().park();
            display().click(); // beside it
            return waitUntil([&] { return !display().hasMenu(); })
                       ? result
                       : testing::AssertionFailure() << "the menu stays";
        });
        step("restart", [&] {
            if (const Result result = hovered(alpha); !result)
                return result;
            dock.kill();
            if (const Result result = showsNothing(); !result)
                return result;
            desk().park();
            dock.restart();
            // It is noticed within some seconds, and not by a pointer that was there before.
            Result found = testing::AssertionFailure();
            display().waitFor(
                [&] {
                    desk().park();
                    const auto icon = m_icons(alpha);
                    if (icon)
                        display().moveTo(*icon);
                    found = shows(alpha, 500);
                    return static_cast<bool>(found);
                },
                patience(8000));
            return found;
        });
    }

private:
    Icons m_icons;
};

INSTANTIATE_TEST_SUITE_P(, MatrixTest, testing::ValuesIn(rows()), deskName);

TEST_P(MatrixTest, dock_hovered_previewsItsWindows)
{
    std::string shown = programOf(GetParam().dock).shown;
    if (GetParam().panel)
        shown += std::string(" beside ") + programOf(*GetParam().panel).shown;
    describe(shown, GetParam().edge);
    tour(desk().dock(), [&](const Application& application) { return desk().iconOf(application); });
}

/// The panel at the top of a desktop that has a dock, too.
class PanelMatrixTest : public MatrixTest
{
};

INSTANTIATE_TEST_SUITE_P(, PanelMatrixTest, testing::Values(panelAndPlank(), matePanelAndPlank()),
                         deskName);

TEST_P(PanelMatrixTest, panelBesideTheDock_hovered_previewsItsWindows)
{
    const bool isMate = GetParam().panel == DockKind::MatePanel;
    describe(std::string(programOf(*GetParam().panel).shown) + " beside " +
                 programOf(GetParam().dock).shown,
             Edge::Top);
    // The windows tell where their icons are on the other dock. The panel lays its buttons out in
    // the order in which the windows came, of which there are three and two; one groups them.
    tour(desk().panel(), [&](const Application& application) -> std::optional<QPoint> {
        constexpr int handle = 20;
        const int breadth = isMate ? 193 : 200;
        const int number = application.identifier() == u"alpha"_s ? 0 : isMate ? 3 : 1;
        return QPoint(handle + breadth * number + breadth / 2, 15);
    });
}

} // namespace lumbrix::privatedesk
