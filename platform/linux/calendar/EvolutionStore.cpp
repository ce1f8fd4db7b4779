// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/EvolutionStore.h"

#include <QtCore/QDateTime>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>

#include <algorithm>
#include <utility>

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/EvolutionObject.h"

namespace lumbrix::platform
{
namespace
{

const QString sourceService = u"org.gnome.evolution.dataserver.Sources5"_s;
const QString sourceInterface = u"org.gnome.evolution.dataserver.Source"_s;
const QString factoryService = u"org.gnome.evolution.dataserver.Calendar8"_s;
const QString factoryInterface = u"org.gnome.evolution.dataserver.CalendarFactory"_s;
const QString calendarInterface = u"org.gnome.evolution.dataserver.Calendar"_s;

/// Long enough for a calendar on a server that cannot be reached.
constexpr Seconds answerTimeout = 4;
constexpr int callTimeout = 4000; ///< milliseconds
constexpr std::size_t maxCalendars = 200;
constexpr int maxRecurring = 500;
constexpr qsizetype maxText = qsizetype{32} * 1024 * 1024; ///< of one calendar

bool isAnswer(const QDBusMessage& reply, const char* signature)
{
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.signature() == QLatin1String(signature);
}

/// The calendars among all sources: a{oa{sa{sv}}}.
std::vector<EvolutionCalendar> calendarsIn(const QDBusMessage& reply)
{
    std::vector<EvolutionCalendar> calendars;
    const auto argument = reply.arguments().constFirst().value<QDBusArgument>();
    QMap<QDBusObjectPath, QMap<QString, QVariantMap>> objects;
    argument >> objects;
    for (const auto& interfaces : std::as_const(objects)) {
        const QVariantMap properties = interfaces.value(sourceInterface);
        const auto source =
            EvolutionSource::parse(properties.value(u"UID"_s).toString(),
                                   properties.value(u"Data"_s).toString().toUtf8(), {});
        if (source && calendars.size() < maxCalendars)
            calendars.push_back({*source, {}});
    }
    std::sort(calendars.begin(), calendars.end(), [](const auto& a, const auto& b) {
        return std::tie(a.source.name, a.source.uid) < std::tie(b.source.name, b.source.uid);
    });
    return calendars;
}

QString inUtc(ical::Instant instant)
{
    return QDateTime::fromMSecsSinceEpoch(instant, Qt::UTC).toString(u"yyyyMMddThhmmssZ"_s);
}

} // namespace

struct EvolutionStore::Job {
    QString query;
    EvolutionAnswer answer;
    std::size_t missing = 0; ///< number of calendars not read yet
    bool isOver = false;
    Done done;
};

EvolutionStore::EvolutionStore(RunLoop& runLoop, const QDBusConnection& bus)
    : m_runLoop(runLoop), m_bus(bus)
{
}

EvolutionStore::~EvolutionStore() { m_runLoop.cancelPreviousPerformRequests(this); }

void EvolutionStore::fetch(ical::Instant start, ical::Instant end, Done done)
{
    const auto job = std::make_shared<Job>();
    job->done = std::move(done);
    job->query = u"(occur-in-time-range? (make-time \"%1\") (make-time \"%2\"))"_s.arg(inUtc(start),
                                                                                       inUtc(end));
    if (!m_bus.isConnected()) {
        m_runLoop.performAfterDelay(this, 0, [this, job] { finish(job); });
        return;
    }
    m_runLoop.performAfterDelay(this, answerTimeout, [this, job] {
        job->answer.isComplete = false;
        finish(job);
    });
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    message << sourceService;
    call(job, message, [this, job](const QDBusMessage& reply) {
        job->answer.isRunning = isAnswer(reply, "b") && reply.arguments().constFirst().toBool();
        if (job->answer.isRunning)
            listCalendars(job);
        else
            finish(job);
    });
}

void EvolutionStore::call(const JobPtr& job, const QDBusMessage& message, Reply reply)
{
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, callTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [job, reply = std::move(reply)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (!job->isOver)
                    reply(finished->reply());
            });
}

void EvolutionStore::listCalendars(const JobPtr& job)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        sourceService, u"/org/gnome/evolution/dataserver/SourceManager"_s,
        u"org.freedesktop.DBus.ObjectManager"_s, u"GetManagedObjects"_s);
    message.setAutoStartService(false);
    call(job, message, [this, job](const QDBusMessage& reply) {
        if (isAnswer(reply, "a{oa{sa{sv}}}"))
            job->answer.calendars = calendarsIn(reply);
        else
            job->answer.isComplete = false;
        job->missing = job->answer.calendars.size();
        if (job->missing == 0)
            finish(job);
        for (std::size_t i = 0; i < job->answer.calendars.size(); ++i)
            openCalendar(job, i);
    });
}

void EvolutionStore::openCalendar(const JobPtr& job, std::size_t index)
{
    // The calendar service is started on demand and ends by itself.
    QDBusMessage message = QDBusMessage::createMethodCall(
        factoryService, u"/org/gnome/evolution/dataserver/CalendarFactory"_s, factoryInterface,
        u"OpenCalendar"_s);
    message << job->answer.calendars[index].source.uid;
    call(job, message, [this, job, index](const QDBusMessage& reply) {
        if (!isAnswer(reply, "ss")) {
            calendarDone(job, false);
            return;
        }
        const QString path = reply.arguments().at(0).toString();
        const QString service = reply.arguments().at(1).toString();
        call(job, QDBusMessage::createMethodCall(service, path, calendarInterface, u"Open"_s),
             [this, job, index, service, path](const QDBusMessage& opened) {
                 if (opened.type() == QDBusMessage::ReplyMessage)
                     readCalendar(job, index, service, path);
                 else
                     calendarDone(job, false);
             });
    });
}

void EvolutionStore::readCalendar(const JobPtr& job, std::size_t index, const QString& service,
                                  const QString& path)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, path, calendarInterface, u"GetObjectList"_s);
    message << job->query;
    call(job, message, [this, job, index, service, path](const QDBusMessage& reply) {
        if (isAnswer(reply, "as"))
            readObjects(job, index, service, path, reply.arguments().constFirst().toStringList());
        else
            calendarDone(job, false);
    });
}

/// For a recurring event the answer contains only the components that occur in the interval. An
/// exception that moves an occurrence out of the interval comes only with the complete event, so
/// that is requested.
void EvolutionStore::readObjects(const JobPtr& job, std::size_t index, const QString& service,
                                 const QString& path, const QStringList& objects)
{
    QStringList recurring;
    QByteArray& text = job->answer.calendars[index].text;
    for (const QString& object : objects) {
        const EvolutionObject event = EvolutionObject::parse(object);
        if (event.recurs && recurring.size() < maxRecurring)
            recurring << event.uid;
        else if (text.size() + object.size() < maxText)
            text += object.toUtf8() + "\r\n";
        else
            job->answer.isComplete = false;
    }
    recurring.removeDuplicates();
    const auto missing = std::make_shared<qsizetype>(recurring.size());
    const auto close = [this, job, service, path] {
        m_bus.send(QDBusMessage::createMethodCall(service, path, calendarInterface, u"Close"_s));
        calendarDone(job, true);
    };
    if (recurring.isEmpty())
        close();
    for (const QString& uid : std::as_const(recurring)) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(service, path, calendarInterface, u"GetObject"_s);
        message << uid << QString();
        call(job, message, [job, index, missing, close](const QDBusMessage& reply) {
            QByteArray& known = job->answer.calendars[index].text;
            if (isAnswer(reply, "s") && known.size() < maxText)
                known += reply.arguments().constFirst().toString().toUtf8() + "\r\n";
            else
                job->answer.isComplete = false;
            if (--*missing == 0)
                close();
        });
    }
}

void EvolutionStore::calendarDone(const JobPtr& job, bool isRead)
{
    job->answer.isComplete = job->answer.isComplete && isRead;
    if (--job->missing == 0)
        finish(job);
}

void EvolutionStore::finish(const JobPtr& job)
{
    if (std::exchange(job->isOver, true))
        return;
    m_runLoop.cancelPreviousPerformRequests(this);
    job->done(job->answer);
}

} // namespace lumbrix::platform
