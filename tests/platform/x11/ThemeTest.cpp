// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The theme that a settings daemon tells.

#include "X11Desk.h"
#include "platform/linux/x11/ThemeWatch.h"

#include <QtCore/QtEndian>

namespace lumbrix::platform::x11
{
namespace
{

/// A number and a colour, then the theme.
QByteArray settings(const QByteArray& theme, bool isBigEndian = false)
{
    const auto number = [&](auto value) {
        value = isBigEndian ? qToBigEndian(value) : qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
    };
    const auto padded = [](QByteArray text) {
        return text.append((4 - text.size() % 4) % 4, '\0');
    };
    const auto setting = [&](char kind, const QByteArray& name) {
        return QByteArray(1, kind) + '\0' + number(static_cast<quint16>(name.size())) +
               padded(name) + number(quint32{7});
    };
    return QByteArray(1, isBigEndian ? '\1' : '\0') + QByteArray(3, '\0') + number(quint32{1}) +
           number(quint32{3}) + setting(0, "Xft/DPI") + number(quint32{96}) + setting(2, "Colour") +
           QByteArray(8, 'c') + setting(1, "Net/ThemeName") +
           number(static_cast<quint32>(theme.size())) + padded(theme);
}

TEST(ThemeWatchTest, settings_areReadAsFarAsTheyGo)
{
    EXPECT_EQ(themeNameIn(settings("Adwaita-dark")), u"Adwaita-dark"_s);
    EXPECT_EQ(themeNameIn(settings("Greybird", true)), u"Greybird"_s);
    const QByteArray whole = settings("Theme");
    for (int length = 0; length < whole.size() - 8; ++length)
        EXPECT_EQ(themeNameIn(whole.first(length)), QString()) << length;
    QByteArray huge = whole;
    huge[huge.size() - 9] = '\x7f'; // the length of the name
    EXPECT_EQ(themeNameIn(huge).left(5), u"Theme"_s);
    EXPECT_EQ(themeNameIn(QByteArray(64, '\x55')), QString());
}

TEST(ThemeWatchTest, daemon_isFollowedWhenItComesChangesAndGoes)
{
    X11Desk desk({{1280, 1024}, WindowManager::Xfwm4, true});
    const auto becomes = [&](const QString& name) {
        return desk.waitFor([&] { return desk.core().theme().themeName() == name; });
    };
    EXPECT_TRUE(becomes({}));
    {
        RawWindow daemon(desk.session(), {-10, -10, 1, 1}, true);
        const auto tell = [&](const char* theme) {
            daemon.setBytes("_XSETTINGS_SETTINGS", "_XSETTINGS_SETTINGS", settings(theme));
        };
        tell("Adwaita");
        daemon.own("_XSETTINGS_S0");
        EXPECT_TRUE(becomes(u"Adwaita"_s));
        tell("Adwaita-dark");
        EXPECT_TRUE(becomes(u"Adwaita-dark"_s));
    }
    EXPECT_TRUE(becomes({}));
}

} // namespace
} // namespace lumbrix::platform::x11
