// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A media player on the message bus, well-behaved or not.
#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariantMap>

#include <utility>

#include "tests/platform/media/PrivateBus.h"

namespace lumbrix::test
{

class TestPlayer final : public BusObject
{
public:
    /// Joins the bus at the address as "org.mpris.MediaPlayer2." and the name.
    TestPlayer(const QString& address, const QString& name, const QVariantMap& properties = {});
    /// As "PlaybackStatus" and the like; announced when `tell`.
    void set(const QVariantMap& properties, bool tell = true);
    /// Announces something that is no announcement.
    void tellNonsense();
    void setDesktopEntry(const QString& entry) { m_desktopEntry = entry; }
    void setIdentity(const QString& identity) { m_identity = identity; }
    /// Commands since the last call, and how often it was asked.
    QStringList takeCommands() { return std::exchange(m_commands, {}); }
    int questions() const { return m_questions; }

private:
    QVariantList answer(const QDBusMessage& question) override;
    void tellChange(const QVariantList& arguments);

    QVariantMap m_properties;
    QString m_desktopEntry;
    QString m_identity;
    QStringList m_commands;
    int m_questions = 0;
};

QVariantMap track(const QVariant& artist, const QVariant& title, const QVariant& artUrl = {});

} // namespace lumbrix::test
