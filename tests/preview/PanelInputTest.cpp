// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the mouse and the keys do to a preview.

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

#include "preview/PictureButton.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

TEST_F(Panel, mouseEntered_offersToCloseWhatCanBeClosed)
{
    const ScreenyViewPtr closable = show();
    closable->mouseEntered();
    EXPECT_FALSE(part(closable, "closeButton")->isHidden());
    EXPECT_TRUE(closable->isCloseButtonEnabled());
    QTest::mouseClick(part(closable, "closeButton"), Qt::LeftButton);
    loop.runUntilIdle();
    EXPECT_FALSE(desk.window(window));
    closable->mouseExited();
    EXPECT_TRUE(part(closable, "closeButton")->isHidden());
    EXPECT_EQ(host.log, QStringList{u"mouseExited"_s});

    const ScreenyViewPtr fixed = show(false);
    fixed->mouseEntered();
    EXPECT_FALSE(fixed->isCloseButtonEnabled());
    fixed->clickCloseButton();
    loop.runUntilIdle();
    EXPECT_TRUE(desk.window(window));

    host.settingsMirror.hideClose = 1;
    const ScreenyViewPtr invisible = show();
    invisible->mouseEntered();
    EXPECT_TRUE(invisible->isHovered());
    EXPECT_FALSE(invisible->isCloseButtonEnabled());
    EXPECT_EQ(part(invisible, "closeButton")->property("alpha").toDouble(), 0.0);
}

TEST_F(Panel, mouseEnteredDragging_activatesWithoutControlsOrZoom)
{
    host.settingsMirror.zoomWindows = 1;
    const ScreenyViewPtr preview = show();
    desk.setButtons(3);
    preview->mouseEntered();
    EXPECT_TRUE(preview->isHovered());
    preview->mouseExited();
    desk.setButtons(1);
    for (int entering = 0; entering < 2; ++entering) {
        preview->mouseEntered();
        EXPECT_TRUE(part(preview, "closeButton")->isHidden());
        expectCommands("drag", raised);
        loop.advance(1);
        EXPECT_FALSE(preview->zoomWindow());
        preview->mouseEntered();
        expectCommands("dragged on", {});
        preview->mouseExited();
    }
    preview->mouseEntered();
    desk.setButtons(0);
    preview->mouseEntered();
    EXPECT_TRUE(preview->isHovered()) << "dropped";
}

TEST_F(Panel, click_raisesTheWindow)
{
    const ScreenyViewPtr preview = show();
    QTest::mouseClick(part(preview, "image"), Qt::LeftButton);
    expectCommands("picture", raised);
    QTest::mouseClick(part(preview, "title"), Qt::LeftButton);
    expectCommands("title", raised);
    QTest::mouseClick(preview->contentView(), Qt::LeftButton, {}, {120, 175});
    expectCommands("panel", raised);

    desk.changeApplication(pid, [](SimulatedApplication& application) {
        application.executableURL = QUrl(u"file:///editor"_s);
    });
    desk.setModifiers(0x80000);
    preview->clickImage();
    expectCommands("option alone", raised);
    desk.setModifiers(0x180000);
    preview->clickImage();
    loop.runUntilIdle();
    EXPECT_TRUE(desk.application(desk.dockPid()).isHidden);
    EXPECT_FALSE(desk.application(pid).isHidden);
    desk.with([](SimulatedState& state) { state.commands.clear(); });
    desk.setModifiers(0);
    preview->setITunes(true);
    preview->clickImage();
    const QStringList relaunched =
        QStringList{u"launch file:///Applications/Editor.app 0x30100"_s} + raised;
    expectCommands("player, though others run from its executable", relaunched);

    host.settingsMirror.closeOnClick = 1;
    preview->clickImage();
    expectCommands("close on click", relaunched);
    EXPECT_TRUE(host.previews.empty());
    EXPECT_FALSE(preview->elementRef());
    preview->clickImage();
    preview->closeWindow();
    expectCommands("idle", {});
    preview->setICal(true);
    preview->clickImage();
    preview->setBusyCal(true);
    preview->clickImage();
    expectCommands("calendar", {u"launch iCal"_s, u"launch BusyCal"_s});
}

TEST_F(Panel, middleClickAndWheel_areForThePreviewThatIsMeant)
{
    const auto isOpen = [this] {
        loop.runUntilIdle();
        return desk.window(window).has_value();
    };
    const ScreenyViewPtr clicked = show();
    const WindowID other = window;
    const ScreenyViewPtr meant = show();
    host.settingsMirror.keepOnMiddleClick = 1;
    QTest::mouseClick(part(meant, "image"), Qt::MiddleButton);
    EXPECT_TRUE(isOpen()) << "the setting keeps it";
    host.settingsMirror.keepOnMiddleClick = 0;
    QTest::mousePress(part(meant, "image"), Qt::MiddleButton);
    QTest::mouseRelease(part(meant, "image"), Qt::MiddleButton, {}, {900, 10});
    EXPECT_TRUE(isOpen()) << "let go beside it";
    host.meant = meant.get();
    QTest::mouseClick(part(clicked, "title"), Qt::MiddleButton);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(desk.window(other).has_value());
    expectCommands("no other button's", {});

    host.log.clear();
    for (const int delta : {-60, -60, -120, 240}) {
        QWheelEvent event({5, 5}, {}, {}, {0, delta}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(clicked->contentView(), &event);
    }
    EXPECT_EQ(host.log.join(u' '), u"wheel 1 wheel 1 wheel -2"_s);
}

TEST_F(Panel, controls_followTheApplicationAndThePlayer)
{
    const ScreenyViewPtr preview = show();
    preview->mouseEntered();
    EXPECT_EQ(controls(preview), QStringList());
    preview->mouseExited();
    using enum PlayerState;
    const struct {
        void (ScreenyView::*flag)(bool);
        PlayerState state;
        QStringList expected;
    } cases[] = {
        {&ScreenyView::setITunes, Unknown, {u"skipLeft"_s, u"skipRight"_s}},
        {&ScreenyView::setITunes, Playing, {u"skipLeft"_s, u"skipRight"_s, u"pause"_s}},
        {&ScreenyView::setITunes, Stopped, {u"skipLeft"_s, u"skipRight"_s, u"play"_s}},
        {&ScreenyView::setMail, {}, {u"mailGet"_s}},
        {&ScreenyView::setVLC, {}, {u"skipLeft"_s, u"skipRight"_s, u"playPause"_s}},
        {&ScreenyView::setQuickTime, {}, {u"playPause"_s}},
    };
    for (const auto& [flag, state, expected] : cases) {
        SCOPED_TRACE(qPrintable(expected.join(u" ")));
        preview->clearAppFlags();
        (preview.get()->*flag)(true);
        host.state = state;
        host.settingsMirror.hideControls = 1;
        preview->mouseEntered();
        EXPECT_EQ(controls(preview), QStringList());
        preview->mouseExited();
        host.settingsMirror.hideControls = 0;
        preview->mouseEntered();
        EXPECT_EQ(controls(preview), expected);
        preview->mouseExited();
        EXPECT_EQ(controls(preview), QStringList());
    }
}

TEST_F(Panel, controls_areLargeFrom180PointsOn)
{
    const ScreenyViewPtr preview = show();
    preview->setVLC(true);
    preview->mouseEntered();
    const auto hit = [&](qreal x, qreal y) {
        host.log.clear();
        return preview->clickControlAt({x, y}) ? host.log.join(u" ") : QString();
    };
    preview->window()->setFrame({0, 20, 180, 190});
    preview->mouseEntered();
    // c = 81: previous at 51, play at 81, next at 111, each 30 wide and high, 40 from the bottom.
    EXPECT_EQ(hit(52, 41), u"skipLeft");
    EXPECT_EQ(hit(110, 69), u"playPause");
    EXPECT_EQ(hit(140, 69), u"skipRight");
    EXPECT_EQ(hit(50, 55), QString());
    EXPECT_EQ(hit(95, 39), QString());
    EXPECT_EQ(hit(95, 71), QString());
    preview->window()->setFrame({0, 20, 179.9, 190});
    preview->mouseEntered();
    // c = 85.95: previous at 66, play at 86, next at 106, each 20 wide and high, 30 from the
    // bottom.
    EXPECT_EQ(hit(67, 31), u"skipLeft");
    EXPECT_EQ(hit(105, 49), u"playPause");
    EXPECT_EQ(hit(125, 49), u"skipRight");
    EXPECT_EQ(hit(95, 51), QString());

    preview->clearAppFlags();
    preview->setITunes(true);
    host.state = PlayerState::Stopped;
    preview->mouseExited();
    preview->mouseEntered();
    EXPECT_EQ(hit(95, 40), u"play");
    EXPECT_TRUE(preview->isPlaying());
    EXPECT_TRUE(controls(preview).contains(u"pause"_s));
    preview->rebirth();
    EXPECT_EQ(hit(95, 40), QString());
}

TEST_F(Panel, zoom_showsOnceThePointerRestsInside)
{
    const ScreenyViewPtr preview = show();
    preview->mouseEntered();
    loop.advance(1);
    EXPECT_FALSE(preview->zoomWindow()) << "switched off";
    preview->mouseExited();

    host.settingsMirror.zoomWindows = 1;
    preview->mouseEntered();
    for (int i = 0; i < 10; ++i) {
        desk.movePointer(QPointF(100.0 + i, 600));
        loop.advance(0.015);
    }
    EXPECT_FALSE(preview->zoomWindow()) << "moving";
    loop.advance(0.05);
    ASSERT_TRUE(preview->zoomWindow());
    EXPECT_TRUE(preview->zoomWindow()->isFront());
    EXPECT_EQ(preview->zoomWindow()->frame(), QRectF(200, 400, 600, 400));
    EXPECT_LT(preview->zoomWindow()->level(), preview->window()->level()) << "it would cover it";
    EXPECT_TRUE(preview->zoomWindow()->windowFlags() & Qt::WindowTransparentForInput);
    EXPECT_EQ(loop.runningThreads(), 0);

    const auto shown = [&] { return preview->zoomWindow()->grab().toImage().pixelColor(5, 5); };
    QImage next(600, 400, QImage::Format_RGB32);
    next.fill(Qt::red);
    element->setScreenshot({next, true});
    loop.advance(0.45);
    EXPECT_EQ(shown(), QColor(Qt::darkCyan));
    loop.advance(0.1);
    EXPECT_EQ(shown(), QColor(Qt::red));

    // The click waits a moment, so that the window is in front before its zoom goes.
    const double before = loop.now();
    preview->clickImage();
    EXPECT_NEAR(loop.now() - before, 0.05, 1e-6);
    EXPECT_FALSE(preview->zoomWindow());
    preview->mouseExited();

    host.settingsMirror.disableLivePreviews = 1;
    preview->mouseEntered();
    loop.advance(0.05);
    ASSERT_TRUE(preview->zoomWindow());
    element->setScreenshot({picture(), true});
    loop.advance(2);
    EXPECT_EQ(shown(), QColor(Qt::red));
    preview->mouseExited();
    EXPECT_FALSE(preview->zoomWindow());

    // A number key picks another one: neither what is zoomed nor what would be may cover it.
    const ScreenyViewPtr picked = show();
    for (const double wait : {0.05, 0.0}) {
        preview->mouseEntered();
        loop.advance(wait);
        ASSERT_EQ(preview->isZoomed(), wait > 0);
        qobject_cast<QAbstractButton*>(part(picked, "fastKeyButton"))->click();
        loop.advance(1);
        EXPECT_FALSE(preview->isZoomed()) << wait;
        preview->mouseExited();
    }
}

TEST_F(Panel, zoomWatcher_neverActsOnALaterLife)
{
    host.settingsMirror.zoomWindows = 1;
    ScreenyViewPtr preview = show();
    preview->mouseEntered();
    EXPECT_EQ(loop.runningThreads("zoom"), 1);
    preview->dismiss();
    // Reused and hovered before the first watcher woke up; the second has to see 20 ms of rest.
    loop.advance(0.015);
    preview->setElementRef(element);
    element->setScreenshot({picture(), true});
    preview->mouseEntered();
    loop.advance(0.01);
    EXPECT_FALSE(preview->zoomWindow());
    loop.advance(0.02);
    EXPECT_TRUE(preview->zoomWindow());

    // Nor on one that is gone.
    preview->mouseExited();
    preview->mouseEntered();
    host.previews.clear();
    host.cache.clear();
    preview.reset();
    loop.advance(1);
    EXPECT_EQ(loop.runningThreads(), 0);
}

TEST_F(Panel, shortcuts_areForTheFirstTen)
{
    host.settingsMirror.showFastKeys = 1;
    std::vector<ScreenyViewPtr> previews;
    for (int i = 0; i < 12; ++i)
        previews.push_back(show());
    for (const ScreenyViewPtr& preview : previews) {
        preview->setShortcut();
        preview->setShortcut(); // in place of the former, not in addition
    }
    ASSERT_EQ(host.hotKeys.size(), 10u);
    EXPECT_EQ(host.hotKeys[9]->identifier, u"0");
    EXPECT_EQ(host.hotKeys[0]->keyCombo, (SGKeyCombo{SWElement::keyCodeForNumberKey(1), 256}));
    const auto label = [&](std::size_t i) {
        const auto* key = static_cast<QAbstractButton*>(part(previews[i], "fastKeyButton"));
        return key->isHidden() ? QString() : key->text();
    };
    EXPECT_EQ(label(0), u"\u23181"_s);
    EXPECT_EQ(label(9), u"\u23180"_s);
    EXPECT_EQ(label(10), QString());
    // In a small preview the label gives way to the title, and the key works all the same.
    previews[3]->window()->setFrame({0, 0, 119, 90});
    EXPECT_EQ(label(3), QString());
    host.hotKeys[3]->action();
    expectCommands("key", raised);
    previews[3]->window()->setFrame({0, 0, 120, 90});
    EXPECT_EQ(label(3), u"\u23184"_s);

    previews[3]->rebirth();
    EXPECT_EQ(host.hotKeys.size(), 9u);
    EXPECT_EQ(label(3), QString());
    host.settingsMirror.showFastKeys = 0;
    previews[2]->setShortcut();
    EXPECT_EQ(host.hotKeys.size(), 8u);
    // A preview that the engine does not list, such as a sample, stands for no position.
    host.settingsMirror.showFastKeys = 1;
    host.previews.clear();
    previews[2]->setShortcut();
    EXPECT_EQ(label(2), u"\u23180"_s);
    desk.keyboardLayout().sign = u"#"_s;
    previews[2]->setShortcut();
    EXPECT_EQ(label(2), u"#0"_s);
    // Without a body it lies on a narrow picture, as long as there is room.
    const ScreenyViewPtr& bare = previews.emplace_back(load(u"ScreenyViewBorderless"_s));
    host.previews = {bare};
    bare->setElementRef(element);
    bare->setShortcut();
    bare->setImage(picture({40, 400}));
    EXPECT_EQ(label(12), QString());
    bare->setImage(picture({200, 400}));
    EXPECT_EQ(label(12), u"#1"_s);
    const auto* image = static_cast<PictureButton*>(part(bare, "image"));
    const QRect key = part(bare, "fastKeyButton")->geometry();
    EXPECT_TRUE(image->pictureRect().translated(image->pos()).contains(key));
    EXPECT_FALSE(part(bare, "titleLabel")->geometry().intersects(key));
}

} // namespace
} // namespace lumbrix::test
