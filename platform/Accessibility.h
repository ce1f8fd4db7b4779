// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The elements (applications, windows, Dock items), their attributes and their actions: a thin
// wrapper of the accessibility interface.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtCore/QUrl>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "platform/WindowID.h"

namespace lumbrix::platform
{

/// With the accessibility interface's numbers.
enum class AXError : int {
    Success = 0,
    Failure = -25200,
    IllegalArgument = -25201,
    InvalidUIElement = -25202, ///< the element is gone
    CannotComplete = -25204,   ///< the application is busy: it did not answer in time
    AttributeUnsupported = -25205,
    ActionUnsupported = -25206,
    NotImplemented = -25208,
    APIDisabled = -25211,
    NoValue = -25212,
};

/// One element, immutable and opaque; adapters derive from it. Shared, any thread.
class AXElement
{
public:
    virtual ~AXElement() = default;
    /// Whether both stand for the same element. The adapter decides that without asking another
    /// program.
    virtual bool isEqual(const AXElement& other) const = 0;
    /// Equal elements have equal hashes.
    virtual std::size_t hash() const = 0;
};
using ElementRef = std::shared_ptr<const AXElement>;

/// False if either is null.
inline bool elementsEqual(const ElementRef& a, const ElementRef& b)
{
    return a && b && a->isEqual(*b);
}

/// A range of a text or a list.
struct AXRange {
    long location = 0;
    long length = 0;
    bool operator==(const AXRange&) const = default;
};

/// The value of an attribute. Positions have their origin at the top left of the main screen,
/// y downward, in points.
using AXValue = std::variant<std::monostate, bool, double, QString, QUrl, QPointF, QSizeF, QRectF,
                             ElementRef, std::vector<ElementRef>, AXRange>;

struct AXResult {
    AXError error = AXError::Failure;
    AXValue value{};

    bool ok() const { return error == AXError::Success; }
    /// The value if the read succeeded and has this type; null otherwise.
    template <class T> const T* as() const { return ok() ? std::get_if<T>(&value) : nullptr; }
};

/// The names of an element's attributes or actions.
struct AXNames {
    AXError error = AXError::Failure;
    std::vector<QString> names{};

    bool ok() const { return error == AXError::Success; }
};

/// Passed back with each notification, so that the callback knows who registered it.
class NotificationContext
{
public:
    virtual ~NotificationContext() = default;
};

/// Observes one process; delivers on the main thread from the time it is added to the run loop
/// until it is destroyed. A Dock that ends while one of its items is selected reports the end of
/// that selection like any other; its elements are invalid by then. Main thread only.
class AXObserver
{
public:
    using Callback = std::function<void(AXObserver& observer, const ElementRef& element,
                                        const QString& notification, NotificationContext* context)>;

    virtual ~AXObserver() = default;
    /// The context is not owned and must outlive the observer.
    virtual AXError addNotification(const ElementRef& element, const QString& notification,
                                    NotificationContext* context) = 0;
    /// Adds the observer's source to the main run loop; nothing is delivered before that.
    virtual void addToRunLoop() = 0;
};

/// Every read and action may be called on any thread and never blocks longer than the messaging
/// timeout. The result is InvalidUIElement for an element that is gone, CannotComplete for a busy
/// application.
class Accessibility
{
public:
    virtual ~Accessibility() = default;

    virtual bool apiEnabled() const = 0;
    /// Asks the system to grant access, as far as a program can; it may take a while until
    /// apiEnabled() returns true. Main thread.
    virtual void enableAPI() = 0;
    /// Opens the page of the system's settings where the user can grant access. Main thread.
    virtual void openAPIPreferences() = 0;
    virtual void setMessagingTimeout(float seconds) = 0;

    /// Whether the selection in the system's application switcher can be read. Main thread.
    virtual bool tellsSwitcher() const = 0;

    /// Null if there is no such process.
    virtual ElementRef createApplication(std::int32_t pid) = 0;
    virtual ElementRef createSystemWide() = 0;

    /// All readable attributes of the element, including those without a value now.
    virtual AXNames copyAttributeNames(const ElementRef& element) = 0;
    virtual AXResult copyAttributeValue(const ElementRef& element, const QString& attribute) = 0;
    /// The number of values of a list; fails for an attribute that is not a list.
    virtual AXResult attributeValueCount(const ElementRef& element, const QString& attribute);
    virtual AXResult isAttributeSettable(const ElementRef& element, const QString& attribute) = 0;
    virtual AXError setAttributeValue(const ElementRef& element, const QString& attribute,
                                      const AXValue& value) = 0;
    virtual AXNames copyActionNames(const ElementRef& element) = 0;
    /// A description of the action for the user.
    virtual AXResult copyActionDescription(const ElementRef& element, const QString& action) = 0;
    virtual AXError performAction(const ElementRef& element, const QString& action) = 0;
    /// The element under a point in accessibility coordinates; an ElementRef value.
    virtual AXResult copyElementAtPosition(float x, float y) = 0;

    virtual std::optional<std::int32_t> pidOf(const ElementRef& element) = 0;
    /// The exact window-server number of a window element, or of the one window that a Dock item
    /// stands for (a minimised window, or the window of a task-bar button), if the platform knows
    /// it.
    virtual std::optional<WindowID> windowIDOf(const ElementRef& element) = 0;

    /// Null if the process cannot be observed. Main thread.
    virtual std::unique_ptr<AXObserver> createObserver(std::int32_t pid,
                                                       AXObserver::Callback callback) = 0;
};

inline AXResult Accessibility::attributeValueCount(const ElementRef& element,
                                                   const QString& attribute)
{
    const AXResult result = copyAttributeValue(element, attribute);
    if (const auto* values = result.as<std::vector<ElementRef>>())
        return {AXError::Success, static_cast<double>(values->size())};
    return {result.ok() ? AXError::IllegalArgument : result.error};
}

} // namespace lumbrix::platform
