// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtGui/QAccessible>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

#include "platform/StringLiterals.h"
#include "preview/DisplayText.h"
#include "preview/ElidedTitle.h"
#include "preview/NamedImage.h"
#include "preview/RoundedPicture.h"
#include "preview/ScreenyView.h"
#include "preview/TitleLabel.h"
#include "tests/preview/PanelHost.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

QImage picture(QSize size = {600, 400})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    return image;
}

class Panel : public DesktopFixture
{
protected:
    ScreenyViewPtr load(const QString& style = u"ScreenyView"_s)
    {
        ScreenyViewPtr preview = ScreenyView::load(ports(), style, host);
        host.previews.push_back(preview);
        preview->window()->setFrame({0, 20, 243, 190});
        return preview;
    }
    /// A preview of a window, tracked and on screen.
    ScreenyViewPtr show(bool closable = true)
    {
        ScreenyViewPtr preview = load();
        SimulatedWindow description{u"A window"_s, QRectF(200, 100, 600, 400)};
        description.isClosable = closable;
        window = desk.addWindow(pid, description);
        element = std::make_shared<SWElement>(ports(), desk.windowElement(window));
        element->setPid(pid);
        element->setScreenshot({picture(), true});
        preview->setElementRef(element);
        preview->setImage(element->screenshot());
        preview->setTrackingRect();
        preview->orderFront();
        return preview;
    }
    static QWidget* part(const ScreenyViewPtr& preview, const char* name)
    {
        return preview->window()->findChild<QWidget*>(QString::fromLatin1(name));
    }
    /// The names of the control pictures that are shown.
    static QStringList controls(const ScreenyViewPtr& preview)
    {
        expectDrawings(*preview->window());
        QStringList names;
        for (const QAbstractButton* button :
             preview->contentView()->findChildren<QAbstractButton*>())
            if (button->objectName().isEmpty() && !button->isHidden())
                names += button->property("imageName").toString();
        return names;
    }
    /// That each drawing that a part names, to be drawn now or at some time, is there: one that is
    /// not leaves a hole, and nothing else reports it.
    static void expectDrawings(const QWidget& panel)
    {
        for (const QWidget* each : panel.findChildren<QWidget*>()) {
            for (const char* state :
                 {"imageName", "hoverImageName", "pressedImageName", "disabledImageName"}) {
                const QString name = each->property(state).toString();
                EXPECT_TRUE(name.isEmpty() || !namedImage(name).isNull()) << qPrintable(name);
            }
        }
    }
    /// What the workspace was told since the last time.
    void expectCommands(const char* what, const QStringList& expected)
    {
        loop.runUntilIdle();
        const auto commands =
            desk.with([](SimulatedState& state) { return std::exchange(state.commands, {}); });
        EXPECT_EQ(QStringList(commands.begin(), commands.end()).join(u"; "), expected.join(u"; "))
            << what;
    }

    PanelHost host;
    const Pid pid = desk.addApplication({u"Editor"_s});
    WindowID window = 0; ///< of the preview shown last, as is the element
    SWElementPtr element;
    /// Raising a window ends with activating its application, and is done twice.
    const QStringList raised{u"activate %1 2"_s.arg(pid), u"activate %1 2"_s.arg(pid)};
};

TEST_F(Panel, everyStyle_hasItsPartsAtEverySize)
{
    show();
    for (const char* style : {"ScreenyView", "ScreenyViewBlack", "ScreenyViewBorderless",
                              "ScreenyViewBlue", "ScreenyViewRed", "ScreenyViewGreen"}) {
        SCOPED_TRACE(style);
        const ScreenyViewPtr preview = load(QString::fromLatin1(style));
        ASSERT_TRUE(preview);
        expectDrawings(*preview->window());
        EXPECT_FALSE(preview->isHovered());
        preview->setElementRef(element);
        preview->setImage(picture());
        preview->setTitleString(u"A title"_s);
        host.settingsMirror.showFastKeys = 1;
        preview->setShortcut();
        for (const QSizeF size : {QSizeF(100, 80), QSizeF(243, 190), QSizeF(600, 450)}) {
            preview->window()->setFrame({{10, 20}, size});
            preview->orderFront();
            const QRect all = preview->contentView()->rect();
            EXPECT_EQ(all.size(), size.toSize());
            QWidget* const title = part(preview, part(preview, "title") ? "title" : "titleLabel");
            QWidget* const key = part(preview, "fastKeyButton");
            for (QWidget* widget :
                 {part(preview, "image"), part(preview, "closeButton"), key, title}) {
                ASSERT_TRUE(widget);
                EXPECT_TRUE((widget == key && key->isHidden()) || all.contains(widget->geometry()))
                    << qPrintable(widget->objectName());
            }
            EXPECT_GT(title->width(), 20);
            EXPECT_EQ(key->isHidden(), size.width() < 120);
            EXPECT_TRUE(key->isHidden() || !title->geometry().intersects(key->geometry()));
        }
    }
    EXPECT_FALSE(ScreenyView::load(ports(), u"NoSuchStyle"_s, host));
}

TEST_F(Panel, everyDrawing_canBeDrawn)
{
    const QDir images(u":/images"_s);
    EXPECT_GE(images.entryList().size(), 17);
    for (const QString& file : images.entryList()) {
        const QImage image = namedImage(file.section(QLatin1Char('.'), 0, 0));
        ASSERT_FALSE(image.isNull()) << qPrintable(file);
        QImage nothing(image.size(), image.format());
        nothing.fill(Qt::transparent);
        EXPECT_NE(image, nothing) << qPrintable(file);
    }
    EXPECT_TRUE(namedImage(u"noSuchDrawing"_s).isNull());
}

TEST_F(Panel, assistiveTools_seeNothingOfAPanel)
{
    const ScreenyViewPtr preview = show();
    const QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(preview->window());
    EXPECT_EQ(panel->childCount(), 0);
    EXPECT_TRUE(panel->state().invisible);
    QWidget other;
    EXPECT_NE(QAccessible::queryAccessibleInterface(&other)->role(), QAccessible::NoRole);
}

TEST_F(Panel, frames_neighboursTouchAndOriginIsBottomLeft)
{
    struct OffOrigin : ForwardingWindowServer {
        using ForwardingWindowServer::ForwardingWindowServer;
        QPointF toolkitOffset(const QRectF&) override { return {100, 50}; }
    } windowServer{desk.windowServer()};
    install(desk.accessibility(), windowServer);
    const ScreenyViewPtr left = load();
    const ScreenyViewPtr right = load();
    left->window()->setFrame({10.25, 30.5, 96.3, 80.7});
    right->window()->setFrame({106.55, 30.5, 96.3, 80.7});
    const QRect a = left->window()->geometry();
    const QRect b = right->window()->geometry();
    EXPECT_EQ(a.x() + a.width(), b.x());
    // The lower edge, 30.5 above the bottom of a 900 high screen whose top is at 50.
    EXPECT_EQ(a.y() + a.height(), 50 + 870);
    EXPECT_EQ(a.topLeft(), QPoint(110, 50 + 789));
    EXPECT_EQ(left->window()->frame(), QRectF(10.25, 30.5, 96.3, 80.7));
}

TEST_F(Panel, titles_areShownAsOneLineOfPlainText)
{
    const ScreenyViewPtr preview = load();
    const QString markup = u"<b>a &amp; b</b> [*]"_s;
    preview->setTitleString(markup);
    EXPECT_EQ(preview->titleString(), markup);
    EXPECT_EQ(static_cast<TitleLabel*>(part(preview, "title"))->text(), markup);
    EXPECT_EQ(displayText(u"a\nb\tc\u2028d  e"_s), u"a b c d  e"_s);
    // Half a character, alone and where a very long title is cut.
    EXPECT_EQ(displayText(QString(QChar(0xd83d)) + QLatin1Char('x')), u"\ufffdx"_s);
    const QString cut = displayText(QLatin1Char('x') + u"\U0001f600"_s.repeated(50000));
    EXPECT_LT(cut.size(), 500);
    EXPECT_TRUE(cut.isValidUtf16());
    preview->setTitleString(QString(100000, QLatin1Char('W')));
    preview->orderFront();
    preview->window()->grab();
    EXPECT_LE(part(preview, "title")->width(), 243);
}

TEST_F(Panel, titles_thatBeginAlike_areShownWhereTheyDiffer)
{
    const QStringList titles{u"Report of the branch - draft"_s, u"Report of the branch - final"_s,
                             u"Report of the branch - final"_s, u"Letter"_s, u""_s};
    const auto alike = charactersAlike(titles);
    EXPECT_EQ(alike, (std::vector<qsizetype>{23, 23, 23, 0, 0}));
    const QFontMetrics metrics{QFont()};
    const int width = metrics.horizontalAdvance(u"Report of the br"_s);
    const auto shown = [&](int i, int room) {
        return elidedTitle(titles.at(i), alike[static_cast<std::size_t>(i)], room, metrics);
    };
    EXPECT_TRUE(shown(0, width).startsWith(u"Re"_s) && shown(0, width).endsWith(u"\u2026draft"_s))
        << qPrintable(shown(0, width));
    EXPECT_LE(metrics.horizontalAdvance(shown(0, width)), width);
    EXPECT_NE(shown(0, width), shown(1, width));
    EXPECT_EQ(shown(0, 2000), titles.at(0));
    EXPECT_EQ(elidedTitle(titles.at(0), 3, width, metrics),
              metrics.elidedText(titles.at(0), Qt::ElideRight, width))
        << "the difference is seen as it is";
    // Half a character is none.
    const QString smile = QString(40, QLatin1Char('x')) + u"\U0001f600"_s;
    EXPECT_TRUE(elidedTitle(smile, 41, width, metrics).isValidUtf16());
}

TEST_F(Panel, painting_happensOncePerChange_andNotWhileHeld)
{
    struct PaintCounter : QObject {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
        int take()
        {
            QApplication::processEvents();
            return std::exchange(count, 0);
        }
    } painted;
    const ScreenyViewPtr preview = show();
    part(preview, "image")->installEventFilter(&painted);
    EXPECT_EQ(painted.take(), 1);
    preview->setImage(QImage(element->screenshot()));
    EXPECT_EQ(painted.take(), 0);
    preview->setImage(picture());
    EXPECT_EQ(painted.take(), 1);

    preview->dismissWithoutRebirth();
    preview->setHeld(true);
    preview->orderFront();
    preview->setImage(picture({600, 300}));
    EXPECT_EQ(painted.take(), 0);
    preview->setHeld(false);
    EXPECT_EQ(painted.take(), 1);
    preview->setImage(picture());
    EXPECT_EQ(painted.take(), 1);
    // Going off the screen ends it, so that nobody has to remember it.
    preview->setHeld(true);
    preview->dismissWithoutRebirth();
    EXPECT_FALSE(preview->isHeld());
}

TEST_F(Panel, backgrounds_ofDifferentColours_lookDifferent)
{
    const auto look = [this](const char* changed, int blue) {
        const ScreenyViewPtr preview = load();
        QWidget* const background = part(preview, "background");
        for (const char* colour : {"fillTop", "fillBottom", "outline", "highlight"})
            background->setProperty(colour, QColor(0, 0, colour == changed ? blue : 0));
        return background->grab().toImage();
    };
    for (const char* colour : {"fillTop", "fillBottom", "outline", "highlight"}) {
        EXPECT_EQ(look(colour, 200), look(colour, 200));
        EXPECT_NE(look(colour, 200), look(colour, 201)) << colour;
    }
}

TEST_F(Panel, mark_isARingOnEveryStyle_untilThePreviewGoes)
{
    for (const char* style : {"ScreenyView", "ScreenyViewBlack", "ScreenyViewBorderless",
                              "ScreenyViewBlue", "ScreenyViewRed", "ScreenyViewGreen"}) {
        for (const bool blends : {true, false}) {
            desk.with([&](SimulatedState& state) { state.blendsTranslucency = blends; });
            const ScreenyViewPtr preview = load(QString::fromLatin1(style));
            preview->setImage(picture());
            preview->orderFront();
            const auto ring = [&] {
                const QImage seen = preview->window()->grab().toImage();
                const QRegion mask = blends ? QRegion(seen.rect()) : preview->window()->mask();
                QRect box;
                int pixels = 0;
                for (int y = 0; y < seen.height(); ++y) {
                    for (int x = 0; x < seen.width(); ++x) {
                        const QColor colour = seen.pixelColor(x, y);
                        if (colour.red() > 240 && std::abs(colour.green() - 170) < 10 &&
                            colour.blue() < 40 && mask.contains(QPoint(x, y))) {
                            box |= QRect(x, y, 1, 1);
                            ++pixels;
                        }
                    }
                }
                return std::pair(box.size(), pixels);
            };
            EXPECT_EQ(ring().second, 0) << style;
            preview->setMarked(true);
            const auto [size, pixels] = ring();
            EXPECT_GT(size.width(), 200) << style;
            EXPECT_GT(size.height(), 130) << style;
            EXPECT_GT(pixels, 2 * 2 * (size.width() + size.height())) << style << blends;
            preview->dismiss();
            EXPECT_FALSE(preview->isMarked());
        }
    }
}

// A white ring on a white picture marks nothing.
TEST_F(Panel, hover_isMarkedOnEveryStyleAsPlainlyAsOnTheLightOne_onAnyPicture)
{
    for (const Qt::GlobalColor colour : {Qt::white, Qt::black, Qt::gray}) {
        QImage shown(600, 400, QImage::Format_RGB32);
        shown.fill(colour);
        const auto marked = [&](const char* style) {
            const ScreenyViewPtr preview = load(QString::fromLatin1(style));
            preview->setElementRef(element);
            preview->setImage(shown);
            preview->orderFront();
            const QImage before = preview->window()->grab().toImage();
            preview->mouseEntered();
            part(preview, "closeButton")->hide();
            const QImage after = preview->window()->grab().toImage();
            int pixels = 0;
            for (int y = 0; y < after.height(); ++y) {
                for (int x = 0; x < after.width(); ++x) {
                    const QColor a = before.pixelColor(x, y);
                    const QColor b = after.pixelColor(x, y);
                    pixels +=
                        std::abs(a.red() - b.red()) > 80 || std::abs(a.blue() - b.blue()) > 80;
                }
            }
            return pixels;
        };
        show();
        const int light = marked("ScreenyView");
        EXPECT_GT(light, 1500);
        for (const char* style : {"ScreenyViewBlack", "ScreenyViewBorderless", "ScreenyViewBlue",
                                  "ScreenyViewRed", "ScreenyViewGreen"})
            EXPECT_GT(marked(style), light * 7 / 10) << style << colour;
    }
}

TEST_F(Panel, roundedPicture_looksLikeOneDrawnInOnePiece)
{
    for (const qreal ratio : {1.0, 2.0}) {
        const QColor outline(0, 0, 0, 64);
        const QImage source = picture({120, 81});
        const QImage rounded = roundedPicture(source, 4 * ratio, outline, ratio);
        QImage expected(source.size(), QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QBrush(source));
        painter.drawRoundedRect(QRectF(expected.rect()), 4 * ratio, 4 * ratio);
        painter.setPen(QPen(outline, ratio));
        painter.setBrush(Qt::NoBrush);
        const qreal half = ratio / 2;
        painter.drawRoundedRect(QRectF(expected.rect()).adjusted(half, half, -half, -half),
                                4 * ratio - half, 4 * ratio - half);
        painter.end();
        int largest = 0;
        for (int y = 0; y < expected.height(); ++y) {
            for (int i = 0; i < 4 * expected.width(); ++i)
                largest = std::max(
                    largest, std::abs(expected.constScanLine(y)[i] - rounded.constScanLine(y)[i]));
        }
        EXPECT_LE(largest, 3) << ratio;
    }
}

TEST_F(Panel, withoutBlending_theCornersAreCutOffAndTheCloseButtonIsNot)
{
    const ScreenyViewPtr preview = show();
    EXPECT_TRUE(preview->window()->mask().isEmpty());
    preview->window()->orderOut();
    desk.with([](SimulatedState& state) { state.blendsTranslucency = false; });
    preview->orderFront();
    const QRegion resting = preview->window()->mask();
    EXPECT_FALSE(resting.contains(QPoint(14, 14)));
    EXPECT_TRUE(resting.contains(QPoint(120, 90)));
    preview->mouseEntered();
    EXPECT_TRUE(preview->window()->mask().contains(QPoint(14, 14)));
    preview->mouseExited();
    EXPECT_EQ(preview->window()->mask(), resting);
}

TEST_F(Panel, window_thatACompositorFoundOnTheScreen_isMadeAnewForTheNextRow)
{
    const ScreenyViewPtr preview = show();
    const auto next = [&] {
        preview->window()->orderOut();
        preview->orderFront();
        return preview->window()->internalWinId();
    };
    const WId first = next();
    desk.with([](SimulatedState& state) { state.compositorsBegun = 1; });
    preview->orderFront();
    EXPECT_EQ(preview->window()->internalWinId(), first) << "it would flicker";
    const WId second = next();
    EXPECT_NE(second, first);
    EXPECT_TRUE(preview->window()->isVisible());
    EXPECT_EQ(next(), second);
}

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
}

TEST_F(Panel, rebirth_leavesAnIdlePanelThatShowsNothingOfItsFormerLife)
{
    host.settingsMirror.hideClose = 1;
    const ScreenyViewPtr preview = show();
    preview->setBusyCal(true);
    preview->setVLC(true);
    preview->mouseEntered();
    preview->prepareForCal();
    preview->setUpCalView();
    EXPECT_TRUE(part(preview, "image")->isHidden());
    element->setScreenshot({picture(), true});
    preview->dismiss();
    EXPECT_FALSE(preview->window()->isFront());
    EXPECT_FALSE(preview->elementRef());
    EXPECT_TRUE(preview->image().isNull());
    EXPECT_TRUE(element->screenshot().isNull());
    EXPECT_FALSE(preview->iCalView());
    EXPECT_FALSE(preview->isHovered());
    EXPECT_TRUE(preview->isCloseButtonEnabled());
    EXPECT_EQ(part(preview, "closeButton")->property("alpha").toDouble(), 1.0);
    EXPECT_FALSE(part(preview, "image")->isHidden());
    EXPECT_FALSE(part(preview, "title")->isHidden());
    EXPECT_FALSE(preview->VLC() || preview->BusyCal());
    EXPECT_EQ(host.cache, std::vector<ScreenyViewPtr>{preview});
    preview->mouseEntered();
    EXPECT_FALSE(preview->isHovered());
}

} // namespace
} // namespace lumbrix::test
