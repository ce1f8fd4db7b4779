// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/ProgramSettings.h"

#include <gio/gio.h>

namespace lumbrix::platform
{

namespace
{

struct Unref {
    void operator()(GSettings* settings) const { g_object_unref(settings); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(char* text) const { g_free(text); }
};

} // namespace

struct ProgramSettings::Native {
    std::unique_ptr<GSettingsSchema, Unref> schema;
    std::unique_ptr<GSettings, Unref> settings;
    std::function<void()> changed;
    gulong handler = 0;

    ~Native()
    {
        if (handler != 0)
            g_signal_handler_disconnect(settings.get(), handler);
    }

    static void onChanged(GSettings*, const char*, gpointer self)
    {
        static_cast<Native*>(self)->changed();
    }

    // GSettings aborts the program if a key does not exist or has another type.
    bool has(const char* key, const GVariantType* type) const
    {
        if (!g_settings_schema_has_key(schema.get(), key))
            return false;
        GSettingsSchemaKey* description = g_settings_schema_get_key(schema.get(), key);
        const bool fits =
            g_variant_type_equal(g_settings_schema_key_get_value_type(description), type);
        g_settings_schema_key_unref(description);
        return fits;
    }
};

ProgramSettings::ProgramSettings(std::unique_ptr<Native> native) : m_native(std::move(native)) {}

ProgramSettings::~ProgramSettings() = default;

std::unique_ptr<ProgramSettings> ProgramSettings::open(const QString& schema, const QString& path,
                                                       std::function<void()> changed)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (!source)
        return nullptr;
    auto native = std::make_unique<Native>();
    native->schema.reset(
        g_settings_schema_source_lookup(source, schema.toUtf8().constData(), TRUE));
    if (!native->schema || bool(g_settings_schema_get_path(native->schema.get())) != path.isEmpty())
        return nullptr;
    const QByteArray place = path.toUtf8();
    native->settings.reset(g_settings_new_full(native->schema.get(), nullptr,
                                               path.isEmpty() ? nullptr : place.constData()));
    if (changed) {
        native->changed = std::move(changed);
        native->handler = g_signal_connect(native->settings.get(), "changed",
                                           G_CALLBACK(Native::onChanged), native.get());
    }
    return std::unique_ptr<ProgramSettings>(new ProgramSettings(std::move(native)));
}

std::optional<QString> ProgramSettings::text(const char* key) const
{
    if (!m_native->has(key, G_VARIANT_TYPE_STRING))
        return std::nullopt;
    const std::unique_ptr<char, Unref> value(g_settings_get_string(m_native->settings.get(), key));
    return QString::fromUtf8(value.get());
}

std::optional<int> ProgramSettings::number(const char* key) const
{
    return m_native->has(key, G_VARIANT_TYPE_INT32)
               ? std::optional(g_settings_get_int(m_native->settings.get(), key))
               : std::nullopt;
}

std::optional<bool> ProgramSettings::flag(const char* key) const
{
    return m_native->has(key, G_VARIANT_TYPE_BOOLEAN)
               ? std::optional(g_settings_get_boolean(m_native->settings.get(), key) != FALSE)
               : std::nullopt;
}

} // namespace lumbrix::platform
