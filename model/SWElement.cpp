// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/SWElement.h"

#include "model/AXRead.h"
#include "model/BundleIdentifiers.h"
#include "model/FilterLevels.h"
#include "model/UIElementUtilities.h"
#include "platform/Desktop.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::RunningApplication;
using platform::WindowID;
using platform::WindowInfo;
using platform::WindowList;

namespace
{

const QString notResponding = QStringLiteral("Not Responding");

/// Level of an application that has no entry of its own and no default either.
constexpr int standardFilterLevel = 2;
constexpr int blockAllFilterLevel = 3;
constexpr int tabbedFinderFilterLevel = 4;
constexpr int everyWindowFilterLevel = 0;

std::atomic<const FilterLevels*> filterLevels{nullptr};

QUrl standardized(const QUrl& url)
{
    return url.adjusted(QUrl::NormalizePathSegments | QUrl::StripTrailingSlash);
}

} // namespace

SWElement::SWElement(ElementRef element) : m_element(std::move(element)) {}

void SWElement::setFilterLevels(const FilterLevels* levels) { filterLevels = levels; }

bool SWElement::isEqualTo(const SWElement* other) const
{
    return other && platform::elementsEqual(m_element, other->m_element);
}

std::optional<QString> SWElement::getTitle() const
{
    const platform::AXResult result =
        platform::desktop().accessibility.copyAttributeValue(m_element, AX::Title);
    if (const QString* title = result.as<QString>())
        return *title;
    // A busy application keeps the windows it was known to have.
    if (result.error == platform::AXError::CannotComplete && m_previouslyGood)
        return notResponding;
    return std::nullopt;
}

int SWElement::getFilterLevel() const
{
    const QString identifier = bundle();
    const FilterLevels* levels = filterLevels;
    if (levels) {
        if (const auto own = levels->levelForKey(identifier))
            return *own;
    }
    // The Finder deliberately does not follow the default for all applications.
    if (identifier == BundleIdentifier::Finder)
        return tabbedFinderFilterLevel;
    if (levels) {
        if (const auto all = levels->levelForKey(QStringLiteral("All applications")))
            return *all;
    }
    return standardFilterLevel;
}

bool SWElement::findPIDandWID(const WindowList& windowList)
{
    const auto size = AX::read<QSizeF>(m_element, AX::Size);
    const auto position = AX::read<QPointF>(m_element, AX::Position);
    if (!size || !position)
        return false;
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    const auto pid = accessibility.pidOf(m_element);
    if (!pid)
        return false;
    m_pid = *pid;
    const auto application = platform::desktop().workspace.runningApplication(*pid);
    const QString identifier = application ? application->bundleIdentifier : QString();
    setBundle(identifier);
    const QString title = getTitle().value_or(QString());
    const int level = getFilterLevel();

    QRectF target(*position, *size);
    QRectF alternative = target;
    bool useAlternative = false;
    bool ignoreTitle = false;
    if (level != standardFilterLevel) {
        ignoreTitle = true;
        if (identifier == BundleIdentifier::Finder && level == tabbedFinderFilterLevel) {
            // Its tabs add a bar of this height that the window server does not count.
            target.setRect(target.x(), target.y() + 28, target.width(), target.height() - 28);
            useAlternative = true;
            ignoreTitle = false;
        }
    }
    const bool isIllustrator = identifier == BundleIdentifier::Illustrator;
    if (isIllustrator) {
        // It reports the frame with its title bar, or with that and its control bar, on top.
        target.setRect(target.x(), target.y() + 22, target.width(), target.height() - 22);
        alternative = QRectF(target.x(), target.y() + 20, target.width(), target.height() - 20);
        ignoreTitle = true;
        useAlternative = true;
    }

    const auto exactNumber = accessibility.windowIDOf(m_element);
    bool matched = false;
    for (const WindowInfo& entry : windowList) {
        if (exactNumber && entry.number != *exactNumber)
            continue;
        if (entry.ownerPid != *pid || entry.layer != 0)
            continue;
        // Exact on purpose: QRectF's own comparison is fuzzy.
        const auto same = [&entry](const QRectF& rect) {
            return entry.bounds.x() == rect.x() && entry.bounds.y() == rect.y() &&
                   entry.bounds.width() == rect.width() && entry.bounds.height() == rect.height();
        };
        if (!same(target) && !(useAlternative && same(alternative)))
            continue;
        if (!testWindow(entry.number))
            continue;
        if (title.isEmpty())
            return false; // an untitled window is never matched
        if (title != entry.name && !ignoreTitle) {
            matched = false;
            continue;
        }
        setFrame(target);
        m_wid = entry.number;
        if (!isIllustrator || entry.isOnscreen)
            return true;
        matched = true; // off screen: stands only while no on-screen one follows
    }
    return matched;
}

std::optional<QSizeF> SWElement::sizeToCapture() const
{
    const WindowID window = m_wid;
    if (!window)
        return std::nullopt;
    const auto bounds = platform::desktop().windowServer.windowBounds(window);
    if (!bounds || bounds->width() == 0 || bounds->height() == 0)
        return std::nullopt;
    return bounds->size();
}

void SWElement::keepScreenshot(const QImage& picture, QSize limit, QSizeF windowSize)
{
    // Small windows are not reduced; and they may end between two pixels.
    m_isScreenshotWhole =
        limit.isEmpty() || picture.deviceIndependentSize().width() > windowSize.width() - 2;
    setScreenshot(picture);
}

QImage SWElement::grabWindow(QSize limit)
{
    const auto size = sizeToCapture();
    const QImage picture =
        size ? platform::desktop().windowServer.captureWindow(m_wid, limit) : QImage();
    keepScreenshot(picture, limit, size.value_or(QSizeF()));
    return picture;
}

bool SWElement::grabWindowAtHand(QSize limit)
{
    const auto size = sizeToCapture();
    const auto picture = size ? platform::desktop().windowServer.pictureAtHand(m_wid, limit)
                              : std::optional(QImage());
    if (picture)
        keepScreenshot(*picture, limit, size.value_or(QSizeF()));
    return picture.has_value();
}

int SWElement::getSpaceNumber()
{
    const int number = spaceNumberOfWindow(m_wid);
    if (number >= 1 && number <= 59)
        m_spaceNumber = number;
    return m_spaceNumber;
}

int SWElement::getSpaceNumber(const WindowList& windowList)
{
    const WindowID window = m_wid;
    for (const WindowInfo& entry : windowList) {
        if (entry.number != window)
            continue;
        if (entry.workspace > 0)
            m_spaceNumber = entry.workspace;
        break;
    }
    return m_spaceNumber;
}

bool SWElement::checkIfExists()
{
    const int level = getFilterLevel();
    if (level == blockAllFilterLevel || !checkIfWIDIsInWindowList())
        return false;
    const auto title = getTitle();
    if (!title || title->isEmpty())
        return false;
    if (*title == notResponding && m_previouslyGood)
        return true;
    const bool exists = checkIfWindow(m_element) && hasWindowSubrole(level);
    m_previouslyGood = exists;
    return exists;
}

bool SWElement::hasWindowSubrole(int filterLevel) const
{
    if (filterLevel == everyWindowFilterLevel)
        return true;
    const auto subrole = AX::read<QString>(m_element, AX::Subrole);
    if (subrole && filterLevel == standardFilterLevel &&
        (*subrole == AX::FloatingWindow || *subrole == AX::SystemFloatingWindow ||
         *subrole == AX::Unknown))
        return false;
    if (subrole == AX::StandardWindow)
        return true;
    return !AX::readElements(m_element, AX::Children).empty();
}

bool SWElement::checkIfWIDIsInWindowList() const
{
    // Only this application keeps closed windows alive in its accessibility tree.
    if (bundle() != BundleIdentifier::ITunes)
        return true;
    const WindowID window = m_wid;
    if (window == 0 || checkIfMinimized() || platform::desktop().workspace.isHidden(m_pid))
        return true;
    for (int workspace = 1; workspace <= 16; ++workspace) {
        for (const WindowID other :
             platform::desktop().windowServer.workspaceWindowList(workspace)) {
            if (other == window)
                return true;
        }
    }
    return false;
}

bool SWElement::checkIfMinimized() const
{
    return AX::read<bool>(m_element, AX::Minimized).value_or(false);
}

bool SWElement::isClosable() const
{
    const ElementRef button = AX::readElement(m_element, AX::CloseButton);
    return AX::read<bool>(button, AX::Enabled).value_or(false);
}

void SWElement::closeWindow()
{
    if (const ElementRef button = AX::readElement(m_element, AX::CloseButton))
        platform::desktop().accessibility.performAction(button, AX::Press);
}

bool SWElement::unhideIfHidden()
{
    platform::Accessibility& accessibility = platform::desktop().accessibility;
    const ElementRef application = accessibility.createApplication(m_pid);
    if (!AX::read<bool>(application, AX::Hidden).value_or(false))
        return false;
    accessibility.setAttributeValue(application, AX::Hidden, false);
    return true;
}

void SWElement::raise()
{
    const platform::Desktop& desktop = platform::desktop();
    // Twice on purpose: the first round may only bring the application forward, with another of
    // its windows on top.
    for (int round = 0; round < 2; ++round) {
        desktop.accessibility.setAttributeValue(m_element, AX::Frontmost, true);
        desktop.accessibility.setAttributeValue(m_element, AX::Focused, true);
        desktop.accessibility.performAction(m_element, AX::Raise);
        desktop.workspace.activate(m_pid, platform::ActivateIgnoringOtherApps);
    }
}

QRectF SWElement::getRect() const
{
    const auto position = AX::read<QPointF>(m_element, AX::Position);
    const auto size = AX::read<QSizeF>(m_element, AX::Size);
    return position && size ? QRectF(*position, *size) : QRectF();
}

QRectF SWElement::getNSRect() const
{
    const auto position = AX::read<QPointF>(m_element, AX::Position);
    const auto size = AX::read<QSizeF>(m_element, AX::Size);
    if (!position || !size)
        return {};
    const QPointF origin = UIElementUtilities::cocoaScreenPointFromCarbonScreenPoint(*position);
    return {QPointF(origin.x(), origin.y() - size->height()), *size};
}

std::optional<RunningApplication> SWElement::runningApplicationForDockElement() const
{
    const auto url = AX::read<QUrl>(m_element, AX::URL);
    if (!url)
        return std::nullopt;
    const QUrl wanted = standardized(*url);
    for (const RunningApplication& application :
         platform::desktop().workspace.runningApplications()) {
        if (standardized(application.bundleURL) == wanted)
            return application;
    }
    return std::nullopt;
}

std::optional<RunningApplication> SWElement::runningApplicationForWindow() const
{
    return platform::desktop().workspace.runningApplication(m_pid);
}

QUrl SWElement::url() const
{
    const std::lock_guard lock(m_mutex);
    return m_url;
}

void SWElement::setUrl(const QUrl& url)
{
    const std::lock_guard lock(m_mutex);
    m_url = url;
}

QRectF SWElement::frame() const
{
    const std::lock_guard lock(m_mutex);
    return m_frame;
}

void SWElement::setFrame(const QRectF& frame)
{
    const std::lock_guard lock(m_mutex);
    m_frame = frame;
}

QImage SWElement::screenshot() const
{
    const std::lock_guard lock(m_mutex);
    return m_screenshot;
}

void SWElement::setScreenshot(const QImage& image)
{
    QImage old = image; // freed after the lock is released
    const std::lock_guard lock(m_mutex);
    m_screenshot.swap(old);
}

QString SWElement::bundle() const
{
    const std::lock_guard lock(m_mutex);
    return m_bundle;
}

void SWElement::setBundle(const QString& bundle)
{
    const std::lock_guard lock(m_mutex);
    m_bundle = bundle;
}

} // namespace lumbrix
