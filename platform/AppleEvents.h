// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Commands to other applications and queries about their objects, in four-character codes.
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

/// The target: the running application of that name. If a platform has several for the name, the
/// one with the process id (0 = any); if that application has several processes, the one that owns
/// the window (0 = any).
struct AppleEventTarget {
    QString name; ///< "iTunes", "VLC", "QuickTime Player" or "Mail"
    std::int32_t pid = 0;
    WindowID window = 0;
};

/// The path from an application to one of its objects; empty = the application itself.
struct ObjectSpecifier {
    struct Step {
        enum class Kind { Property, Elements, Element };
        Kind kind = Kind::Property;
        FourCharCode code = 0;
        int index = 0; ///< of an element, counted from 1

        bool operator==(const Step&) const = default;
    };
    std::vector<Step> steps;

    bool operator==(const ObjectSpecifier&) const = default;
};

enum class AppleEventError {
    None,
    NotRunning,   ///< also if it does not answer in time, or sends an invalid answer
    NoSuchObject, ///< for example the current track while none is loaded
    NotHandled,   ///< the application or this platform does not know the event or property
};

/// A FourCharCode is a constant of the application; a picture is decoded, never null and not too
/// large to be shown; Elements are the objects of an Elements step.
using AppleEventValue =
    std::variant<std::monostate, bool, QString, FourCharCode, QImage, std::vector<ObjectSpecifier>>;

struct AppleEventReply {
    AppleEventError error = AppleEventError::None;
    AppleEventValue value{}; ///< monostate for an error and for the answer to a command

    template <class T> const T* as() const { return std::get_if<T>(&value); }
};

/// Any thread. An application that does not answer within 0.2 s counts as not running; the main
/// thread does not wait for it again until it has answered.
class AppleEvents
{
public:
    virtual ~AppleEvents() = default;

    /// Sends a command and waits for the reply. `direct` is its direct object.
    virtual AppleEventReply send(const AppleEventTarget& target, FourCharCode eventClass,
                                 FourCharCode eventID, const ObjectSpecifier& direct) = 0;
    /// The standard get event. Called on the main thread while previews are set up, so an adapter
    /// should answer from what it already knows if it can.
    virtual AppleEventReply getItem(const AppleEventTarget& target,
                                    const ObjectSpecifier& object) = 0;
    /// The role in which the application with this process id and window (both as in the target)
    /// accepts commands; also for an application without a role of its own. Other if it accepts
    /// none: a player may run without its remote-control interface. Returns at once, from cached
    /// data, so an application that hangs still has its role.
    virtual ApplicationRole roleOf(std::int32_t pid, WindowID window) = 0;
};

} // namespace lumbrix::platform
