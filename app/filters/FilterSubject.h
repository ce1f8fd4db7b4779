// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a filter is for: an application by its bundle identifier, or all those without a filter of
// their own; and how that is shown.
#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

#include "platform/StringLiterals.h"

namespace lumbrix
{

class ApplicationIcons;

namespace FilterSubject
{

/// Stands in the dictionary in the place of a bundle identifier.
inline const QString AllApplications = u"All applications"_s;

/// Main thread. In the user's language; "unknown" for an application of which nothing is known.
QString name(const QString& subject);
/// Main thread. See ApplicationIcons::icon().
QIcon icon(const QString& subject, ApplicationIcons& icons);
/// A tool tip that shows the identifier and nothing else, whatever markup is in it.
QString toolTip(const QString& subject);

} // namespace FilterSubject
} // namespace lumbrix
