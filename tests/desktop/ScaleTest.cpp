// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A desktop that draws everything twice as large, until the user has it draw smaller.
#include "DesktopTest.h"
#include "FontSettings.h"

namespace lumbrix::privatedesk
{

namespace
{

/// Whether some part of the picture is exactly the other one.
bool contains(const QImage& picture, const QImage& part)
{
    const auto isAt = [&](int x, int y) {
        for (int line = 0; line < part.height(); ++line) {
            const auto* seen = reinterpret_cast<const QRgb*>(picture.constScanLine(y + line)) + x;
            const auto* wanted = reinterpret_cast<const QRgb*>(part.constScanLine(line));
            for (int i = 0; i < part.width(); ++i)
                if ((seen[i] & RGB_MASK) != (wanted[i] & RGB_MASK))
                    return false;
        }
        return true;
    };
    for (int y = 0; y + part.height() <= picture.height(); ++y) {
        for (int x = 0; x + part.width() <= picture.width(); ++x)
            if (isAt(x, y))
                return true;
    }
    return false;
}

} // namespace

class ScaleTest : public DesktopTest
{
protected:
    /// Waits until the application's row is to the right of its icon, at the icon's height.
    Result showsBesideTheIcon(const Application& application)
    {
        hover(application);
        if (const Result shown = shows(application); !shown)
            return shown;
        const QPoint off = QPoint(row().left(), row().center().y()) - display().pointer();
        if (off.x() > 24 && off.x() < 250 && std::abs(off.y()) < 20)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << off.x() << ',' << off.y() << " from the pointer";
    }
};

INSTANTIATE_TEST_SUITE_P(, ScaleTest, testing::Values(enlarged(Edge::Left)), deskName);

// Half a point too large or too small, they used to be scaled by one pixel, which blurs everything.
TEST_P(ScaleTest, pictures_lifeSize_areShownPixelForPixel)
{
    Application& alpha = launch(u"alpha"_s);
    const AppWindow odd = alpha.open("odd", Qt::blue, {{181, 121}, {1200, 200}});
    const AppWindow even = alpha.open("even", Qt::red, {{180, 120}, {1200, 500}});
    hover(alpha);
    QImage title;
    const auto isShownAs = [&](const QString& role) {
        return std::ranges::any_of(display().panels(), [&](const Panel& panel) {
            return panel.role == role && contains(display().picture(panel.geometry), title);
        });
    };
    for (const AppWindow& window : {even, odd}) {
        const QRect place = display().geometry(window.id).value_or(QRect());
        EXPECT_TRUE(waitUntil([&] {
            title = display().picture({place.x() + 10, place.y() - 40, place.width() - 20, 20});
            return isShownAs(u"preview"_s);
        })) << window.title.constData();
    }
    desk().park();
    launch(u"beta"_s).open("above it", Qt::green, {{300, 300}, {1150, 150}});
    hover(alpha);
    ASSERT_TRUE(waitUntil([&] { return preview(odd.title).has_value(); }));
    moveToPreview(odd.title);
    EXPECT_TRUE(waitUntil([&] { return isShownAs(u"zoom"_s); }));
    savePicture("zoom");
}

TEST_P(ScaleTest, scale_changedMeanwhile_isThatOfTheNextRow)
{
    auto settings = std::make_unique<FontSettings>(display());
    settings->setDotsPerInch(192);
    desk().stopLumbrix();
    desk().startLumbrix({{u"badgeDock"_s, u"1"_s}});
    const Application& alpha = launch(u"alpha"_s, 2);
    ASSERT_TRUE(waitUntil([&] { return display().badges().size() == 1; }));
    EXPECT_TRUE(showsBesideTheIcon(alpha));
    savePicture("before");
    const auto width = [](const std::vector<Panel>& panels) {
        return panels.empty() ? 0 : panels.front().geometry.width();
    };
    const int count = width(display().badges());
    const int preview = width(display().previews());
    desk().park();
    ASSERT_TRUE(waitUntil([&] { return display().previews().empty(); }));

    settings->setDotsPerInch(96);
    ASSERT_TRUE(waitUntil([&] { return width(display().badges()) != count; }));
    EXPECT_TRUE(showsBesideTheIcon(alpha));
    savePicture("after");
    EXPECT_EQ(width(display().previews()), preview / 2);

    settings.reset();
    desk().stopLumbrix(); // it keeps the scale that it was told last
    desk().startLumbrix();
}

} // namespace lumbrix::privatedesk
