// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a filter applies to: one application, by its bundle identifier, or all applications without
// a filter of their own; and how that is shown.
#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

#include "platform/StringLiterals.h"

namespace lumbrix
{

class ApplicationIcons;

namespace FilterSubject
{

/// Used in the dictionary instead of a bundle identifier.
inline const QString AllApplications = u"All applications"_s;

/// Main thread. In the user's language; "unknown" for an application that is not found.
QString name(const QString& subject);
/// Main thread. See ApplicationIcons::icon().
QIcon icon(const QString& subject, ApplicationIcons& icons);
/// A tooltip that shows the identifier as plain text, even if it contains markup.
QString toolTip(const QString& subject);

} // namespace FilterSubject
} // namespace lumbrix
