// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Loads the catalogue of the user's language. The texts in the sources are English, but some of
// them are older than this platform and name what it does not have: the English catalogue has these
// in words that its users know, and nothing else.
#pragma once

#include <QtCore/QStringList>

namespace lumbrix
{

/// Makes the application translate its own texts and the toolkit's into the first of `languages`
/// (names as in QLocale::uiLanguages(), the preferred one first) that is English or has a catalogue
/// in one of the `folders`; into this platform's English if there is none. Main thread, before any
/// text is made.
void installTranslations(const QStringList& languages, const QStringList& folders);

/// The folders that may hold this program's catalogues: in the build tree, or installed with it.
QStringList catalogueFolders();

} // namespace lumbrix
