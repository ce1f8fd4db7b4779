// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Light or dark, as a desktop portal and the names of themes tell it.

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusVariant>

#include "platform/StringLiterals.h"
#include "platform/linux/session/LinuxLook.h"
#include "tests/platform/linux/TestService.h"
#include "tests/support/Files.h"
#include "tests/support/VirtualRunLoop.h"

namespace lumbrix::platform
{
namespace
{

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

TEST(LookTest, portalWins_elseTheThemesName)
{
    const QTemporaryDir folder;
    test::writeFile(folder.filePath(u"gtk-3.0/settings.ini"_s),
                    "[Settings]\ngtk-theme-name = Greybird-dark\n");
    test::PrivateBus bus;
    test::VirtualRunLoop loop;
    LinuxLook look(loop, nullptr, bus.connect(u"look"_s), folder.path());
    int changes = 0;
    look.setObserver([&] { ++changes; });
    EXPECT_EQ(look.isDark(), true);
    const auto becomes = [&](bool isDark) {
        return test::waitUntil([&] { return look.isDark() == isDark; });
    };
    {
        // As most do, it answers with a variant in a variant.
        const QVariant light = QVariant::fromValue(QDBusVariant(2U));
        test::TestService portal(
            bus.connect(u"portal"_s), {u"org.freedesktop.portal.Desktop"_s}, portalPath,
            [&](const QDBusMessage&) { return QVariant::fromValue(QDBusVariant(light)); });
        const auto set = [&](uint value, const QString& group = u"org.freedesktop.appearance"_s) {
            portal.tell(portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s,
                        {group, u"color-scheme"_s, QVariant::fromValue(QDBusVariant(value))});
        };
        EXPECT_TRUE(becomes(false)) << "it came later, and was asked";
        set(1);
        EXPECT_TRUE(becomes(true));
        set(2);
        EXPECT_TRUE(becomes(false));
        set(1, u"org.gnome.desktop.interface"_s);
        set(0);
        EXPECT_TRUE(becomes(true)) << "no preference: the theme's";
        set(2);
        EXPECT_TRUE(becomes(false));
    }
    EXPECT_TRUE(becomes(true)) << "it is gone";
    EXPECT_GE(changes, 5);
    loop.shutdown();
}

TEST(LookTest, themes_areDarkByTheirNames)
{
    for (const char* dark :
         {"Adwaita-dark", "Arc-Dark", "Mint-Y-Dark-Aqua", "dark", "Adwaita:dark"})
        EXPECT_TRUE(isDarkTheme(QString::fromLatin1(dark))) << dark;
    for (const char* light : {"Adwaita", "Arc-Darker", "Darkula", ""})
        EXPECT_FALSE(isDarkTheme(QString::fromLatin1(light))) << light;
}

} // namespace
} // namespace lumbrix::platform
