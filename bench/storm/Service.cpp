// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Service.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMap>
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

class Answers final : public QDBusVirtualObject
{
public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return connection.send(message.createReply(answer(message)));
    }

private:
    static QVariantList answer(const QDBusMessage& message)
    {
        if (message.member() == u"GetManagedObjects")
            return {QVariant::fromValue(Objects())}; // a server without calendars
        if (message.member() != u"GetAll")
            return {};
        if (message.arguments().value(0) == u"org.mpris.MediaPlayer2"_s)
            return {QVariantMap{{u"Identity"_s, u"VLC"_s}, {u"DesktopEntry"_s, u"vlc"_s}}};
        return {QVariantMap{{u"PlaybackStatus"_s, u"Playing"_s},
                            {u"Metadata"_s, QVariantMap{{u"xesam:title"_s, u"A song"_s}}}}};
    }
};

} // namespace

int serve(const QString& service)
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    Answers answers;
    bus.registerVirtualObject(u"/org"_s, &answers, QDBusConnection::SubPath);
    const bool isPlayer = service == QLatin1String(playerService);
    if (!bus.registerService(isPlayer ? u"org.mpris.MediaPlayer2.vlc"_s
                                      : u"org.gnome.evolution.dataserver.Sources5"_s))
        return 1;
    return QCoreApplication::exec();
}

} // namespace lumbrix::bench
