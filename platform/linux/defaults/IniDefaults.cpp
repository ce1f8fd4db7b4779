// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/IniDefaults.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <cstdio>
#include <sys/stat.h>
#include <utility>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/defaults/IniValue.h"
#include "platform/linux/defaults/ReplaceFile.h"

namespace lumbrix::platform
{

namespace
{
// A settings file has a few kilobytes. A larger one is damaged; only this much of it is parsed, to
// limit time and memory ...
constexpr qsizetype parsedSize = qsizetype{256} * 1024;
// ... and a file larger than this is not touched, as it could not even be copied.
constexpr qint64 maximumSize = qint64{64} * 1024 * 1024;
} // namespace

QString IniDefaults::defaultPath() { return configHome() + u"/lumbrix/lumbrix.conf"_s; }

IniDefaults::IniDefaults(QString path) : m_path(std::move(path)) { load(); }

std::optional<QByteArray> IniDefaults::scalar(const QString& key) const
{
    return m_file.value(IniFile::generalSection(), key);
}

std::int64_t IniDefaults::integerForKey(const QString& key) const
{
    const auto text = scalar(key);
    return text ? inivalue::toInteger(*text).value_or(0) : 0;
}

float IniDefaults::floatForKey(const QString& key) const
{
    const auto text = scalar(key);
    return text ? inivalue::toFloat(*text).value_or(0.0F) : 0.0F;
}

bool IniDefaults::boolForKey(const QString& key) const
{
    const auto text = scalar(key);
    return text && inivalue::toBool(*text).value_or(false);
}

std::optional<QVariantMap> IniDefaults::dictionaryForKey(const QString& key) const
{
    if (key == IniFile::generalSection() || !m_file.hasSection(key))
        return std::nullopt;
    QVariantMap result;
    for (const auto& [name, text] : m_file.entries(key))
        result.insert(name, inivalue::decode(text));
    return result;
}

std::optional<QStringList> IniDefaults::arrayForKey(const QString& key) const
{
    const auto text = scalar(key);
    return text ? inivalue::toArray(*text) : std::nullopt;
}

std::optional<QByteArray> IniDefaults::dataForKey(const QString& key) const
{
    const auto text = scalar(key);
    return text ? inivalue::toData(*text) : std::nullopt;
}

void IniDefaults::setInteger(std::int64_t value, const QString& key)
{
    change(key, {.scalar = QByteArray::number(static_cast<qlonglong>(value))});
}

void IniDefaults::setFloat(float value, const QString& key)
{
    change(key, {.scalar = inivalue::encodeFloat(value)});
}

void IniDefaults::setBool(bool value, const QString& key)
{
    change(key, {.scalar = inivalue::encode(value)});
}

void IniDefaults::setDictionary(const QVariantMap& value, const QString& key)
{
    change(key, {.dictionary = value});
}

void IniDefaults::setArray(const QStringList& value, const QString& key)
{
    change(key, {.scalar = inivalue::encodeArray(value)});
}

void IniDefaults::setData(const QByteArray& value, const QString& key)
{
    change(key, {.scalar = inivalue::encodeData(value)});
}

void IniDefaults::removeObjectForKey(const QString& key) { change(key, {}); }

void IniDefaults::change(const QString& key, Change change)
{
    if (key.isEmpty() || (change.dictionary && key == IniFile::generalSection()))
        return;
    qCDebug(log::settings, "%s is set", qUtf8Printable(key));
    apply(m_file, key, change);
    m_unsaved.insert_or_assign(key, std::move(change));
}

// A key is a scalar or a dictionary, so setting it as one removes the other. Setting a scalar
// leaves a section of the same name alone only when it is the section of the scalars itself.
void IniDefaults::apply(IniFile& file, const QString& key, const Change& change)
{
    const QString general = IniFile::generalSection();
    if (change.scalar)
        file.setValue(general, key, *change.scalar);
    else
        file.removeValue(general, key);
    if (key == general)
        return;
    if (!change.dictionary) {
        file.removeSection(key);
        return;
    }
    file.keepValues(key, [&](const QString& name) { return change.dictionary->contains(name); });
    file.ensureSection(key);
    QHash<QString, QByteArray> written; // efficient even for thousands
    for (const auto& [name, text] : file.entries(key))
        written.insert(name, text);
    for (auto it = change.dictionary->cbegin(); it != change.dictionary->cend(); ++it) {
        // An unchanged value stays as written, including bytes that are not valid text.
        const auto present = written.constFind(it.key());
        if (present == written.cend() || inivalue::decode(*present) != it.value())
            file.setValue(key, it.key(), inivalue::encode(it.value()));
    }
}

IniDefaults::Stamp IniDefaults::stampOfFile() const
{
    struct stat status {
    };
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return {.exists = true,
            .seconds = status.st_mtim.tv_sec,
            .nanoseconds = status.st_mtim.tv_nsec,
            .size = status.st_size,
            .inode = status.st_ino};
}

bool IniDefaults::load()
{
    m_stamp = stampOfFile();
    QByteArray bytes;
    m_readable = true;
    if (m_stamp.exists) {
        QFile file(m_path);
        QString fault;
        if (m_stamp.size > maximumSize) {
            fault = u"it is too large"_s;
        } else if (!QFileInfo(m_path).isFile()) {
            fault = u"it is no file"_s;
        } else if (!file.open(QIODevice::ReadOnly)) {
            fault = file.errorString();
        } else {
            bytes = file.read(maximumSize);
            if (file.error() != QFile::NoError)
                fault = file.errorString();
        }
        m_readable = fault.isEmpty();
        if (!m_readable) {
            tell("read", fault);
            return false; // keep the known values; an unreadable file is not empty
        }
    }
    qCDebug(log::settings, "%lld bytes were read from %s", static_cast<long long>(bytes.size()),
            qUtf8Printable(m_path));
    m_bytesOnDisk = bytes;
    m_file = IniFile(bytes, parsedSize);
    for (const auto& [key, change] : m_unsaved)
        apply(m_file, key, change);
    return true;
}

bool IniDefaults::synchronize()
{
    if (!m_readable || stampOfFile() != m_stamp)
        load();
    if (m_unsaved.empty())
        return m_readable;
    if (!m_readable)
        return false; // replacing it would lose its contents
    const QByteArray bytes = m_file.toBytes();
    if (bytes != m_bytesOnDisk && !write(bytes))
        return false;
    m_unsaved.clear();
    m_hasTold = false;
    return true;
}

void IniDefaults::tell(const char* what, const QString& fault)
{
    if (!std::exchange(m_hasTold, true)) {
        std::fprintf(stderr, "lumbrix: the settings in %s cannot be %s: %s\n",
                     qUtf8Printable(m_path), what, qUtf8Printable(fault));
    }
}

bool IniDefaults::write(const QByteArray& bytes)
{
    const QString fault = replaceFile(m_path, bytes);
    if (!fault.isNull()) {
        tell("saved", fault);
        return false;
    }
    qCDebug(log::settings, "%lld bytes were saved", static_cast<long long>(bytes.size()));
    m_bytesOnDisk = bytes;
    m_stamp = stampOfFile();
    return true;
}

} // namespace lumbrix::platform
