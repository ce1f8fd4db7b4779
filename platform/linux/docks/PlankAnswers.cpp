// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankAnswers.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>

#include <algorithm>

#include "platform/StringLiterals.h"

namespace lumbrix::platform
{

namespace
{

/// Of one Plank; each is asked.
constexpr qsizetype maximumDocks = 30;
/// More than fit on a screen; each is asked for, and a bus may have room for 128 questions.
constexpr qsizetype maximumItems = 120;

/// None beyond those that a screen can have, so that reckoning with them stays within bounds.
int coordinate(int value) { return std::clamp(value, -0x8000, 0x7fff); }

DockEdge edgeOf(int position)
{
    switch (position) {
    case 0:
        return DockEdge::Left;
    case 1:
        return DockEdge::Right;
    case 2:
        return DockEdge::Top;
    default:
        return DockEdge::Bottom;
    }
}

} // namespace

PlankItems PlankItems::scaledBy(int scale) const
{
    PlankItems scaled = *this;
    for (PlankItem& item : scaled.named)
        item.hoverPoint *= scale;
    if (scaled.firstUnnamed)
        *scaled.firstUnnamed *= scale;
    return scaled;
}

std::vector<QPoint> PlankItems::points() const
{
    std::vector<QPoint> all;
    all.reserve(named.size() + 1);
    for (const PlankItem& item : named)
        all.push_back(item.hoverPoint);
    if (firstUnnamed)
        all.push_back(*firstUnnamed);
    return all;
}

void PlankItems::add(const QString& uri, int x, int y, int position)
{
    const QPoint point(coordinate(x), coordinate(y));
    const QUrl url(uri);
    if (uri.isEmpty())
        firstUnnamed = point;
    else
        named.push_back({url.isLocalFile() ? url.toLocalFile() : uri, point});
    edge = edgeOf(position);
}

QSet<QString> plankDocksIn(const QString& introspection)
{
    static const QRegularExpression node(u"<node name=[\"']([A-Za-z0-9_]+)"_s);
    QSet<QString> names;
    for (auto it = node.globalMatch(introspection); it.hasNext() && names.size() < maximumDocks;)
        names.insert(it.next().captured(1));
    return names;
}

QStringList plankItemsToAsk(const QStringList& kept, const QStringList& running)
{
    QStringList all = kept + running;
    all = all.mid(0, maximumItems);
    all.append(QString()); // answered with the first item that has no entry
    all.removeDuplicates();
    return all;
}

int plankItemCount(int told) { return std::clamp(told, 0, static_cast<int>(maximumItems)); }

} // namespace lumbrix::platform
