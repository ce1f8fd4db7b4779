// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Service.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDate>
#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVirtualObject>

#include "platform/StringLiterals.h"

namespace lumbrix::bench
{
namespace
{

using namespace Qt::StringLiterals;

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

const QString sources = u"org.gnome.evolution.dataserver.Sources5"_s;
const QString calendars = u"org.gnome.evolution.dataserver.Calendar8"_s;

/// As a data server and a player would, each knowing only what the program asks.
class Answers final : public QDBusVirtualObject
{
public:
    explicit Answers(int number) : m_number(number) {}

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return connection.send(message.createReply(answer(message)));
    }

private:
    QVariantList answer(const QDBusMessage& message) const
    {
        const QString question = message.member();
        if (question == u"GetManagedObjects"_s)
            return {QVariant::fromValue(allSources())};
        if (question == u"OpenCalendar"_s)
            return {u"/org/gnome/evolution/dataserver/Calendar/1"_s, calendars};
        if (question == u"GetObjectList"_s)
            return {events()};
        if (question != u"GetAll"_s)
            return {};
        if (message.arguments().value(0) == u"org.mpris.MediaPlayer2"_s)
            return {
                QVariantMap{{u"Identity"_s, u"Audacious"_s}, {u"DesktopEntry"_s, u"audacious"_s}}};
        const QUrl cover = QUrl::fromLocalFile(coverOf(m_number, QDir::homePath()));
        return {QVariantMap{{u"PlaybackStatus"_s, u"Playing"_s},
                            {u"Metadata"_s, QVariantMap{{u"xesam:title"_s, songOf(m_number)},
                                                        {u"mpris:artUrl"_s, cover.toString()}}}}};
    }
    static Objects allSources()
    {
        const QString data = u"[Data Source]\nDisplayName=Storm\nEnabled=true\n"
                             "[Calendar]\nBackendName=caldav\nSelected=true\n"_s;
        return {{QDBusObjectPath(u"/org/gnome/evolution/dataserver/SourceManager/Source_1"_s),
                 {{u"org.gnome.evolution.dataserver.Source"_s,
                   {{u"UID"_s, u"storm"_s}, {u"Data"_s, data}}}}}};
    }
    /// Whole days, so that the time of day does not matter.
    QStringList events() const
    {
        const auto day = [](int distance) {
            return QDate::currentDate().addDays(distance).toString(u"yyyyMMdd"_s);
        };
        QStringList result;
        for (int i = 1; i <= eventsOf(m_number); ++i)
            result << u"BEGIN:VEVENT\r\nUID:%1\r\nSUMMARY:Event %1\r\nDTSTART;VALUE=DATE:%2\r\n"
                      "DTEND;VALUE=DATE:%3\r\nEND:VEVENT"_s.arg(i)
                          .arg(day(-1), day(2));
        return result;
    }

    const int m_number;
};

} // namespace

QString songOf(int number) { return u"Song %1"_s.arg(number); }

QString coverOf(int number, const QString& home) { return home + u"/cover-%1.png"_s.arg(number); }

int eventsOf(int number) { return 2 + number % 8; }

int serve(const QString& service, int number)
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    Answers answers(number);
    bus.registerVirtualObject(u"/org"_s, &answers, QDBusConnection::SubPath);
    const QStringList names = service == QLatin1String(playerService)
                                  ? QStringList{u"org.mpris.MediaPlayer2.audacious"_s}
                                  : QStringList{sources, calendars};
    for (const QString& name : names)
        if (!bus.registerService(name))
            return 1;
    return QCoreApplication::exec();
}

} // namespace lumbrix::bench
