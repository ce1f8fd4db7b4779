// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether a window can be previewed: matching it with the window server, and its filter level.
#include <algorithm>

#include "model/AXRead.h"
#include "model/BundleIdentifiers.h"
#include "model/FilterLevels.h"
#include "model/SWElement.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::AXError;
using platform::AXResult;
using platform::WindowID;
using platform::WindowInfo;

namespace
{

/// The level if there is neither an entry for the application nor a default.
constexpr int standardFilterLevel = 2;
constexpr int blockAllFilterLevel = 3;
constexpr int tabbedFinderFilterLevel = 4;
constexpr int everyWindowFilterLevel = 0;

std::atomic<const FilterLevels*> filterLevels{nullptr};

WindowVerdict verdictOnFailure(AXError error)
{
    return error == AXError::CannotComplete ? WindowVerdict::NoAnswer : WindowVerdict::Unreadable;
}

/// Deliberately exact: QRectF's own comparison is fuzzy.
bool isSameRect(const QRectF& a, const QRectF& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

/// What window-server windows are compared with.
struct Target {
    QRectF frame;
    QRectF alternative; ///< also accepted, if `useAlternative`
    bool useAlternative = false;
    bool ignoreTitle = false;
    bool isIllustrator = false;

    Target(const QRectF& reported, const QString& bundle, int level)
        : frame(reported), alternative(reported)
    {
        if (level != standardFilterLevel) {
            ignoreTitle = true;
            if (bundle == BundleIdentifier::Finder && level == tabbedFinderFilterLevel) {
                // Its tabs add a bar of this height, which the window server does not include.
                trimTop(frame, 28);
                useAlternative = true;
                ignoreTitle = false;
            }
        }
        isIllustrator = bundle == BundleIdentifier::Illustrator;
        if (isIllustrator) {
            // Its reported frame includes the title bar, or the title bar and the control bar.
            trimTop(frame, 22);
            alternative = frame;
            trimTop(alternative, 20);
            ignoreTitle = true;
            useAlternative = true;
        }
    }
    static void trimTop(QRectF& rect, double height)
    {
        rect.setRect(rect.x(), rect.y() + height, rect.width(), rect.height() - height);
    }
    bool holds(const QRectF& bounds) const
    {
        return isSameRect(bounds, frame) || (useAlternative && isSameRect(bounds, alternative));
    }
};

} // namespace

void SWElement::setFilterLevels(const FilterLevels* levels) { filterLevels = levels; }

AppliedFilterLevel SWElement::filterLevelOf(const QString& bundle)
{
    const FilterLevels* levels = filterLevels;
    if (levels) {
        if (const auto own = levels->levelForKey(bundle))
            return {*own, FilterLevelSource::Application};
    }
    // The Finder deliberately does not follow the default for all applications.
    if (bundle == BundleIdentifier::Finder)
        return {tabbedFinderFilterLevel, FilterLevelSource::BuiltIn};
    if (levels) {
        if (const auto all = levels->levelForKey(u"All applications"_s))
            return {*all, FilterLevelSource::AllApplications};
    }
    return {standardFilterLevel, FilterLevelSource::BuiltIn};
}

WindowVerdict SWElement::matchWindow(ServerWindows windows)
{
    platform::Accessibility& accessibility = m_ports.accessibility;
    const AXResult size = accessibility.copyAttributeValue(m_element, AX::Size);
    const AXResult position = accessibility.copyAttributeValue(m_element, AX::Position);
    if (!size.as<QSizeF>() || !position.as<QPointF>())
        return verdictOnFailure(size.ok() ? position.error : size.error);
    const auto pid = accessibility.pidOf(m_element);
    if (!pid)
        return WindowVerdict::NoProcess;
    m_pid = *pid;
    const auto application = m_ports.workspace.runningApplication(*pid);
    setBundle(application ? application->bundleIdentifier : QString());
    const QString title = getTitle().value_or(QString());
    const Target target({*position.as<QPointF>(), *size.as<QSizeF>()}, bundle(), getFilterLevel());

    const auto exactNumber = accessibility.windowIDOf(m_element);
    bool matched = false;
    WindowVerdict furthest = WindowVerdict::NoServerWindow;
    const auto skip = [&furthest](WindowVerdict verdict) {
        furthest = std::max(furthest, verdict);
    };
    for (const WindowInfo& entry : windows) {
        if ((exactNumber && entry.number != *exactNumber) || entry.ownerPid != *pid)
            continue;
        if (entry.layer != 0) {
            skip(WindowVerdict::NoOrdinaryLayer);
        } else if (!target.holds(entry.bounds)) {
            skip(WindowVerdict::NoSameFrame);
        } else if (!testWindow(m_ports, entry.number)) {
            skip(WindowVerdict::TooSmall);
        } else if (title.isEmpty()) {
            return WindowVerdict::Untitled; // an untitled window is never matched
        } else if (title != entry.name && !target.ignoreTitle) {
            skip(WindowVerdict::NoSameTitle);
            matched = false;
        } else {
            setFrame(target.frame);
            m_wid = entry.number;
            if (!target.isIllustrator || entry.isOnscreen)
                return WindowVerdict::Good;
            matched = true; // off screen: used only if no on-screen window follows
        }
    }
    return matched ? WindowVerdict::Good : furthest;
}

// Process, bundle and so the filter level come from the match. A window can move to another
// application, perhaps within the same process; it must then be matched again.
bool SWElement::isOwnerAsMatched() const
{
    const std::int32_t known = m_pid;
    const auto pid = m_ports.accessibility.pidOf(m_element);
    if (!pid || known == 0)
        return true; // gone or never matched: not decided here
    if (*pid != known)
        return false;
    const QString matched = bundle();
    const auto application = m_ports.workspace.runningApplication(known);
    return !application || matched.isEmpty() || application->bundleIdentifier == matched;
}

WindowVerdict SWElement::judgeExistence()
{
    if (!isOwnerAsMatched())
        return WindowVerdict::OtherOwner;
    const int level = getFilterLevel();
    if (level == blockAllFilterLevel)
        return WindowVerdict::BlockedByLevel;
    if (!checkIfWIDIsInWindowList())
        return WindowVerdict::ClosedToServer;
    const AXResult read = m_ports.accessibility.copyAttributeValue(m_element, AX::Title);
    const auto title = titleFrom(read);
    if (!title)
        return verdictOnFailure(read.error);
    if (title->isEmpty())
        return WindowVerdict::Untitled;
    if (*title == notResponding() && m_previouslyGood)
        return WindowVerdict::Good;
    const WindowVerdict verdict =
        checkIfWindow(m_ports, m_element) ? judgeSubrole(level) : WindowVerdict::NoWindowRole;
    m_previouslyGood = verdict == WindowVerdict::Good;
    return verdict;
}

WindowVerdict SWElement::judgeSubrole(int filterLevel) const
{
    if (filterLevel == everyWindowFilterLevel)
        return WindowVerdict::Good;
    const auto subrole = AX::read<QString>(m_ports.accessibility, m_element, AX::Subrole);
    if (subrole && filterLevel == standardFilterLevel &&
        (*subrole == AX::FloatingWindow || *subrole == AX::SystemFloatingWindow ||
         *subrole == AX::Unknown))
        return WindowVerdict::FloatingAtLevel;
    if (subrole == AX::StandardWindow ||
        !AX::readElements(m_ports.accessibility, m_element, AX::Children).empty())
        return WindowVerdict::Good;
    return WindowVerdict::NoContent;
}

bool SWElement::checkIfWIDIsInWindowList() const
{
    // Only this application keeps closed windows alive in its accessibility tree.
    if (bundle() != BundleIdentifier::ITunes)
        return true;
    const WindowID window = m_wid;
    if (window == 0 || checkIfMinimized() || m_ports.workspace.isHidden(m_pid))
        return true;
    for (int workspace = 1; workspace <= 16; ++workspace) {
        for (const WindowID other : m_ports.windowServer.workspaceWindowList(workspace))
            if (other == window)
                return true;
    }
    return false;
}

} // namespace lumbrix
