// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A row worked by the keyboard, and what a screen reader hears of it.
#include "DesktopTest.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

#include "Keys.h"
#include "Lumbrix.h"

namespace lumbrix::privatedesk
{

namespace
{

QDBusMessage callOn(const QDBusConnection& bus, const QStringList& target, const QString& method,
                    const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(target[0], target[1], target[2], method);
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, static_cast<int>(patience(5000).count()));
}

/// Hears what gets the focus, as a screen reader does, and reads its name.
class Listener final : public QObject
{
    Q_OBJECT

public:
    explicit Listener(const Session& session)
        : m_session(QDBusConnection::connectToBus(session.busAddress(), u"listener"_s)),
          m_bus(QDBusConnection::connectToBus(
              callOn(m_session, {u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s},
                     u"GetAddress"_s, {})
                  .arguments()
                  .value(0)
                  .toString(),
              u"heard"_s))
    {
        callOn(m_session,
               {u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.freedesktop.DBus.Properties"_s},
               u"Set"_s,
               {u"org.a11y.Status"_s, u"ScreenReaderEnabled"_s,
                QVariant::fromValue(QDBusVariant(true))});
        m_bus.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, u"StateChanged"_s, this,
                      SLOT(changed(QDBusMessage)));
        const QStringList registry{u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/registry"_s,
                                   u"org.a11y.atspi.Registry"_s};
        callOn(m_bus, registry, u"RegisterEvent"_s,
               {u"object:state-changed:focused"_s, QStringList(), QString()});
    }
    ~Listener() override
    {
        QDBusConnection::disconnectFromBus(u"heard"_s);
        QDBusConnection::disconnectFromBus(u"listener"_s);
    }

    bool isConnected() const { return m_bus.isConnected(); }
    /// All that was heard so far; what is said twice in a row, once.
    QStringList heard()
    {
        QCoreApplication::processEvents();
        for (const QStringList& each : std::exchange(m_focused, {})) {
            const QString name =
                callOn(m_bus, {each[0], each[1], u"org.freedesktop.DBus.Properties"_s}, u"Get"_s,
                       {u"org.a11y.atspi.Accessible"_s, u"Name"_s})
                    .arguments()
                    .value(0)
                    .value<QDBusVariant>()
                    .variant()
                    .toString();
            if (m_heard.isEmpty() || m_heard.back() != name)
                m_heard << name;
        }
        return m_heard;
    }

private Q_SLOTS:
    void changed(const QDBusMessage& event)
    {
        if (event.arguments().value(0) == u"focused"_s && event.arguments().value(1).toInt() == 1)
            m_focused << QStringList{event.service(), event.path()};
    }

private:
    QDBusConnection m_session;
    QDBusConnection m_bus;
    QList<QStringList> m_focused;
    QStringList m_heard;
};

} // namespace

class KeyboardTest : public DesktopTest
{
protected:
    /// With the hot key Control+Alt+P.
    void startWithKey(const Application& application)
    {
        const QByteArray key = "\n[openRowKey]\nkeyCode=35\nmodifiers=6144\n";
        desk().session().write(settingsPath(desk().session()), settings() + key);
        desk().startLumbrixAgain(application);
        ASSERT_TRUE(parkShowsNothing());
    }
    void openRow() { display().type({controlKey, altKey, pKey}); }
    Result hasKeyboard(xcb_window_t window)
    {
        return waitUntil(
            [&] { return display().focus() == window && display().activeWindow() == window; });
    }
};

INSTANTIATE_TEST_SUITE_P(, KeyboardTest, testing::Values(panelAndPlank()), deskName);

TEST_P(KeyboardTest, rowOpenedByKey_isHeard_andGivesTheKeyboardBack)
{
    Application& beta = launch(u"beta"_s, 1);
    Application& alpha = launch(u"alpha"_s, 3);
    Listener listener(desk().session());
    ASSERT_TRUE(listener.isConnected());
    startWithKey(alpha);
    const AppWindow minimised = alpha.windows()[0];
    const AppWindow elsewhere = alpha.windows()[1];
    const AppWindow active = alpha.windows()[2];
    alpha.minimise(minimised);
    alpha.moveToDesktop(elsewhere, 1);
    alpha.activate(active);
    ASSERT_TRUE(hasKeyboard(active.id));

    // The mouse alone says nothing.
    ASSERT_TRUE(hoverShows(beta));
    moveToPreview(beta.windows().front().title);
    ASSERT_TRUE(parkShowsNothing());

    openRow();
    ASSERT_TRUE(waitUntil([&] { return display().previews().size() == 3; }));
    QStringList said;
    const auto previews = display().previews();
    for (const Panel& panel : previews) {
        said << u"%1, %2 of 3"_s.arg(QString::fromUtf8(panel.title)).arg(said.size() + 1);
        if (panel.title == minimised.title)
            said.back() += u", minimised"_s;
        said.back() += panel.title == elsewhere.title ? u", workspace 2"_s : u", workspace 1"_s;
    }
    // From the active window to the last one, and back to the first.
    qsizetype at = std::ranges::find(previews, active.title, &Panel::title) - previews.begin();
    std::vector<std::uint8_t> keys(static_cast<std::size_t>(2 - at), rightKey);
    keys.insert(keys.end(), 2, leftKey);
    QStringList expected{said[at]};
    EXPECT_TRUE(waitUntil([&] { return listener.heard() == expected; }));
    for (const std::uint8_t key : keys) {
        display().type({key});
        at += key == rightKey ? 1 : -1;
        expected << said[at];
        EXPECT_TRUE(waitUntil([&] { return listener.heard().size() >= expected.size(); }));
    }
    EXPECT_EQ(listener.heard().join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    savePicture("chosen");
    const auto seen = alpha.keys();
    display().type({escapeKey});
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(hasKeyboard(active.id));
    EXPECT_EQ(alpha.keys(), seen) << "keys of the row reached the program";

    openRow();
    ASSERT_TRUE(waitUntil([&] { return display().focus() != active.id; }));
    display().type({leftKey});
    display().type({leftKey});
    display().type({returnKey});
    EXPECT_TRUE(showsNothing());
    const auto first =
        std::ranges::find(alpha.windows(), previews.front().title, &AppWindow::title);
    EXPECT_TRUE(hasKeyboard(first->id));
    display().request(display().root(), "_NET_CURRENT_DESKTOP", {0, 0});
}

} // namespace lumbrix::privatedesk

#include "KeyboardTest.moc"
