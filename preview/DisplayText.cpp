// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/DisplayText.h"

namespace lumbrix
{
namespace
{
// More than fits on the widest panel, and few enough to be laid out quickly.
constexpr qsizetype maxLength = 400;
} // namespace

QString displayText(const QString& title)
{
    qsizetype length = title.size();
    const bool cut = length > maxLength;
    if (cut)
        length = title.at(maxLength - 1).isHighSurrogate() ? maxLength - 1 : maxLength;
    QString text;
    text.reserve(length + 1);
    for (qsizetype i = 0; i < length; ++i) {
        const QChar c = title.at(i);
        if (c.isHighSurrogate() && i + 1 < length && title.at(i + 1).isLowSurrogate()) {
            text += c;
            text += title.at(++i);
        } else if (c.isSurrogate()) {
            text += QChar(QChar::ReplacementCharacter);
        } else if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
                   c.category() == QChar::Separator_Paragraph) {
            text += QLatin1Char(' ');
        } else {
            text += c;
        }
    }
    if (cut)
        text += QChar(0x2026);
    return text;
}

} // namespace lumbrix
