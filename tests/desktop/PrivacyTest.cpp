// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the screen shows of a private application, and of any once a screen saver is on.
#include "DesktopTest.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace lumbrix::privatedesk
{

class PrivacyTest : public DesktopTest
{
protected:
    /// How much of the row has that colour.
    double part(const QColor& colour)
    {
        const QImage picture = display().picture(row());
        const int count = pixelsOf(picture, [&](QRgb each) { return each == colour.rgb(); }).count;
        return picture.isNull() ? 0 : static_cast<double>(count) / picture.sizeInBytes() * 4;
    }
    bool isUp(std::size_t previews) { return display().previews().size() == previews; }
};

INSTANTIATE_TEST_SUITE_P(, PrivacyTest, testing::Values(plank()), deskName);

TEST_P(PrivacyTest, windows_ofAPrivateApplication_areCardsWithItsIcon)
{
    Application& alpha = launch(u"alpha"_s);
    alpha.open("secret", Qt::cyan);
    alpha.minimise(alpha.open("hidden secret", Qt::cyan));
    desk().stopLumbrix();
    desk().session().write(desk().session().configPath(u"lumbrix/lumbrix.conf"_s),
                           "[General]\nfirstRun=1\nbadgeDockIconsFirstRun=1\nshowInDock=1\n"
                           "zoomWindows=1\nwindowWidth=243\nwindowHeight=190\npreviewStyle=1\n"
                           "[privateApplications]\nalpha=1\n");
    desk().startLumbrixAgain(alpha);
    ASSERT_TRUE(waitUntil([&] { return isUp(2) && part(Qt::red) > 0.05; })) << "icons in red";
    moveToPreview("secret");
    EXPECT_TRUE(preview("secret"));
    EXPECT_LT(part(Qt::cyan), 0.001);
    savePicture("cards");
    desk().startLumbrix();
}

TEST_P(PrivacyTest, screenSaver_endsTheRowUntilItIsOver)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    ASSERT_TRUE(hoverShows(alpha));
    const QString name = u"screen saver"_s;
    const auto tell = [&](bool isActive) {
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/"_s, u"org.xfce.ScreenSaver"_s, u"ActiveChanged"_s);
        signal << isActive;
        QDBusConnection::connectToBus(desk().session().busAddress(), name).send(signal);
    };
    tell(true);
    EXPECT_TRUE(showsNothing());
    tell(false);
    EXPECT_TRUE(waitUntil([&] {
        desk().park();
        hover(alpha);
        return bool(shows(alpha, 500));
    }));
    QDBusConnection::disconnectFromBus(name);
}

} // namespace lumbrix::privatedesk
