// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/Translations.h"
#include "platform/StringLiterals.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

#include <algorithm>
#include <memory>

namespace lumbrix
{
namespace
{

bool install(const QString& catalogue, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(catalogue, folder))
        return false;
    QCoreApplication::installTranslator(translator.get());
    translator.release()->setParent(QCoreApplication::instance());
    return true;
}

bool installOurs(const QString& suffix, const QStringList& folders)
{
    return std::ranges::any_of(folders, [&suffix](const QString& folder) {
        return install(u"lumbrix"_s + suffix, folder);
    });
}

} // namespace

QStringList catalogueFolders()
{
    const QString program = QCoreApplication::applicationDirPath();
    return {program + u"/translations"_s, program + QStringLiteral("/" LUMBRIX_CATALOGUES)};
}

void installTranslations(const QStringList& languages, const QStringList& folders)
{
    for (const QString& language : languages) {
        const QLocale::Language known = QLocale(language).language();
        if (known == QLocale::English || known == QLocale::C)
            break;
        // For "de_AT" this loads "de" if there is no closer match.
        const QString suffix = u'_' + QString(language).replace(u'-', u'_');
        if (installOurs(suffix, folders)) {
            install(u"qtbase"_s + suffix, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return;
        }
    }
    installOurs(u"_en"_s, folders);
}

} // namespace lumbrix
