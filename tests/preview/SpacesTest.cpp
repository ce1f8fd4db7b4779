// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <limits>

#include "preview/BadgeView.h"
#include "preview/Cells.h"
#include "preview/NamedImage.h"
#include "preview/NumberLabel.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

class SpacesBadge : public PanelFixture
{
protected:
    SpacesBadge() { host.settingsMirror.showSpaces = 1; }

    /// "<label>@<frame in the panel>", nothing when there is no badge.
    static QString badge(const ScreenyView& preview)
    {
        const BadgeView* view = preview.spaceView();
        if (!view || view->isHidden())
            return {};
        QStringList labels;
        for (const auto size : {BadgeView::Small, BadgeView::Medium, BadgeView::Large})
            if (!view->label(size)->isHidden())
                labels += view->label(size)->text();
        const QRect r = view->geometry();
        return u"%1@%2,%3 %4x%5"_s.arg(labels.join(u'+'))
            .arg(r.x())
            .arg(r.y())
            .arg(r.width())
            .arg(r.height());
    }
};

TEST_F(SpacesBadge, sizes_shrinkUntilTheyTakeHalfTheHeightAndAQuarterOfThePanelAtMost)
{
    const struct {
        int size;
        QSizeF panel;
        const char* expected; ///< distances from the panel's left and top
    } cases[] = {
        {0, {243, 190}, "3@203,16 30x30"},
        {1, {243, 190}, "3@173,13 60x60"},
        {2, {243, 190}, "3@173,13 60x60"},  // large would take almost a third
        {2, {320, 180}, "3@190,7 120x120"}, // just fits
        {2, {319, 180}, "3@249,13 60x60"},  // takes more than a quarter
        {2, {400, 179}, "3@330,13 60x60"},  // more than half the height
        {2, {243, 119}, "3@203,16 30x30"},
        {1, {243, 100}, "3@203,16 30x30"},
        {2, {243, 50}, "3@203,16 30x30"}, // from medium it stays small, however low the panel
        {0, {243, 59}, ""},               // no size to shrink to
        {0, {120, 90}, "3@80,16 30x30"},
        {0, {119, 90}, ""},                 // gives way to the picture
        {3, {320, 190}, "3@190,7 120x120"}, // unknown sizes shrink into the known ones ...
        {3, {243, 1000}, ""},               // ... or are left alone
        {-1, {243, 190}, ""},
        {std::numeric_limits<std::int32_t>::max(), {320, 190}, "3@190,7 120x120"},
    };
    for (const auto& [size, panel, expected] : cases) {
        host.settingsMirror.spaceSize = size;
        const ScreenyViewPtr shown = preview({{10, 20}, panel}, 3);
        shown->showSpaces();
        EXPECT_EQ(badge(*shown), QString::fromLatin1(expected))
            << size << " " << panel.width() << "x" << panel.height();
    }
}

TEST_F(SpacesBadge, withoutABody_liesOnThePicture)
{
    const ScreenyViewPtr shown = preview({0, 0, 243, 190}, 3, u"ScreenyViewBorderless"_s);
    shown->showSpaces();
    shown->setImage(QImage(300, 400, QImage::Format_RGB32));
    EXPECT_EQ(badge(*shown), u"3@154,16 30x30"_s) << "of a picture from 63 to 191";
    shown->setImage(QImage(100, 400, QImage::Format_RGB32));
    EXPECT_EQ(badge(*shown), QString()) << "too narrow for it";
}

TEST_F(SpacesBadge, numbers_onlyFromOneToFiftyNine)
{
    for (const auto& [space, expected] : {std::pair(0, ""), {1, "1"}, {59, "59"}, {60, ""}}) {
        const ScreenyViewPtr panel = preview({0, 0, 243, 190}, space);
        panel->showSpaces();
        EXPECT_EQ(badge(*panel).section(u'@', 0, 0), QString::fromLatin1(expected)) << space;
    }
    // A badge that is up goes when the preview comes to show a window without a number.
    const ScreenyViewPtr panel = preview({0, 0, 243, 190}, 7);
    panel->showSpaces();
    ASSERT_EQ(badge(*panel).section(u'@', 0, 0), u"7"_s);
    panel->setElementRef(preview({0, 0, 243, 190}, 0)->elementRef());
    panel->showSpaces();
    EXPECT_EQ(badge(*panel), QString());
    // Or when the panel becomes too low for any.
    panel->setElementRef(preview({0, 0, 243, 190}, 7)->elementRef());
    panel->showSpaces();
    panel->window()->setFrame({0, 0, 130, 59});
    panel->showSpaces();
    EXPECT_EQ(badge(*panel), QString());

    // Or when it tells nothing any more, unless it is wanted always.
    panel->window()->setFrame({0, 0, 243, 190});
    for (const int always : {0, 1}) {
        panel->showSpaces();
        host.settingsMirror.alwaysShowSpaces = always;
        host.doTheyTell = false;
        panel->showSpaces();
        EXPECT_EQ(badge(*panel).isEmpty(), always == 0);
        host.doTheyTell = true;
    }

    host.settingsMirror.showSpaces = 0;
    const ScreenyViewPtr without = preview({0, 0, 243, 190}, 7);
    without->showSpaces();
    EXPECT_FALSE(without->spaceView());
}

TEST_F(SpacesBadge, nextLife_keepsTheBadgeButShowsNothingOfTheFormerOne)
{
    host.settingsMirror.spaceSize = 2;
    const ScreenyViewPtr panel = preview({0, 0, 243, 190}, 4);
    panel->showSpaces();
    const BadgeView* view = panel->spaceView();
    const SWElementPtr window = panel->elementRef();
    for (const auto& end : {&ScreenyView::rebirth, &ScreenyView::dismissWithoutRebirth,
                            &ScreenyView::prepareForCal}) {
        (panel.get()->*end)();
        EXPECT_EQ(badge(*panel), QString());
        for (const auto size : {BadgeView::Small, BadgeView::Medium, BadgeView::Large})
            EXPECT_TRUE(view->label(size)->isHidden());
        panel->setElementRef(window);
        host.settingsMirror.spaceSize = 0;
        panel->showSpaces();
        EXPECT_EQ(badge(*panel), u"4@203,16 30x30"_s);
    }
    EXPECT_EQ(panel->spaceView(), view);
}

TEST_F(SpacesBadge, style_oneIsBlue)
{
    QStringList images;
    for (const int style : {0, 1, 2}) {
        host.settingsMirror.spaceStyle = style;
        const ScreenyViewPtr panel = preview({0, 0, 243, 190});
        panel->showSpaces();
        images += panel->spaceView()->badgeImage()->imageName();
        EXPECT_FALSE(namedImage(images.last()).isNull()) << qPrintable(images.last());
    }
    EXPECT_EQ(images, QStringList({u"Space"_s, u"SpaceBlue"_s, u"Space"_s}));
}

} // namespace
} // namespace lumbrix::test
