// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The media players on the message bus and what they play, cached.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/media/MediaPlayer.h"

namespace lumbrix::platform
{

/// Main thread unless said otherwise. Follows all players by their change signals, and never waits
/// for one. A player that does not answer a query within 0.2 s, or sends an invalid answer, is
/// marked as not answering until it does.
class MprisPlayers final : public QObject
{
    Q_OBJECT

public:
    MprisPlayers(RunLoop& runLoop, const QDBusConnection& bus);
    ~MprisPlayers() override;

    void start();

    /// Any thread.
    std::vector<MediaPlayer> players() const;
    /// Refreshes the data of the player with this owner, because a preview is using it: a change
    /// signal may have been lost, or the player may have stopped answering. Any thread; returns at
    /// once.
    void look(const QString& owner);

private Q_SLOTS:
    void propertiesChanged(const QDBusMessage& message);

private:
    struct Player {
        MediaPlayer known;
        bool isMet = false; ///< all properties that identify its application have been requested
        bool isFollowed = false;
        bool isAsked = false;
        Seconds askedAt = 0.0;
        QByteArray artworkKey; ///< of the track whose artwork is loaded or being loaded
        bool isLoading = false;
    };
    using PlayerPtr = std::shared_ptr<Player>;
    using Answer = std::function<void(Player&, const QDBusMessage&)>;

    void ownerChanged(const QString& name, const QString& owner);
    void meet(const QString& name, const QString& owner);
    void forget(const QString& name);
    void follow(Player& player);
    void ask(const PlayerPtr& player);
    void update(Player& player, const MprisProperties& properties, bool answers);
    void updateArtwork(Player& player);
    void loadArtworkOf(Player& player);
    void setArtwork(const QString& owner, const QByteArray& key, const QImage& picture);
    PlayerPtr playerOf(const QString& owner) const;
    void call(const PlayerPtr& player, const QDBusMessage& message, int milliseconds,
              Answer answer);
    void publish();

    RunLoop& m_runLoop;
    QDBusConnection m_bus;
    std::map<QString, PlayerPtr> m_players; ///< by bus name
    int m_loading = 0;                      ///< pictures that are being read
    const MainThreadGuard m_guard;

    mutable std::mutex m_mutex;
    std::vector<MediaPlayer> m_published; // guarded by m_mutex
};

} // namespace lumbrix::platform
