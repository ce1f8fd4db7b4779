// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's language, where there is a catalogue for it; else the texts stay as they are in the
// sources, in English.
#pragma once

#include <QtCore/QStringList>

namespace lumbrix
{

/// Makes the application translate into the first of `languages` (names as in
/// QLocale::uiLanguages(), the one liked best first) that is English or has a catalogue in one of
/// the `folders`; our texts and the toolkit's own. Main thread, before there are any texts. Loads
/// nothing for English.
void installTranslations(const QStringList& languages, const QStringList& folders);

/// Where this program's catalogues may be: in the tree it was built in, or installed with it.
QStringList catalogueFolders();

} // namespace lumbrix
