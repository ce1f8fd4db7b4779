// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MprisPlayers.h"

#include <QtCore/QCryptographicHash>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>

#include <algorithm>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/linux/applications/ApplicationRoles.h"
#include "platform/linux/media/Artwork.h"

namespace lumbrix::platform
{

namespace
{

const QString& prefix()
{
    static const QString text = u"org.mpris.MediaPlayer2."_s;
    return text;
}

const QString& path()
{
    static const QString text = u"/org/mpris/MediaPlayer2"_s;
    return text;
}

const QString& rootInterface()
{
    static const QString text = u"org.mpris.MediaPlayer2"_s;
    return text;
}

const QString& playerInterface()
{
    static const QString text = u"org.mpris.MediaPlayer2.Player"_s;
    return text;
}

const QString& propertiesInterface()
{
    static const QString text = u"org.freedesktop.DBus.Properties"_s;
    return text;
}

/// A player that takes longer counts as not running.
constexpr int patienceMilliseconds = 200;
/// Timeout for properties that do not change; they are queried once, from players that may just be
/// starting.
constexpr int longPatienceMilliseconds = 5000;
/// A preview queries several times in a row, and again on every update.
constexpr Seconds shortestInterval = 0.3;

constexpr std::size_t maximumPlayers = 50;
/// How many pictures are read at once, each by a thread: one may take seconds. A player that comes
/// and goes, or has several names, may be read for more than once.
constexpr int maximumLoading = 4;

QDBusMessage daemonCall(const QString& method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                          u"org.freedesktop.DBus"_s, method);
}

QDBusMessage getAll(const QString& owner, const QString& interface)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(owner, path(), propertiesInterface(), u"GetAll"_s);
    message << interface;
    return message;
}

bool isAnswer(const QDBusMessage& reply, const char* signature)
{
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.signature() == QLatin1String(signature);
}

QVariantMap mapOf(const QVariant& argument) { return qdbus_cast<QVariantMap>(argument); }

QString textOf(const QVariantMap& properties, const QString& name)
{
    const QVariant value = properties.value(name);
    return value.typeId() == QMetaType::QString ? value.toString().left(200) : QString();
}

/// A proxy for the player that was used last, so its data is valid only for a moment.
bool isStandIn(const QString& name) { return name == prefix() + u"playerctld"_s; }

} // namespace

MprisPlayers::MprisPlayers(RunLoop& runLoop, const QDBusConnection& bus)
    : m_runLoop(runLoop), m_bus(bus)
{
}

MprisPlayers::~MprisPlayers() = default;

void MprisPlayers::start()
{
    if (!m_bus.isConnected())
        return;
    auto* watcher = new QDBusServiceWatcher(prefix().chopped(1) + u'*', m_bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& name, const QString&, const QString& owner) {
                ownerChanged(name, owner);
            });
    call(nullptr, daemonCall(u"ListNames"_s), longPatienceMilliseconds,
         [this](Player&, const QDBusMessage& reply) {
             if (!isAnswer(reply, "as"))
                 return;
             for (const QString& name : reply.arguments().constFirst().toStringList()) {
                 if (!name.startsWith(prefix()))
                     continue;
                 QDBusMessage question = daemonCall(u"GetNameOwner"_s);
                 question << name;
                 call(nullptr, question, longPatienceMilliseconds,
                      [this, name](Player&, const QDBusMessage& owner) {
                          if (isAnswer(owner, "s") && !m_players.contains(name))
                              meet(name, owner.arguments().constFirst().toString());
                      });
             }
         });
}

// Answers for a player that has ended are dropped; without a player the answer is the bus's own.
void MprisPlayers::call(const PlayerPtr& player, const QDBusMessage& message, int milliseconds,
                        Answer answer)
{
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, milliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [weak = std::weak_ptr(player), isAboutBus = !player,
             answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (const PlayerPtr about = isAboutBus ? std::make_shared<Player>() : weak.lock())
                    answer(*about, finished->reply());
            });
}

void MprisPlayers::ownerChanged(const QString& name, const QString& owner)
{
    forget(name);
    if (!owner.isEmpty())
        meet(name, owner);
}

void MprisPlayers::forget(const QString& name)
{
    const auto it = m_players.find(name);
    if (it == m_players.end())
        return;
    const PlayerPtr gone = it->second;
    qCDebug(log::media, "the player %s has gone", qUtf8Printable(name));
    m_players.erase(it);
    // A player may have two names.
    if (gone->isFollowed && !playerOf(gone->known.owner)) {
        m_bus.disconnect(gone->known.owner, path(), propertiesInterface(), u"PropertiesChanged"_s,
                         this, SLOT(propertiesChanged(QDBusMessage)));
    }
    publish();
}

void MprisPlayers::meet(const QString& name, const QString& owner)
{
    if (isStandIn(name) || m_players.size() >= maximumPlayers)
        return;
    const auto player = std::make_shared<Player>();
    player->known.owner = owner;
    player->known.shortName = name.mid(prefix().size());
    player->known.role = roleOfMediaPlayer(player->known.shortName);
    m_players.emplace(name, player);
    QDBusMessage process = daemonCall(u"GetConnectionUnixProcessID"_s);
    process << owner;
    call(player, process, longPatienceMilliseconds,
         [this](Player& about, const QDBusMessage& reply) {
             if (isAnswer(reply, "u")) {
                 about.known.pid = reply.arguments().constFirst().toUInt();
                 publish();
             }
         });
    follow(*player);
    ask(player);
    call(player, getAll(owner, rootInterface()), longPatienceMilliseconds,
         [this](Player& about, const QDBusMessage& reply) {
             const QVariantMap told =
                 isAnswer(reply, "a{sv}") ? mapOf(reply.arguments().constFirst()) : QVariantMap();
             about.known.desktopEntry = textOf(told, u"DesktopEntry"_s);
             about.known.identity = textOf(told, u"Identity"_s);
             if (about.known.role == ApplicationRole::Other)
                 about.known.role = roleOfApplicationId(about.known.desktopEntry);
             about.isMet = true;
             qCDebug(log::media, "the player %s, process %lld, is of kind %d",
                     qUtf8Printable(about.known.shortName), static_cast<long long>(about.known.pid),
                     static_cast<int>(about.known.role));
             updateArtwork(about);
             publish();
         });
}

void MprisPlayers::follow(Player& player)
{
    const bool isFollowed = std::ranges::any_of(m_players, [&](const auto& entry) {
        return entry.second->known.owner == player.known.owner && entry.second->isFollowed;
    });
    player.isFollowed = true;
    if (!isFollowed) {
        m_bus.connect(player.known.owner, path(), propertiesInterface(), u"PropertiesChanged"_s,
                      {playerInterface()}, u"sa{sv}as"_s, this,
                      SLOT(propertiesChanged(QDBusMessage)));
    }
}

MprisPlayers::PlayerPtr MprisPlayers::playerOf(const QString& owner) const
{
    const auto it = std::ranges::find_if(
        m_players, [&](const auto& entry) { return entry.second->known.owner == owner; });
    return it == m_players.end() ? nullptr : it->second;
}

void MprisPlayers::propertiesChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    for (const auto& entry : std::map(m_players)) {
        const PlayerPtr& player = entry.second;
        if (player->known.owner != message.service() || arguments.size() != 3)
            continue;
        MprisProperties properties = player->known.properties;
        applyMprisProperties(mapOf(arguments[1]), properties);
        update(*player, properties, player->known.answers);
        // Finds changes that were not announced, and players that answer again.
        if (!arguments[2].toStringList().isEmpty() || !player->known.answers)
            ask(player);
    }
}

void MprisPlayers::look(const QString& owner)
{
    const auto askSoon = m_guard.ifAlive([this, owner] {
        const PlayerPtr player = playerOf(owner);
        if (player && m_runLoop.now() - player->askedAt >= shortestInterval)
            ask(player);
    });
    m_runLoop.performOnMainThread(askSoon, false);
}

void MprisPlayers::ask(const PlayerPtr& player)
{
    if (player->isAsked)
        return;
    player->isAsked = true;
    player->askedAt = m_runLoop.now();
    call(player, getAll(player->known.owner, playerInterface()), patienceMilliseconds,
         [this](Player& about, const QDBusMessage& reply) {
             about.isAsked = false;
             MprisProperties properties;
             const bool answers = isAnswer(reply, "a{sv}");
             if (answers)
                 applyMprisProperties(mapOf(reply.arguments().constFirst()), properties);
             update(about, properties, answers);
         });
}

void MprisPlayers::update(Player& player, const MprisProperties& properties, bool answers)
{
    player.known.properties = properties;
    player.known.answers = answers;
    updateArtwork(player);
    publish();
}

// The former track's artwork stays until the new one is loaded, so that the preview does not show
// something else for a moment.
void MprisPlayers::updateArtwork(Player& player)
{
    const MprisProperties& track = player.known.properties;
    if (player.known.role != ApplicationRole::MusicPlayer || track.artUrl.isEmpty()) {
        player.artworkKey.clear();
        player.known.artwork = {};
        return;
    }
    if (!player.isLoading && m_loading < maximumLoading)
        loadArtworkOf(player);
}

void MprisPlayers::loadArtworkOf(Player& player)
{
    // Some players write every picture to the same file.
    const MprisProperties& track = player.known.properties;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const QString& text : {track.artUrl, track.artist, track.name})
        hash.addData(text.toUtf8());
    const QByteArray key = hash.result();
    if (key == player.artworkKey)
        return;
    player.artworkKey = key;
    player.isLoading = true;
    ++m_loading;
    const auto loaded =
        m_guard.ifAlive([this, key, owner = player.known.owner](const QImage& picture) {
            setArtwork(owner, key, picture);
        });
    m_runLoop.detachThread(
        "artwork", [&runLoop = m_runLoop, uri = track.artUrl, loaded](const Thread&) {
            runLoop.performOnMainThread([loaded, picture = loadArtwork(uri)] { loaded(picture); },
                                        false);
        });
}

void MprisPlayers::setArtwork(const QString& owner, const QByteArray& key, const QImage& picture)
{
    --m_loading;
    for (const auto& [name, player] : m_players) {
        if (player->known.owner != owner || !player->isLoading)
            continue;
        player->isLoading = false;
        if (picture.isNull())
            qCDebug(log::media, "the artwork that %s names is no plain picture, or too large",
                    qUtf8Printable(name));
        if (player->artworkKey == key)
            player->known.artwork = picture;
    }
    // Tracks may have changed meanwhile, and players may wait for their turn.
    for (const auto& [name, player] : m_players)
        updateArtwork(*player);
    publish();
}

std::vector<MediaPlayer> MprisPlayers::players() const
{
    const std::lock_guard lock(m_mutex);
    return m_published;
}

void MprisPlayers::publish()
{
    std::vector<MediaPlayer> players;
    for (const auto& [name, player] : m_players)
        if (player->isMet || player->known.role != ApplicationRole::Other)
            players.push_back(player->known);
    const std::lock_guard lock(m_mutex);
    m_published = std::move(players);
}

} // namespace lumbrix::platform
