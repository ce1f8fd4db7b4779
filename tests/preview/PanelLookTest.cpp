// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What previews look like in each style.

#include <QtCore/QDir>
#include <QtGui/QPainter>

#include "preview/NamedImage.h"
#include "preview/RoundedPicture.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

constexpr const char* styles[] = {"ScreenyView",     "ScreenyViewBlack", "ScreenyViewBorderless",
                                  "ScreenyViewBlue", "ScreenyViewRed",   "ScreenyViewGreen"};

/// How many points of the picture it holds for, and what these take.
template <class Sought> std::pair<int, QRect> pixelsWhere(QSize size, Sought sought)
{
    std::pair<int, QRect> found;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (sought(QPoint(x, y))) {
                ++found.first;
                found.second |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

TEST_F(Panel, everyStyle_hasItsPartsAtEverySize)
{
    show();
    for (const char* style : styles) {
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
    for (const char* style : styles) {
        for (const bool blends : {true, false}) {
            desk.with([&](SimulatedState& state) { state.blendsTranslucency = blends; });
            const ScreenyViewPtr preview = load(QString::fromLatin1(style));
            preview->setImage(picture());
            preview->orderFront();
            const auto ring = [&] {
                const QImage seen = preview->window()->grab().toImage();
                const QRegion mask = blends ? QRegion(seen.rect()) : preview->window()->mask();
                return pixelsWhere(seen.size(), [&](QPoint at) {
                    const QColor colour = seen.pixelColor(at);
                    return colour.red() > 240 && std::abs(colour.green() - 170) < 10 &&
                           colour.blue() < 40 && mask.contains(at);
                });
            };
            EXPECT_EQ(ring().first, 0) << style;
            preview->setMarked(true);
            const auto [pixels, box] = ring();
            EXPECT_GT(box.width(), 200) << style;
            EXPECT_GT(box.height(), 130) << style;
            EXPECT_GT(pixels, 2 * 2 * (box.width() + box.height())) << style << blends;
            preview->dismiss();
            EXPECT_FALSE(preview->isMarked());
        }
    }
}

// A white ring on a white picture marks nothing.
TEST_F(Panel, hover_isMarkedOnEveryStyleAsPlainlyAsOnTheLightOne_onAnyPicture)
{
    for (const Qt::GlobalColor colour : {Qt::white, Qt::black, Qt::gray}) {
        const auto marked = [&](const char* style) {
            const ScreenyViewPtr preview = load(QString::fromLatin1(style));
            preview->setElementRef(element);
            preview->setImage(picture({600, 400}, colour));
            preview->orderFront();
            const QImage before = preview->window()->grab().toImage();
            preview->mouseEntered();
            part(preview, "closeButton")->hide();
            const QImage after = preview->window()->grab().toImage();
            return pixelsWhere(after.size(),
                               [&](QPoint at) {
                                   const QColor a = before.pixelColor(at);
                                   const QColor b = after.pixelColor(at);
                                   return std::abs(a.red() - b.red()) > 80 ||
                                          std::abs(a.blue() - b.blue()) > 80;
                               })
                .first;
        };
        show();
        const int light = marked("ScreenyView");
        EXPECT_GT(light, 1500);
        for (const char* style : styles)
            EXPECT_GE(marked(style), light * 7 / 10) << style << colour;
    }
}

TEST_F(Panel, roundedPicture_looksLikeOneDrawnInOnePiece)
{
    for (const qreal ratio : {1.0, 2.0}) {
        const QColor outline(0, 0, 0, 64);
        const QImage source = picture({120, 81});
        QImage rounded;
        updateRounded(rounded, source, source.rect(), 4 * ratio, outline, ratio);
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

} // namespace
} // namespace lumbrix::test
