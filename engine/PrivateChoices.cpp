// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PrivateChoices.h"

#include <QtCore/QVariantMap>

#include "platform/StringLiterals.h"

namespace lumbrix::PrivateChoices
{
namespace
{
const QString key = u"privateApplications"_s;
} // namespace

platform::Privacy::Choices stored(const platform::UserDefaults& defaults)
{
    platform::Privacy::Choices choices;
    const QVariantMap values = defaults.dictionaryForKey(key).value_or(QVariantMap());
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        bool isNumber = false;
        const int number = it->toInt(&isNumber);
        choices.insert(it.key(), !isNumber || number != 0);
    }
    return choices;
}

void store(platform::UserDefaults& defaults, const platform::Privacy::Choices& choices)
{
    if (choices.isEmpty()) {
        defaults.removeObjectForKey(key);
        return;
    }
    QVariantMap values;
    for (auto it = choices.cbegin(); it != choices.cend(); ++it)
        values.insert(it.key(), *it ? 1 : 0);
    defaults.setDictionary(values, key);
}

} // namespace lumbrix::PrivateChoices
