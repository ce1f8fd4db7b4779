// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When the user is away: as screen savers of all desktops and a login manager tell it.

#include <gtest/gtest.h>

#include <QtCore/QTemporaryFile>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusUnixFileDescriptor>
#include <QtDBus/QDBusVariant>

#include "platform/StringLiterals.h"
#include "platform/linux/session/ScreenLock.h"
#include "tests/platform/linux/TestService.h"

namespace lumbrix::platform
{
namespace
{

using test::PrivateBus;
using test::waitUntil;

const QString manager = u"org.freedesktop.login1"_s;
const QString managerPath = u"/org/freedesktop/login1"_s;
const QString sessionPath = u"/org/freedesktop/login1/session/_37"_s;

class ScreenLockTest : public testing::Test
{
protected:
    void tellActive(QDBusConnection& saver, const char* interface, bool isActive)
    {
        QDBusMessage signal = QDBusMessage::createSignal(
            u"/saver"_s, QString::fromLatin1(interface), u"ActiveChanged"_s);
        signal << isActive;
        saver.send(signal);
    }
    testing::AssertionResult tells(const QList<bool>& what)
    {
        if (waitUntil([&] { return m_told.size() >= what.size(); }) &&
            std::exchange(m_told, {}) == what)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << "something else was told";
    }

    PrivateBus bus;

private:
    QList<bool> m_told;

protected:
    ScreenLock lock{bus.connect(u"lock"_s), [this](bool isAway) { m_told += isAway; }};
};

TEST_F(ScreenLockTest, screenSaverOfAnyDesktop_tellsAndItsEndIsTheLocksEnd)
{
    QDBusConnection saver = bus.connect(u"saver"_s);
    for (const char* interface :
         {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver", "org.mate.ScreenSaver",
          "org.cinnamon.ScreenSaver", "org.xfce.ScreenSaver", "org.kde.screensaver"}) {
        tellActive(saver, interface, true);
        EXPECT_TRUE(tells({true})) << interface;
        tellActive(saver, interface, false);
        EXPECT_TRUE(tells({false})) << interface;
    }
    tellActive(saver, "org.xfce.ScreenSaver", true);
    EXPECT_TRUE(tells({true}));
    saver = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(bus.address() + u" saver"_s);
    EXPECT_TRUE(tells({false})) << "it has crashed";
}

TEST_F(ScreenLockTest, loginManager_tellsOfLocksAndSleep)
{
    int inhibitions = 0;
    int hintsAsked = 0;
    QTemporaryFile file;
    file.open();
    const auto answer = [&](const QDBusMessage& question) {
        if (question.member() == u"Inhibit") {
            ++inhibitions;
            return QVariant::fromValue(QDBusUnixFileDescriptor(file.handle()));
        }
        if (question.member() != u"Get")
            return QVariant::fromValue(QDBusObjectPath(sessionPath));
        ++hintsAsked;
        return QVariant::fromValue(QDBusVariant(false));
    };
    test::TestService login(bus.connect(u"login"_s), {manager}, managerPath, answer);
    const QString session = manager + u".Session"_s;
    const auto tellHint = [&](bool isLocked) {
        login.tell(sessionPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                   {session, QVariantMap{{u"LockedHint"_s, isLocked}}, QStringList()});
    };
    lock.watchLogin(bus.connect(u"system"_s));
    ASSERT_TRUE(waitUntil([&] { return hintsAsked == 1; }));
    tellHint(true);
    EXPECT_TRUE(tells({true}));
    login.tell(sessionPath, session, u"Unlock"_s, {});
    EXPECT_TRUE(tells({false}));
    // Nobody may be there who locks the screen then, and tells when that is over.
    login.tell(sessionPath, session, u"Lock"_s, {});
    EXPECT_TRUE(tells({true, false}));

    const auto sleeps = [&](bool starts) {
        login.tell(managerPath, manager + u".Manager"_s, u"PrepareForSleep"_s, {starts});
    };
    sleeps(true);
    EXPECT_TRUE(tells({true}));
    tellHint(true); // as most desktops do, in this order
    sleeps(false);
    EXPECT_TRUE(waitUntil([&] { return inhibitions == 2; })) << "ready for the next time";
    EXPECT_TRUE(lock.isAway());
    tellHint(false);
    EXPECT_TRUE(tells({false}));
}

TEST(ScreenLock, bussesThatAreNotThere_areNotWaitedFor)
{
    const QByteArray before = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
    ScreenLock lock(QDBusConnection(u"none"_s), [](bool) { FAIL(); });
    lock.findLogin();
    lock.watchLogin(QDBusConnection(u"none"_s));
    EXPECT_FALSE(lock.isAway());
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", before);
}

} // namespace
} // namespace lumbrix::platform
