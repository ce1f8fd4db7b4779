// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews that other programs ask for over the bus.
#include "DesktopTest.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

namespace lumbrix::privatedesk
{

namespace
{

/// A program that asks; it has gone when this object has.
class Caller final : public QObject
{
    Q_OBJECT

public:
    Caller(Session& session, const QString& name)
        : m_name(name), m_bus(QDBusConnection::connectToBus(session.busAddress(), name))
    {
        m_bus.connect(service, path, interface, u"Hidden"_s, this, SLOT(countHidden()));
    }
    ~Caller() override { QDBusConnection::disconnectFromBus(m_name); }

    /// The error's name; empty when it went well.
    QString call(const QString& method, const QVariantList& arguments = {})
    {
        return send(interface, method, arguments).errorName();
    }
    /// The same, and whatever the program says.
    QDBusMessage send(const QString& onInterface, const QString& method,
                      const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, onInterface, method);
        message.setArguments(arguments);
        return m_bus.call(message, QDBus::Block, static_cast<int>(patience(5000).count()));
    }
    QString show(const QString& id, const QRect& place, const QString& edge = u"bottom"_s)
    {
        return call(u"ShowForApplication"_s, {id, place, edge});
    }
    QString show(const std::vector<AppWindow>& windows, const QRect& place)
    {
        QList<uint> ids;
        for (const AppWindow& window : windows)
            ids << window.id;
        return call(u"ShowForWindows"_s, {QVariant::fromValue(ids), place, u"bottom"_s});
    }
    int hidden() const
    {
        QCoreApplication::processEvents();
        return m_hidden;
    }

    const QString service = u"org.lumbrix.Lumbrix"_s;
    const QString path = u"/org/lumbrix/Previews1"_s;
    const QString interface = u"org.lumbrix.Previews1"_s;

private Q_SLOTS:
    void countHidden() { ++m_hidden; }

private:
    const QString m_name;
    QDBusConnection m_bus;
    int m_hidden = 0;
};

const QString invalid = u"org.freedesktop.DBus.Error.InvalidArgs"_s;

} // namespace

class RequestsTest : public DesktopTest
{
protected:
    /// Waits until the call goes well: a window is not known the moment that it is mapped.
    template <class Call> Result succeeds(Call call)
    {
        return waitUntil([&] { return call().isEmpty(); });
    }
    const QRect place{300, 700, 60, 48};
};

INSTANTIATE_TEST_SUITE_P(, RequestsTest, testing::Values(plank(), tint2()), deskName);

TEST_P(RequestsTest, row_standsBesideTheRectangle_untilItIsHidden)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    launch(u"beta"_s, 1);
    Caller caller(desk().session(), u"caller"_s);
    constexpr int gap = 33;
    const std::pair<QString, QRect> cases[] = {{u"bottom"_s, place},
                                               {u"top"_s, {300, 100, 60, 48}},
                                               {u"left"_s, {100, 500, 60, 48}},
                                               {u"right"_s, {1100, 500, 60, 48}}};
    const xcb_window_t active = display().activeWindow();
    int hidden = 0;
    for (const auto& each : cases) {
        const auto& [edge, at] = each;
        SCOPED_TRACE(qPrintable(edge));
        ASSERT_TRUE(succeeds([&] { return caller.show(u"alpha"_s, each.second, each.first); }));
        ASSERT_TRUE(shows(alpha));
        const int distance = edge == u"bottom" ? at.top() - row().bottom()
                             : edge == u"top"  ? row().top() - at.bottom()
                             : edge == u"left" ? row().left() - at.right()
                                               : at.left() - row().right();
        EXPECT_NEAR(distance - 1, gap, 1);
        const bool isAcross = edge == u"left"_s || edge == u"right"_s;
        EXPECT_NEAR(isAcross ? row().center().y() : row().center().x(),
                    isAcross ? at.center().y() : at.center().x(), 12);
        EXPECT_EQ(caller.hidden(), hidden);
        EXPECT_EQ(caller.call(u"Hide"_s), u""_s);
        EXPECT_TRUE(showsNothing());
        EXPECT_TRUE(waitUntil([&] { return caller.hidden() > hidden; }));
        EXPECT_EQ(caller.hidden(), ++hidden);
    }
    EXPECT_EQ(caller.call(u"Hide"_s), u""_s) << "nothing to hide is no error";
    EXPECT_EQ(caller.hidden(), hidden);
    EXPECT_EQ(display().activeWindow(), active) << "the focus has moved";
}

TEST_P(RequestsTest, row_goesWithItsCaller_andAnotherCallerTakesOver)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const Application& beta = launch(u"beta"_s, 1);
    auto first = std::make_unique<Caller>(desk().session(), u"first"_s);
    Caller second(desk().session(), u"second"_s);
    ASSERT_TRUE(succeeds([&] { return first->show(u"alpha"_s, place); }));
    ASSERT_TRUE(shows(alpha));
    ASSERT_TRUE(succeeds([&] { return second.show(u"beta.desktop"_s, place); }));
    EXPECT_TRUE(shows(beta));
    EXPECT_TRUE(waitUntil([&] { return first->hidden() == 1; }));
    EXPECT_EQ(first->call(u"Hide"_s), u""_s) << "too late";
    EXPECT_TRUE(shows(beta));
    EXPECT_EQ(second.hidden(), 0);

    ASSERT_EQ(first->show(alpha.windows(), place), u""_s);
    ASSERT_TRUE(shows(alpha));
    EXPECT_TRUE(waitUntil([&] { return second.hidden() == 1; }));
    first.reset();
    EXPECT_TRUE(showsNothing());

    // A command that ends at once: its row stays while the mouse is there, also off it again.
    display().moveTo(place.center());
    EXPECT_EQ(Caller(desk().session(), u"brief"_s).show(u"alpha"_s, place), u""_s);
    EXPECT_TRUE(shows(alpha));
    EXPECT_TRUE(parkShowsNothing());
    EXPECT_EQ(second.hidden(), 1);
}

TEST_P(RequestsTest, whatCannotBeShown_isAnError_andChangesNothing)
{
    const Application& alpha = launch(u"alpha"_s, 1);
    Caller caller(desk().session(), u"caller"_s);
    ASSERT_TRUE(succeeds([&] { return caller.show(u"alpha"_s, place); }));
    ASSERT_TRUE(shows(alpha));
    for (const QString& id :
         {u"nobody"_s, QString(5000, u'x'), QString::fromUtf8("\xf0\x9f\x8e\xa8/../\x1b[31m")})
        EXPECT_EQ(caller.show(id, place), invalid) << qPrintable(id.left(20));
    EXPECT_EQ(caller.show(u"alpha"_s, QRect(5000, 0, 9, 9)), invalid);
    EXPECT_EQ(caller.show(u"alpha"_s, place, u"middle"_s), invalid);
    EXPECT_EQ(caller.show(std::vector<AppWindow>(), place), invalid);
    AppWindow root;
    root.id = display().root();
    EXPECT_EQ(caller.show({alpha.windows().front(), root}, place), invalid);
    EXPECT_EQ(caller.show(u"gamma"_s, place), u"org.lumbrix.Previews1.Error.NothingToShow"_s);
    EXPECT_EQ(caller.call(u"ShowForApplication"_s, {u"alpha"_s, u"everywhere"_s, u"top"_s}),
              u"org.freedesktop.DBus.Error.UnknownMethod"_s);
    EXPECT_TRUE(shows(alpha));
    EXPECT_EQ(caller.hidden(), 0);
    EXPECT_EQ(caller.call(u"Hide"_s), u""_s);
    EXPECT_TRUE(showsNothing());

    const QString described = caller.send(u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s)
                                  .arguments()
                                  .value(0)
                                  .toString();
    for (const QString& part :
         {u"<interface name=\"org.lumbrix.Previews1\">"_s, u"type=\"(iiii)\""_s, u"type=\"au\""_s,
          u"<signal name=\"Hidden\"/>"_s})
        EXPECT_TRUE(described.contains(part)) << qPrintable(described);
}

} // namespace lumbrix::privatedesk

#include "RequestsTest.moc"
