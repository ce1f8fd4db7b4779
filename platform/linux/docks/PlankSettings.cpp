// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankSettings.h"

#include <gio/gio.h>

namespace lumbrix::platform
{

namespace
{

constexpr char SchemaName[] = "net.launchpad.plank.dock.settings";

struct Unref {
    void operator()(GSettings* settings) const { g_object_unref(settings); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(char* text) const { g_free(text); }
};

} // namespace

struct PlankSettings::Native {
    std::unique_ptr<GSettingsSchema, Unref> schema;
    std::unique_ptr<GSettings, Unref> settings;
    std::function<void()> changed;
    gulong handler = 0;

    ~Native()
    {
        if (settings) {
            g_signal_handler_disconnect(settings.get(), handler);
        }
    }

    static void onChanged(GSettings*, const char*, gpointer self)
    {
        static_cast<Native*>(self)->changed();
    }

    // GSettings ends the program when a key or its type is not what the reader thinks.
    bool has(const char* key, const GVariantType* type) const
    {
        if (!g_settings_schema_has_key(schema.get(), key)) {
            return false;
        }
        GSettingsSchemaKey* description = g_settings_schema_get_key(schema.get(), key);
        const bool fits =
            g_variant_type_equal(g_settings_schema_key_get_value_type(description), type);
        g_settings_schema_key_unref(description);
        return fits;
    }
    QString text(const char* key) const
    {
        if (!has(key, G_VARIANT_TYPE_STRING)) {
            return {};
        }
        const std::unique_ptr<char, Unref> value(g_settings_get_string(settings.get(), key));
        return QString::fromUtf8(value.get());
    }
    int number(const char* key, int otherwise) const
    {
        return has(key, G_VARIANT_TYPE_INT32) ? g_settings_get_int(settings.get(), key) : otherwise;
    }
    bool flag(const char* key) const
    {
        return has(key, G_VARIANT_TYPE_BOOLEAN) &&
               g_settings_get_boolean(settings.get(), key) != FALSE;
    }
};

PlankSettings::PlankSettings(const QString& dockName, std::function<void()> changed)
{
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (source == nullptr) {
        return;
    }
    auto native = std::make_unique<Native>();
    native->schema.reset(g_settings_schema_source_lookup(source, SchemaName, TRUE));
    if (!native->schema || g_settings_schema_get_path(native->schema.get()) != nullptr) {
        return;
    }
    const QByteArray path = "/net/launchpad/plank/docks/" + dockName.toUtf8() + '/';
    native->changed = std::move(changed);
    native->settings.reset(g_settings_new_full(native->schema.get(), nullptr, path.constData()));
    native->handler = g_signal_connect(native->settings.get(), "changed",
                                       G_CALLBACK(Native::onChanged), native.get());
    m_native = std::move(native);
}

PlankSettings::~PlankSettings() = default;

std::optional<PlankSettings::Values> PlankSettings::read() const
{
    if (!m_native) {
        return std::nullopt;
    }
    Values values;
    const QString position = m_native->text("position");
    if (position == u"left") {
        values.edge = DockEdge::Left;
    } else if (position == u"right") {
        values.edge = DockEdge::Right;
    } else if (position == u"top") {
        values.edge = DockEdge::Top;
    }
    const QString mode = m_native->text("hide-mode");
    values.hides = !mode.isEmpty() && mode != u"none";
    values.look.iconSize = m_native->number("icon-size", values.look.iconSize);
    values.look.magnifies = m_native->flag("zoom-enabled");
    values.look.zoomPercent = m_native->number("zoom-percent", values.look.zoomPercent);
    return values;
}

} // namespace lumbrix::platform
