// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's settings in an INI file: scalars and lists as key=value lines of the first section,
// each dictionary as a section named by its key.
#pragma once

#include <map>

#include "platform/UserDefaults.h"
#include "platform/linux/defaults/IniFile.h"

namespace lumbrix::platform
{

/// Main thread. The file is read by the constructor and by synchronize(), which also reads changes
/// of other programs and then applies its own unsaved changes.
class IniDefaults final : public UserDefaults
{
public:
    /// $XDG_CONFIG_HOME/lumbrix/lumbrix.conf, or below ~/.config.
    static QString defaultPath();

    explicit IniDefaults(QString path);

    std::int64_t integerForKey(const QString& key) const override;
    float floatForKey(const QString& key) const override;
    bool boolForKey(const QString& key) const override;
    std::optional<QVariantMap> dictionaryForKey(const QString& key) const override;
    std::optional<QStringList> arrayForKey(const QString& key) const override;
    std::optional<QByteArray> dataForKey(const QString& key) const override;

    void setInteger(std::int64_t value, const QString& key) override;
    void setFloat(float value, const QString& key) override;
    void setBool(bool value, const QString& key) override;
    void setDictionary(const QVariantMap& value, const QString& key) override;
    void setArray(const QStringList& value, const QString& key) override;
    void setData(const QByteArray& value, const QString& key) override;
    void removeObjectForKey(const QString& key) override;

    bool synchronize() override;

private:
    /// The new value of a key; neither set means removed.
    struct Change {
        std::optional<QByteArray> scalar{};
        std::optional<QVariantMap> dictionary{};
    };
    struct Stamp {
        bool exists = false;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;
        std::int64_t size = 0;
        std::uint64_t inode = 0;
        bool operator==(const Stamp&) const = default;
    };

    std::optional<QByteArray> scalar(const QString& key) const;
    void change(const QString& key, Change change);
    static void apply(IniFile& file, const QString& key, const Change& change);
    Stamp stampOfFile() const;
    /// False if the file exists but cannot be read.
    bool load();
    bool write(const QByteArray& bytes);
    /// On standard error, only once until saving succeeds again: settings are stored often, and the
    /// message should not be repeated each time.
    void tell(const char* what, const QString& fault);

    const QString m_path;
    IniFile m_file;
    QByteArray m_bytesOnDisk;
    Stamp m_stamp;
    bool m_readable = true;
    bool m_hasTold = false;
    std::map<QString, Change> m_unsaved;
};

} // namespace lumbrix::platform
