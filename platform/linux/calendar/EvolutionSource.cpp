// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/EvolutionSource.h"

#include <memory>

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/CalendarColor.h"

// Qt's `emit` macro is also the name of a structure's member here.
#undef signals
#include <glib.h>

namespace lumbrix::platform
{
namespace
{

struct KeyFileDeleter {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    void operator()(char* text) const { g_free(text); }
};
using KeyFile = std::unique_ptr<GKeyFile, KeyFileDeleter>;
using Text = std::unique_ptr<char, KeyFileDeleter>;

QString value(const KeyFile& file, const char* group, const char* key)
{
    const Text text(g_key_file_get_locale_string(file.get(), group, key, nullptr, nullptr));
    return QString::fromUtf8(text.get());
}

/// Names become paths here, so they must not lead out of the folder.
QString localFile(const QString& uid, const QString& dataFolder)
{
    if (uid.isEmpty() || uid.startsWith(u'.') || uid.contains(u'/'))
        return {};
    // The calendar that every user has by default.
    const QString folder = uid == u"system-calendar"_s ? u"system"_s : uid;
    return dataFolder + u"/calendar/"_s + folder + u"/calendar.ics"_s;
}

} // namespace

std::optional<EvolutionSource> EvolutionSource::parse(const QString& uid, const QByteArray& keyFile,
                                                      const QString& dataFolder)
{
    constexpr auto calendarGroup = "Calendar";
    constexpr auto sourceGroup = "Data Source";
    const KeyFile file(g_key_file_new());
    if (!g_key_file_load_from_data(file.get(), keyFile.constData(),
                                   static_cast<gsize>(keyFile.size()), G_KEY_FILE_NONE, nullptr) ||
        !g_key_file_has_group(file.get(), calendarGroup) ||
        value(file, sourceGroup, "Enabled") == u"false"_s)
        return std::nullopt;
    EvolutionSource source;
    source.uid = uid;
    source.name = value(file, sourceGroup, "DisplayName");
    source.color = colorFromText(value(file, calendarGroup, "Color"));
    const QString backend = value(file, calendarGroup, "BackendName");
    if (backend.isEmpty())
        return std::nullopt; // a group of calendars, not a calendar
    if (backend == u"local"_s) {
        const QString custom = value(file, "Local Backend", "CustomFile");
        source.file = custom.isEmpty() ? localFile(uid, dataFolder) : custom;
    }
    return source;
}

} // namespace lumbrix::platform
