// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/FilterLevelTitle.h"

#include <QtCore/QCoreApplication>

namespace lumbrix::FilterLevel
{

QString title(int level)
{
    switch (level) {
    case low:
        return QCoreApplication::translate("FilterLevel", "Low");
    case medium:
        return QCoreApplication::translate("FilterLevel", "Medium");
    case blockAll:
        return QCoreApplication::translate("FilterLevel", "Block all");
    case totalFinder:
        return QCoreApplication::translate("FilterLevel", "TotalFinder");
    default:
        return QCoreApplication::translate("FilterLevel", "High");
    }
}

QString summary(int level)
{
    switch (level) {
    case low:
        return QCoreApplication::translate("FilterLevel", "every window");
    case medium:
    case totalFinder:
        return QCoreApplication::translate("FilterLevel", "all but empty windows");
    case blockAll:
        return QCoreApplication::translate("FilterLevel", "no window");
    default:
        return QCoreApplication::translate("FilterLevel", "all but empty windows and palettes");
    }
}

QString description(int level)
{
    switch (level) {
    case low:
        return QCoreApplication::translate("FilterLevel", "Previews every window.");
    case medium:
        return QCoreApplication::translate("FilterLevel",
                                           "Leaves out windows with nothing in them.");
    case blockAll:
        return QCoreApplication::translate("FilterLevel", "Shows no previews at all.");
    case totalFinder:
        return QCoreApplication::translate(
            "FilterLevel",
            "Leaves out windows with nothing in them, for a file manager whose windows have tabs.");
    default:
        return QCoreApplication::translate(
            "FilterLevel", "Leaves out empty windows, palettes and other floating windows.");
    }
}

} // namespace lumbrix::FilterLevel
