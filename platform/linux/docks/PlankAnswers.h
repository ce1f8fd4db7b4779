// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What Plank's answers on the bus say, whatever they say. Pure.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>
#include <vector>

#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

struct PlankItem {
    QString desktopFile;
    QPoint hoverPoint;
};

/// What Plank reports of a dock's items. Those of programs without a desktop entry have no name on
/// the bus: only their number and the place of the first one are known.
struct PlankItems {
    std::vector<PlankItem> named;
    std::optional<QPoint> firstUnnamed;
    int count = 0;                  ///< of all items
    std::optional<DockEdge> edge{}; ///< null until an item has told it

    /// The same with points in root pixels: Plank counts in pixels of its own, of which one is
    /// `scale` by `scale` on the screen.
    PlankItems scaledBy(int scale) const;
    /// The points of all items it tells.
    std::vector<QPoint> points() const;

    /// Adds what the dock says of the item with this URI, or of the first one that has none. A
    /// point beyond those that a screen can have is drawn in; `position` is the screen's edge as
    /// Plank numbers them.
    void add(const QString& uri, int x, int y, int position);
};

/// The names of the docks in a Plank's introspection; at most as many as are asked.
QSet<QString> plankDocksIn(const QString& introspection);

/// The items to ask for: the dock's own, those of programs that run, and an empty one that stands
/// for the first item without a name. Each once, at most as many as are asked.
QStringList plankItemsToAsk(const QStringList& kept, const QStringList& running);

/// A number of items that can be believed.
int plankItemCount(int told);

} // namespace lumbrix::platform
