// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Commands to other applications and questions about their objects, in four-character codes.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstdint>
#include <variant>
#include <vector>

#include "platform/WindowID.h"
#include "platform/Workspace.h"

namespace lumbrix::platform
{

/// Four characters as a big-endian number.
using FourCharCode = std::uint32_t;

constexpr FourCharCode fourCharCode(const char (&text)[5])
{
    FourCharCode code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(text[i]);
    return code;
}

/// The application that is meant: the one of that name that runs. Where a platform has several that
/// go by the name, it is the one with the process id (0 = whichever runs), and of several processes
/// of that application the one that owns the window (0 = whichever).
struct AppleEventTarget {
    QString name; ///< "iTunes", "VLC", "QuickTime Player" or "Mail"
    std::int32_t pid = 0;
    WindowID window = 0;
};

/// The way from an application to one of its objects; empty = the application itself.
struct ObjectSpecifier {
    struct Step {
        enum class Kind { Property, Elements, Element };
        Kind kind = Kind::Property;
        FourCharCode code = 0;
        int index = 0; ///< of an element, from 1

        bool operator==(const Step&) const = default;
    };
    std::vector<Step> steps;

    bool operator==(const ObjectSpecifier&) const = default;
};

enum class AppleEventError {
    None,
    NotRunning,   ///< also: does not answer in time, or answers nonsense
    NoSuchObject, ///< such as the current track while none is loaded
    NotHandled,   ///< the application, or this platform, knows no such event or property
};

/// A FourCharCode is a constant of the application; a picture comes decoded, never null and of a
/// size that is fit to be shown; Elements are those that an Elements step leads to.
using AppleEventValue =
    std::variant<std::monostate, bool, QString, FourCharCode, QImage, std::vector<ObjectSpecifier>>;

struct AppleEventReply {
    AppleEventError error = AppleEventError::None;
    AppleEventValue value{}; ///< monostate with an error, and as the answer to a command

    template <class T> const T* as() const { return std::get_if<T>(&value); }
};

/// Any thread. An application that does not answer within 0.2 s counts as not running, and the main
/// thread does not wait for it again until it has answered.
class AppleEvents
{
public:
    virtual ~AppleEvents() = default;

    /// Sends a command and waits for the reply. `direct` is the object that it is given.
    virtual AppleEventReply send(const AppleEventTarget& target, FourCharCode eventClass,
                                 FourCharCode eventID, const ObjectSpecifier& direct) = 0;
    /// The standard get event. Called on the main thread while previews are set up, so an adapter
    /// that knows the answer beforehand gives that.
    virtual AppleEventReply getItem(const AppleEventTarget& target,
                                    const ObjectSpecifier& object) = 0;
    /// As what the application with this process id takes commands, on behalf of this window of its
    /// (both as in a target): also one that has no role of its own. Other when it takes none, as a
    /// player may run without the interface by which it is reached. At once, from what is known
    /// beforehand; one that hangs takes them all the same.
    virtual ApplicationRole roleOf(std::int32_t pid, WindowID window) = 0;
};

} // namespace lumbrix::platform
