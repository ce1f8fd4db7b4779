// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/SGKeyCodeTranslator.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace lumbrix
{
namespace
{

QJsonObject readTable()
{
    QFile file(u":/SGKeyCodes.json"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Contents of SGKeyCodes is nil");
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace

std::shared_ptr<SGKeyCodeTranslator>
SGKeyCodeTranslator::currentTranslator(platform::KeyboardLayout& keyboard)
{
    static std::shared_ptr<SGKeyCodeTranslator> current;
    const std::uint64_t layout = keyboard.currentLayout();
    if (!current || &current->m_keyboard != &keyboard || current->m_layout != layout)
        current = std::make_shared<SGKeyCodeTranslator>(keyboard, layout);
    return current;
}

QString SGKeyCodeTranslator::translateKeyCode(std::int64_t keyCode)
{
    const auto known = m_known.constFind(keyCode);
    if (known != m_known.constEnd())
        return *known;
    const QString text = m_keyboard.charactersOfKey(keyCode);
    const bool isPair = text.size() > 1 && text.at(0).isHighSurrogate();
    return *m_known.insert(keyCode, text.left(isPair ? 2 : 1));
}

QString stringForKeyCode(platform::KeyboardLayout& keyboard, std::int64_t keyCode)
{
    if (QString name = keyboard.nameOfKey(keyCode); !name.isEmpty())
        return name;
    static const QJsonObject table = readTable();
    const QString code = QString::number(keyCode);
    if (table.value(u"version").toInt() <= 0) {
        // Tables without a version have a name for every key.
        QString name = table.value(code).toString();
        return name.isEmpty() ? QString::number(keyCode, 16).toUpper() : name;
    }
    QString name = table.value(u"unmappedKeys").toObject().value(code).toString();
    if (!name.isEmpty())
        return name;
    QString character =
        SGKeyCodeTranslator::currentTranslator(keyboard)->translateKeyCode(keyCode).toUpper();
    if (!table.value(u"padKeys").toArray().contains(code))
        return character;
    return table.value(u"padKeyString").toString() + u' ' + character;
}

} // namespace lumbrix
