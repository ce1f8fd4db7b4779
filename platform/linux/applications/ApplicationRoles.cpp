// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ApplicationRoles.h"

#include <QtCore/QHash>

namespace lumbrix::platform
{

namespace
{

struct Row {
    ApplicationRole role;
    const char* id;
};

// Ids of desktop entries as named by distributions, the programs' own packages and sandboxes; a
// renamed program is listed under all its names.
//
// Evolution shows mail first and a calendar second. As a calendar its windows would never be
// previewed, so only an entry that opens nothing but the calendar counts as one.
constexpr Row rows[] = {
    {ApplicationRole::MusicPlayer, "amarok"},
    {ApplicationRole::MusicPlayer, "audacious"},
    {ApplicationRole::MusicPlayer, "cantata"},
    {ApplicationRole::MusicPlayer, "clementine"},
    {ApplicationRole::MusicPlayer, "com.github.neithern.g4music"},
    {ApplicationRole::MusicPlayer, "com.sayonara-player.Sayonara"},
    {ApplicationRole::MusicPlayer, "com.spotify.Client"},
    {ApplicationRole::MusicPlayer, "deadbeef"},
    {ApplicationRole::MusicPlayer, "exaile"},
    {ApplicationRole::MusicPlayer, "gmusicbrowser"},
    {ApplicationRole::MusicPlayer, "io.bassi.Amberol"},
    {ApplicationRole::MusicPlayer, "io.elementary.music"},
    {ApplicationRole::MusicPlayer, "io.github.quodlibet.QuodLibet"},
    {ApplicationRole::MusicPlayer, "juk"},
    {ApplicationRole::MusicPlayer, "lollypop"},
    {ApplicationRole::MusicPlayer, "org.atheme.audacious"},
    {ApplicationRole::MusicPlayer, "org.clementine_player.Clementine"},
    {ApplicationRole::MusicPlayer, "org.gnome.Lollypop"},
    {ApplicationRole::MusicPlayer, "org.gnome.Music"},
    {ApplicationRole::MusicPlayer, "org.gnome.Rhythmbox3"},
    {ApplicationRole::MusicPlayer, "org.kde.amarok"},
    {ApplicationRole::MusicPlayer, "org.kde.elisa"},
    {ApplicationRole::MusicPlayer, "org.kde.juk"},
    {ApplicationRole::MusicPlayer, "org.strawberrymusicplayer.strawberry"},
    {ApplicationRole::MusicPlayer, "pragha"},
    {ApplicationRole::MusicPlayer, "qmmp"},
    {ApplicationRole::MusicPlayer, "quodlibet"},
    {ApplicationRole::MusicPlayer, "rhythmbox"},
    {ApplicationRole::MusicPlayer, "sayonara"},
    {ApplicationRole::MusicPlayer, "spotify"},
    {ApplicationRole::MusicPlayer, "strawberry"},

    {ApplicationRole::MoviePlayer, "celluloid"},
    {ApplicationRole::MoviePlayer, "com.github.rafostar.Clapper"},
    {ApplicationRole::MoviePlayer, "io.github.celluloid_player.Celluloid"},
    {ApplicationRole::MoviePlayer, "io.mpv.Mpv"},
    {ApplicationRole::MoviePlayer, "mpv"},
    {ApplicationRole::MoviePlayer, "org.gnome.Showtime"},
    {ApplicationRole::MoviePlayer, "org.gnome.Totem"},
    {ApplicationRole::MoviePlayer, "org.kde.dragonplayer"},
    {ApplicationRole::MoviePlayer, "org.kde.haruna"},
    {ApplicationRole::MoviePlayer, "org.kde.kaffeine"},
    {ApplicationRole::MoviePlayer, "org.xfce.Parole"},
    {ApplicationRole::MoviePlayer, "parole"},
    {ApplicationRole::MoviePlayer, "smplayer"},
    {ApplicationRole::MoviePlayer, "totem"},
    {ApplicationRole::MoviePlayer, "xplayer"},

    {ApplicationRole::VLC, "org.videolan.VLC"},
    {ApplicationRole::VLC, "vlc"},

    {ApplicationRole::Mail, "claws-mail"},
    {ApplicationRole::Mail, "evolution"},
    {ApplicationRole::Mail, "org.claws_mail.Claws-Mail"},
    {ApplicationRole::Mail, "org.gnome.Evolution"},
    {ApplicationRole::Mail, "org.mozilla.Thunderbird"},
    {ApplicationRole::Mail, "thunderbird"},
    {ApplicationRole::Mail, "thunderbird-default"},
    {ApplicationRole::Mail, "thunderbird-esr"},

    {ApplicationRole::Calendar, "evolution-calendar"},
    {ApplicationRole::Calendar, "gnome-calendar"},
    {ApplicationRole::Calendar, "io.elementary.calendar"},
    {ApplicationRole::Calendar, "korganizer"},
    {ApplicationRole::Calendar, "orage"},
    {ApplicationRole::Calendar, "org.gnome.Calendar"},
    {ApplicationRole::Calendar, "org.gnome.Evolution-calendar"},
    {ApplicationRole::Calendar, "org.kde.kalendar"},
    {ApplicationRole::Calendar, "org.kde.korganizer"},
    {ApplicationRole::Calendar, "org.kde.merkuro.calendar"},
    {ApplicationRole::Calendar, "org.xfce.orage"},
    {ApplicationRole::Calendar, "xfcalendar"},

    {ApplicationRole::PasswordManager, "1password"},
    {ApplicationRole::PasswordManager, "app.keeweb.keeweb"},
    {ApplicationRole::PasswordManager, "bitwarden"},
    {ApplicationRole::PasswordManager, "buttercup-desktop"},
    {ApplicationRole::PasswordManager, "com.bitwarden.desktop"},
    {ApplicationRole::PasswordManager, "com.belmoussaoui.Authenticator"},
    {ApplicationRole::PasswordManager, "com.github.paolostivanin.OTPClient"},
    {ApplicationRole::PasswordManager, "com.onepassword.OnePassword"},
    {ApplicationRole::PasswordManager, "com.yubico.authenticator"},
    {ApplicationRole::PasswordManager, "enpass"},
    {ApplicationRole::PasswordManager, "gcr-prompter"},
    {ApplicationRole::PasswordManager, "info.olasagasti.revelation"},
    {ApplicationRole::PasswordManager, "io.ente.auth"},
    {ApplicationRole::PasswordManager, "io.enpass.Enpass"},
    {ApplicationRole::PasswordManager, "keepass2"},
    {ApplicationRole::PasswordManager, "keepassx"},
    {ApplicationRole::PasswordManager, "keepassxc"},
    {ApplicationRole::PasswordManager, "keeweb"},
    {ApplicationRole::PasswordManager, "kwalletmanager5-kwalletd"},
    {ApplicationRole::PasswordManager, "me.proton.Pass"},
    {ApplicationRole::PasswordManager, "nordpass"},
    {ApplicationRole::PasswordManager, "org.gnome.PasswordSafe"},
    {ApplicationRole::PasswordManager, "org.gnome.World.Secrets"},
    {ApplicationRole::PasswordManager, "org.gnome.seahorse.Application"},
    {ApplicationRole::PasswordManager, "org.ijhack.QtPass"},
    {ApplicationRole::PasswordManager, "org.kde.keysmith"},
    {ApplicationRole::PasswordManager, "org.kde.kwalletmanager"},
    {ApplicationRole::PasswordManager, "org.kde.kwalletmanager5"},
    {ApplicationRole::PasswordManager, "org.keepassxc.KeePassXC"},
    {ApplicationRole::PasswordManager, "passwordsafe"},
    {ApplicationRole::PasswordManager, "pinentry-gtk-2"},
    {ApplicationRole::PasswordManager, "pinentry-qt"},
    {ApplicationRole::PasswordManager, "proton-pass"},
    {ApplicationRole::PasswordManager, "pw.buttercup.desktop"},
    {ApplicationRole::PasswordManager, "pwsafe"},
    {ApplicationRole::PasswordManager, "qtpass"},
    {ApplicationRole::PasswordManager, "revelation"},
    {ApplicationRole::PasswordManager, "seahorse"},
};

using Index = QHash<QString, ApplicationRole>;

Index byId()
{
    Index index;
    for (const Row& row : rows)
        index.insert(QString::fromLatin1(row.id).toLower(), row.role);
    return index;
}

Index byShortName()
{
    Index index = byId();
    for (const Row& row : rows) {
        const QString word = QString::fromLatin1(row.id).section(u'.', -1).toLower();
        if (!index.contains(word))
            index.insert(word, row.role);
    }
    return index;
}

} // namespace

ApplicationRole roleOfApplicationId(const QString& id)
{
    static const Index index = byId();
    return index.value(id.toLower(), ApplicationRole::Other);
}

ApplicationRole roleOfEntry(const DesktopEntry& entry)
{
    const ApplicationRole role = roleOfApplicationId(entry.id);
    return role != ApplicationRole::Other ? role : roleOfApplicationId(entry.executable());
}

ApplicationRole roleOfShortName(const QString& name)
{
    static const Index index = byShortName();
    return index.value(name.toLower(), ApplicationRole::Other);
}

} // namespace lumbrix::platform
