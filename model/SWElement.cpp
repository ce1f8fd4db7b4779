// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/SWElement.h"

#include "model/AXRead.h"
#include "model/UIElementUtilities.h"
#include "platform/Privacy.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::RunningApplication;
using platform::WindowID;
using platform::WindowInfo;

namespace
{

QUrl standardized(const QUrl& url)
{
    return url.adjusted(QUrl::NormalizePathSegments | QUrl::StripTrailingSlash);
}

WindowPicture pictureOf(const QImage& image, QSize limit, QSizeF windowSize)
{
    // Small windows are not reduced, and their size may fall between two pixels.
    const bool isWhole =
        !image.isNull() &&
        (limit.isEmpty() || image.deviceIndependentSize().width() > windowSize.width() - 2);
    return {image, isWhole};
}

} // namespace

QString SWElement::notResponding() { return u"Not Responding"_s; }

SWElement::SWElement(const platform::Desktop& ports, ElementRef element)
    : m_ports(ports), m_element(std::move(element))
{
}

bool SWElement::isEqualTo(const SWElement* other) const
{
    return other && platform::elementsEqual(m_element, other->m_element);
}

std::optional<QString> SWElement::getTitle() const
{
    return titleFrom(m_ports.accessibility.copyAttributeValue(m_element, AX::Title));
}

std::optional<QString> SWElement::titleFrom(const platform::AXResult& read) const
{
    if (const QString* title = read.as<QString>())
        return *title;
    // For a busy application the windows already known are kept.
    if (read.error == platform::AXError::CannotComplete && m_previouslyGood)
        return notResponding();
    return std::nullopt;
}

std::optional<QSizeF> SWElement::sizeToCapture() const
{
    const WindowID window = m_wid;
    if (!window || isPrivate())
        return std::nullopt;
    const auto bounds = m_ports.windowServer.windowBounds(window);
    if (!bounds || bounds->width() == 0 || bounds->height() == 0)
        return std::nullopt;
    return bounds->size();
}

bool SWElement::isPrivate() const { return m_ports.privacy.isPrivate(bundle()); }

WindowPicture SWElement::grabWindow(QSize limit) const
{
    const auto size = sizeToCapture();
    if (!size)
        return {};
    return pictureOf(m_ports.windowServer.captureWindow(m_wid, limit), limit, *size);
}

WindowPicture SWElement::grabMovingWindow(QSize limit) const
{
    const auto size = sizeToCapture();
    if (!size)
        return {};
    return pictureOf(m_ports.windowServer.captureMovingWindow(m_wid, limit), limit, *size);
}

KnownWindowPicture SWElement::knownPicture(QSize limit) const
{
    const auto size = sizeToCapture();
    if (!size)
        return {{}, true};
    const platform::KnownPicture known = m_ports.windowServer.knownPicture(m_wid, limit);
    return {pictureOf(known.image, limit, *size), known.isCurrent};
}

// If the number cannot be read, the former one stays; a window on all Spaces has none.
int SWElement::getSpaceNumber()
{
    if (m_ports.windowServer.isOnAllWorkspaces(m_wid))
        m_spaceNumber = 0;
    const int number = spaceNumberOfWindow(m_ports, m_wid);
    if (number >= 1 && number <= 59)
        m_spaceNumber = number;
    return m_spaceNumber;
}

int SWElement::getSpaceNumber(ServerWindows windows)
{
    const WindowID window = m_wid;
    for (const WindowInfo& entry : windows) {
        if (entry.number != window)
            continue;
        if (entry.workspace > 0)
            m_spaceNumber = entry.workspace;
        else if (entry.isOnAllWorkspaces)
            m_spaceNumber = 0;
        break;
    }
    return m_spaceNumber;
}

bool SWElement::checkIfMinimized() const
{
    return AX::read<bool>(m_ports.accessibility, m_element, AX::Minimized).value_or(false);
}

bool SWElement::isClosable() const
{
    const ElementRef button = AX::readElement(m_ports.accessibility, m_element, AX::CloseButton);
    return AX::read<bool>(m_ports.accessibility, button, AX::Enabled).value_or(false);
}

void SWElement::closeWindow()
{
    if (const ElementRef button =
            AX::readElement(m_ports.accessibility, m_element, AX::CloseButton))
        m_ports.accessibility.performAction(button, AX::Press);
}

bool SWElement::unhideIfHidden()
{
    platform::Accessibility& accessibility = m_ports.accessibility;
    const ElementRef application = accessibility.createApplication(m_pid);
    if (!AX::read<bool>(accessibility, application, AX::Hidden).value_or(false))
        return false;
    accessibility.setAttributeValue(application, AX::Hidden, false);
    return true;
}

void SWElement::raise()
{
    // Deliberately twice: the first round may only bring the application forward, with another of
    // its windows on top.
    for (int round = 0; round < 2; ++round) {
        m_ports.accessibility.setAttributeValue(m_element, AX::Frontmost, true);
        m_ports.accessibility.setAttributeValue(m_element, AX::Focused, true);
        m_ports.accessibility.performAction(m_element, AX::Raise);
        m_ports.workspace.activate(m_pid, platform::activateIgnoringOtherApps);
    }
}

std::optional<WindowID> SWElement::ownWindow() const
{
    return m_ports.accessibility.windowIDOf(m_element);
}

std::optional<std::vector<ElementRef>> SWElement::chosenWindows() const
{
    return m_isRequested
               ? AX::read<std::vector<ElementRef>>(m_ports.accessibility, m_element, AX::Windows)
               : std::nullopt;
}

bool SWElement::isHidden() const
{
    return AX::read<bool>(m_ports.accessibility, m_element, AX::Hidden).value_or(false);
}

QRectF SWElement::getRect() const
{
    const auto position = AX::read<QPointF>(m_ports.accessibility, m_element, AX::Position);
    const auto size = AX::read<QSizeF>(m_ports.accessibility, m_element, AX::Size);
    return position && size ? QRectF(*position, *size) : QRectF();
}

QRectF SWElement::getNSRect() const
{
    const auto position = AX::read<QPointF>(m_ports.accessibility, m_element, AX::Position);
    const auto size = AX::read<QSizeF>(m_ports.accessibility, m_element, AX::Size);
    if (!position || !size)
        return {};
    const QPointF origin =
        UIElementUtilities(m_ports).cocoaScreenPointFromCarbonScreenPoint(*position);
    return {QPointF(origin.x(), origin.y() - size->height()), *size};
}

std::optional<RunningApplication> SWElement::runningApplicationForDockElement() const
{
    // Not every Dock knows the process; several may share a url then, and the first stands for all.
    if (const platform::ElementRef owner =
            AX::readElement(m_ports.accessibility, m_element, AX::Owner))
        if (const auto pid = m_ports.accessibility.pidOf(owner))
            return m_ports.workspace.runningApplication(*pid);
    const auto url = AX::read<QUrl>(m_ports.accessibility, m_element, AX::URL);
    if (!url)
        return std::nullopt;
    const QUrl wanted = standardized(*url);
    for (const RunningApplication& application : m_ports.workspace.runningApplications())
        if (standardized(application.bundleURL) == wanted)
            return application;
    return std::nullopt;
}

std::optional<RunningApplication> SWElement::runningApplicationForWindow() const
{
    return m_ports.workspace.runningApplication(m_pid);
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
    return m_screenshot.image;
}

QImage SWElement::wholeScreenshot() const
{
    const std::lock_guard lock(m_mutex);
    return m_screenshot.isWhole ? m_screenshot.image : QImage();
}

void SWElement::setScreenshot(WindowPicture picture)
{
    const std::lock_guard lock(m_mutex);
    std::swap(m_screenshot, picture);
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
