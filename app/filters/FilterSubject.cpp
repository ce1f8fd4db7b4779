// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/FilterSubject.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>

#include "app/filters/ApplicationIcons.h"
#include "platform/Desktop.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"
#include "preview/DisplayText.h"
#include "preview/NamedImage.h"

namespace lumbrix::FilterSubject
{

QString name(const QString& subject)
{
    if (subject == AllApplications)
        return QCoreApplication::translate("FilterSubject", "All applications");
    const QString name = displayText(platform::desktop().workspace.applicationName(subject));
    return name.trimmed().isEmpty() ? QCoreApplication::translate("FilterSubject", "unknown")
                                    : name;
}

QIcon icon(const QString& subject, ApplicationIcons& icons)
{
    if (subject != AllApplications)
        return icons.icon(subject);
    constexpr int size = ApplicationIcons::size;
    return QIcon(namedPixmap(u"allApps"_s, {size, size}, qGuiApp->devicePixelRatio()));
}

QString toolTip(const QString& subject)
{
    const QString shown = displayText(subject);
    return Qt::mightBeRichText(shown) ? u"<qt>%1</qt>"_s.arg(shown.toHtmlEscaped()) : shown;
}

} // namespace lumbrix::FilterSubject
