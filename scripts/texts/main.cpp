// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Prints every text of the sources and the interface files as the program shows it, one a line, in
// each language there is; for scripts/list-texts.
//
//   lumbrix_texts CATALOGUE-SOURCES CATALOGUES
//
// Fails where a language lacks a text, fills in other places than the sources, or translates what
// they do not have.

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTranslator>
#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "app/Translations.h"
#include "platform/StringLiterals.h"

using namespace lumbrix;
using namespace Qt::StringLiterals;

namespace
{

struct Text {
    QByteArray context;
    QByteArray source;
    bool operator==(const Text&) const = default;
};

/// Of a catalogue's source; empty if it cannot be read.
std::vector<Text> textsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    std::vector<Text> texts;
    QByteArray context;
    for (QXmlStreamReader reader(&file); !reader.atEnd(); reader.readNext()) {
        if (!reader.isStartElement())
            continue;
        if (reader.name() == QLatin1String("name"))
            context = reader.readElementText().toUtf8();
        else if (reader.name() == QLatin1String("source"))
            texts.push_back({context, reader.readElementText().toUtf8()});
    }
    return texts;
}

/// Which of %1 to %9 the text has.
QString placesOf(const QString& text)
{
    QString places;
    for (char16_t digit = u'1'; digit <= u'9'; ++digit)
        if (text.contains(QString(u'%') + digit))
            places += digit;
    return places;
}

/// The number of faults.
int list(const QString& language, const std::vector<Text>& texts)
{
    int faults = 0;
    const auto translators = QCoreApplication::instance()->findChildren<QTranslator*>();
    for (const Text& text : texts) {
        const QString shown =
            QCoreApplication::translate(text.context.constData(), text.source.constData());
        QString line = shown;
        std::printf("%s %s: %s\n", qPrintable(language), text.context.constData(),
                    qUtf8Printable(line.replace(u'\n', u' ')));
        const bool isKnown = std::ranges::any_of(translators, [&](const QTranslator* each) {
            return !each->translate(text.context.constData(), text.source.constData()).isEmpty();
        });
        const char* fault = nullptr;
        if (language != QLatin1String("en") && !isKnown)
            fault = "is not translated";
        else if (placesOf(shown) != placesOf(QString::fromUtf8(text.source)))
            fault = "fills in other places";
        if (fault)
            std::fprintf(stderr, "%s %s: \"%s\" %s\n", qPrintable(language),
                         text.context.constData(), text.source.constData(), fault);
        faults += fault ? 1 : 0;
    }
    return faults;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const QString sources = QString::fromLocal8Bit(argv[1]);
    const std::vector<Text> texts = textsOf(sources + u"/lumbrix_de.ts"_s); // which is complete
    int faults = texts.empty() ? 1 : 0;
    for (const Text& text : textsOf(sources + u"/lumbrix_en.ts"_s)) {
        if (std::ranges::count(texts, text) == 1)
            continue;
        ++faults;
        std::fprintf(stderr, "en %s: \"%s\" is not in the sources\n", text.context.constData(),
                     text.source.constData());
    }
    const QDir catalogues(QString::fromLocal8Bit(argv[2]));
    for (const QString& file : catalogues.entryList({u"lumbrix_*.qm"_s})) {
        const QString language = file.section(u'_', 1).section(u'.', 0, 0);
        qDeleteAll(application.findChildren<QTranslator*>());
        installTranslations({language}, {catalogues.path()});
        faults += list(language, texts);
    }
    return faults == 0 ? 0 : 1;
}
