// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Loads the catalogue of the user's language. Without one the texts stay in English, as in the
// sources.
#pragma once

#include <QtCore/QStringList>

namespace lumbrix
{

/// Makes the application translate its own texts and the toolkit's into the first of `languages`
/// (names as in QLocale::uiLanguages(), the preferred one first) that is English or has a catalogue
/// in one of the `folders`. Loads nothing for English. Main thread, before any text is made.
void installTranslations(const QStringList& languages, const QStringList& folders);

/// The folders that may hold this program's catalogues: in the build tree, or installed with it.
QStringList catalogueFolders();

} // namespace lumbrix
