// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/ElidedTitle.h"

#include <algorithm>

namespace lumbrix
{
namespace
{

/// So many characters of what differs are enough to tell two titles apart.
constexpr qsizetype enough = 3;
/// What differs is shown from the beginning of its word on, if that is so near.
constexpr qsizetype longWord = 12;

qsizetype beginningOfDifference(const QString& title, qsizetype alike)
{
    const qsizetype word = title.lastIndexOf(u' ', alike - 1) + 1;
    if (alike - word <= longWord)
        return word;
    const bool isInsideCharacter = alike < title.size() && title.at(alike).isLowSurrogate();
    return isInsideCharacter ? alike - 1 : alike;
}

} // namespace

std::vector<qsizetype> charactersAlike(const QStringList& titles)
{
    std::vector<qsizetype> result(static_cast<std::size_t>(titles.size()), 0);
    for (qsizetype i = 0; i < titles.size(); ++i) {
        for (const QString& other : titles) {
            const QString& title = titles.at(i);
            if (other == title)
                continue;
            const auto differing =
                std::mismatch(title.begin(), title.end(), other.begin(), other.end()).first;
            qsizetype& alike = result[static_cast<std::size_t>(i)];
            alike = std::max<qsizetype>(alike, differing - title.begin());
        }
    }
    return result;
}

QString elidedTitle(const QString& title, qsizetype alike, int width, const QFontMetrics& metrics)
{
    QString cut = metrics.elidedText(title, Qt::ElideRight, width);
    // The last character of what is cut is the ellipsis.
    if (alike <= 0 || cut == title || cut.size() - 1 >= alike + enough)
        return cut;
    const qsizetype from = beginningOfDifference(title, alike);
    const QString rest = title.mid(from);
    const int restWidth = std::min(metrics.horizontalAdvance(rest), width * 2 / 3);
    const QString head = metrics.elidedText(title.left(from), Qt::ElideRight, width - restWidth);
    return head + metrics.elidedText(rest, Qt::ElideRight, width - metrics.horizontalAdvance(head));
}

} // namespace lumbrix
