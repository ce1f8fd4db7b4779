// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/PrintableText.h"
#include "platform/StringLiterals.h"

#include <QtCore/QList>

namespace lumbrix
{
namespace
{

bool isToBeEscaped(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format:
        // Joiners connect letters and emoji, so they stay; the others are invisible or change the
        // direction of the text after them.
        return character != 0x200C && character != 0x200D;
    default:
        return false;
    }
}

QString escaped(char32_t character)
{
    switch (character) {
    case U'\n':
        return u"\\n"_s;
    case U'\t':
        return u"\\t"_s;
    default:
        return QString::asprintf(character < 0x100 ? "\\x%02x" : "\\u%04x",
                                 static_cast<unsigned>(character));
    }
}

} // namespace

QString printableUpTo(qsizetype maxCharacters, const QString& text)
{
    QString result;
    // Unpaired surrogates become replacement characters here.
    const auto characters = text.toUcs4();
    for (qsizetype i = 0; i < characters.size(); ++i) {
        if (i == maxCharacters)
            return result + u"… [%1]"_s.arg(characters.size());
        const char32_t character = characters.at(i);
        if (isToBeEscaped(character))
            result += escaped(character);
        else
            result += QString::fromUcs4(&character, 1);
    }
    return result;
}

} // namespace lumbrix
