// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ApplicationIdentity.h"

#include <QtCore/QFileInfo>

#include "platform/StringLiterals.h"
#include "platform/linux/applications/ApplicationRoles.h"

namespace lumbrix::platform
{

namespace
{

DesktopEntryPtr entryByClass(const x11::TrackedWindow& window, DesktopEntries& entries)
{
    // The instance part first: web applications of one browser differ only there.
    for (const QString& half : {window.classInstance, window.className})
        if (DesktopEntryPtr entry = entries.byStartupWmClass(half))
            return entry;
    for (const QString& half : {window.className, window.classInstance})
        if (DesktopEntryPtr entry = entries.byApplicationId(half))
            return entry;
    return nullptr;
}

DesktopEntryPtr entryFor(const x11::TrackedWindow& window, const ProcessNames& names,
                         DesktopEntries& entries)
{
    if (DesktopEntryPtr entry = entryByClass(window, entries))
        return entry;
    // Programs may be started right after they are installed.
    entries.lookAgain();
    if (DesktopEntryPtr entry = entryByClass(window, entries))
        return entry;
    for (const QString& program : names.programs())
        if (DesktopEntryPtr entry = entries.byExecutable(program))
            return entry;
    return entries.byExecutable(window.classInstance);
}

} // namespace

ApplicationIdentity identifyApplication(const x11::TrackedWindow& window, DesktopEntries& entries,
                                        const ProcessReader& reader)
{
    ApplicationIdentity identity;
    const ProcessNames names = window.pid ? reader(*window.pid) : ProcessNames();
    identity.executablePath = names.executablePath;
    identity.className = window.className.isEmpty() ? window.classInstance : window.className;
    identity.entry = entryFor(window, names, entries);
    if (identity.entry)
        identity.key = u"entry:"_s + identity.entry->id;
    else if (!identity.className.isEmpty())
        identity.key = u"class:"_s + identity.className.toLower();
    else if (!identity.executablePath.isEmpty())
        identity.key = u"program:"_s + identity.executablePath;
    else
        identity.key = u"window:%1"_s.arg(window.id);
    return identity;
}

QString ApplicationIdentity::localizedName() const
{
    if (entry)
        return entry->name;
    if (!className.isEmpty())
        return className;
    const QString program = QFileInfo(executablePath).fileName();
    return program.isEmpty() ? u"window"_s : program;
}

QString ApplicationIdentity::bundleIdentifier() const
{
    return entry ? entry->id : localizedName();
}

ApplicationRole ApplicationIdentity::role() const
{
    if (entry)
        return roleOfEntry(*entry);
    const ApplicationRole role = roleOfApplicationId(className);
    return role != ApplicationRole::Other
               ? role
               : roleOfApplicationId(QFileInfo(executablePath).fileName());
}

QUrl ApplicationIdentity::bundleUrl() const { return bundleUrlOf(entry, key); }

QUrl bundleUrlOf(const DesktopEntryPtr& entry, const QString& key)
{
    if (entry)
        return QUrl::fromLocalFile(entry->path);
    QString name = key;
    name.replace(u'/', u'_');
    return QUrl::fromLocalFile(u"/.application/"_s + name);
}

bool isSameOwner(const x11::TrackedWindow& before, const x11::TrackedWindow& after)
{
    return before.className == after.className && before.classInstance == after.classInstance &&
           before.pid == after.pid && isApplicationWindow(before) == isApplicationWindow(after);
}

bool isApplicationWindow(const x11::TrackedWindow& window)
{
    switch (window.type) {
    case x11::WindowType::Normal:
    case x11::WindowType::Dialog:
    case x11::WindowType::Utility:
    case x11::WindowType::Toolbar:
    case x11::WindowType::Splash:
        return true;
    case x11::WindowType::Dock:
    case x11::WindowType::Desktop:
    case x11::WindowType::Other:
        break;
    }
    return false;
}

} // namespace lumbrix::platform
