// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window of a preview: its place, its title, when it is painted and what it leaves behind.

#include <QtGui/QAccessible>
#include <QtGui/QPaintEvent>
#include <QtWidgets/QApplication>

#include <functional>
#include <tuple>
#include <vector>

#include "preview/DisplayText.h"
#include "preview/ElidedTitle.h"
#include "preview/TitleLabel.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

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
    preview->setImage(picture()); // another one, and the same to see
    EXPECT_EQ(painted.take(), 0);
    preview->setImage(picture({500, 400}));
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

/// Where a widget was painted.
struct Painted : QObject {
    QRect area;
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            area |= static_cast<QPaintEvent*>(event)->region().boundingRect();
        return false;
    }
};

TEST_F(Panel, pictureDrawnByOthers_isWithoutWhatLiesOnIt_andIsPaintedOverAsAWhole)
{
    const ScreenyViewPtr preview = show();
    auto* const button = static_cast<QAbstractButton*>(part(preview, "image"));
    const QSize size = preview->pictureLimit() - QSize(10, 6);
    const QImage first = picture(size);
    preview->setImage(first);
    EXPECT_FALSE(preview->pictureSurface()) << "not on the screen yet";
    QApplication::processEvents();
    auto surface = preview->pictureSurface();
    ASSERT_TRUE(surface);
    EXPECT_EQ(surface->picture.size(), size);
    const QRect shown(button->mapTo(preview->window(), QPoint(5, 3)), size);
    EXPECT_EQ(surface->picture, shown);
    EXPECT_TRUE(shown.contains(surface->free.boundingRect()));
    EXPECT_FALSE(surface->free.contains(shown.topLeft() + QPoint(1, 1))) << "it is rounded";
    EXPECT_TRUE(surface->free.contains(shown.center()));
    const QRect within = shown.adjusted(1, 1, -1, -1);
    EXPECT_EQ(surface->shaded.boundingRect(), shown) << "by its outline";
    EXPECT_FALSE(surface->shaded.intersects(within));
    EXPECT_FALSE((QRegion(shown) - within - surface->shaded).intersects(surface->free));
    {
        QWidget badge(preview->contentView());
        badge.setGeometry(shown.center().x(), shown.center().y(), 20, 10);
        badge.show();
        EXPECT_EQ(surface->free - preview->pictureSurface()->free, QRegion(badge.geometry()));
    }

    for (const auto& [what, begin, end] :
         std::vector<std::tuple<const char*, std::function<void()>, std::function<void()>>>{
             {"pressed", [&] { button->setDown(true); }, [&] { button->setDown(false); }},
             {"a player", [&] { preview->setITunes(true); }, [&] { preview->setITunes(false); }},
             {"scaled", [&] { preview->setImage(picture(size * 3)); },
              [&] { preview->setImage(first); }},
             {"translucent",
              [&] {
                  QImage glass(size, QImage::Format_ARGB32_Premultiplied);
                  glass.fill(QColor(0, 0, 0, 100));
                  preview->setImage(glass);
              },
              [&] { preview->setImage(first); }},
             {"hidden", [&] { preview->window()->orderOut(); },
              [&] {
                  preview->orderFront();
                  QApplication::processEvents();
              }},
         }) {
        begin();
        EXPECT_FALSE(preview->pictureSurface()) << what;
        end();
        EXPECT_TRUE(preview->pictureSurface()) << what;
    }

    Painted painted;
    QApplication::processEvents();
    button->installEventFilter(&painted);
    QImage next = first;
    next.setPixel(40, 30, qRgb(250, 200, 0));
    preview->noteDrawnPicture();
    button->update(20, 20, 5, 5);
    QApplication::processEvents();
    EXPECT_EQ(painted.area, QRect(20, 20, 5, 5));
    preview->setImage(next);
    QApplication::processEvents();
    EXPECT_EQ(painted.area, button->rect()) << "elsewhere it showed another picture";
    painted.area = {};
    next.setPixel(41, 30, qRgb(250, 200, 0));
    preview->setImage(next);
    QApplication::processEvents();
    EXPECT_EQ(painted.area.size(), QSize(1, 1));
}

TEST_F(Panel, pictureThatChangesInPart_isPaintedThere_andLooksAsIfItWereNew)
{
    Painted painted;
    const ScreenyViewPtr preview = show();
    QWidget* const button = part(preview, "image");
    const QSize size = preview->pictureLimit() - QSize(10, 6);
    preview->setImage(picture(size));
    QApplication::processEvents();
    button->installEventFilter(&painted);
    for (const QRect& changed : {QRect(40, 30, 2, 9), QRect(0, 0, 3, 3), QRect(70, 50, 8, 1)}) {
        QImage after = preview->image();
        for (int x = 0; x < changed.width(); ++x)
            for (int y = 0; y < changed.height(); ++y)
                after.setPixel(changed.topLeft() + QPoint(x, y), qRgb(250, 200, 0));
        painted.area = {};
        preview->setImage(after);
        QApplication::processEvents();
        EXPECT_EQ(painted.area.size(), changed.size());
        const ScreenyViewPtr fresh = load();
        fresh->setElementRef(element);
        fresh->setImage(after.copy());
        fresh->orderFront();
        EXPECT_EQ(preview->window()->grab().toImage(), fresh->window()->grab().toImage());
    }
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
