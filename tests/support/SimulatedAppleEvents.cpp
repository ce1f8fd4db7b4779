// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedAppleEvents.h"
#include "platform/StringLiterals.h"

#include <utility>

namespace lumbrix::test
{

using platform::AppleEventError;
using platform::AppleEventReply;
using platform::FourCharCode;
using platform::fourCharCode;
using platform::ObjectSpecifier;
using Manners = SimulatedScriptable::Manners;

namespace
{

constexpr platform::Seconds patience = 0.2;

QString text(FourCharCode code)
{
    QString result;
    for (int shift = 24; shift >= 0; shift -= 8)
        result += QLatin1Char(static_cast<char>(code >> shift & 0xFF));
    return result;
}

} // namespace

SimulatedScriptable* SimulatedAppleEvents::find(const QString& name)
{
    const auto it = m_applications.find(name);
    return it == m_applications.end() ? nullptr : &it->second;
}

std::optional<AppleEventReply> SimulatedAppleEvents::refusal(const QString& name)
{
    {
        const std::lock_guard lock(m_mutex);
        SimulatedScriptable* application = find(name);
        if (application && application->manners != Manners::Hangs)
            return std::nullopt;
        if (!application || std::exchange(application->isKnownToHang, true))
            return AppleEventReply{AppleEventError::NotRunning};
    }
    m_runLoop.sleep(patience);
    return AppleEventReply{AppleEventError::NotRunning};
}

AppleEventReply SimulatedAppleEvents::send(const platform::AppleEventTarget& target,
                                           FourCharCode eventClass, FourCharCode eventID,
                                           const ObjectSpecifier& direct)
{
    QString command = target.name + u' ' + text(eventClass) + u'/' + text(eventID);
    if (target.pid != 0)
        command.prepend(QString::number(target.pid) + u' ');
    for (const ObjectSpecifier::Step& step : direct.steps)
        command += u' ' + text(step.code) + u' ' + QString::number(step.index);
    if (m_runLoop.isMainThread())
        command += u" on the main thread"_s;
    {
        const std::lock_guard lock(m_mutex);
        m_commands += command;
    }
    if (const auto refused = refusal(target.name))
        return *refused;
    const std::lock_guard lock(m_mutex);
    if (SimulatedScriptable* application = find(target.name))
        obey(*application, eventID);
    return {};
}

void SimulatedAppleEvents::obey(SimulatedScriptable& application, FourCharCode eventID)
{
    switch (eventID) {
    case fourCharCode("Play"):
    case fourCharCode("play"):
        application.state = fourCharCode("kPSP");
        break;
    case fourCharCode("Paus"):
    case fourCharCode("paus"):
        application.state = fourCharCode("kPSp");
        break;
    case fourCharCode("VLC1"):
        application.state =
            application.state == fourCharCode("kPSP") ? fourCharCode("kPSp") : fourCharCode("kPSP");
        break;
    case fourCharCode("Prev"):
    case fourCharCode("VLC3"):
        application.current -= application.current > 0 ? 1 : 0;
        break;
    case fourCharCode("Next"):
    case fourCharCode("VLC4"):
        application.current += application.current + 1 < application.tracks.size() ? 1 : 0;
        break;
    default:
        break;
    }
}

AppleEventReply SimulatedAppleEvents::getItem(const platform::AppleEventTarget& target,
                                              const ObjectSpecifier& object)
{
    if (const auto refused = refusal(target.name))
        return *refused;
    const std::lock_guard lock(m_mutex);
    const SimulatedScriptable* application = find(target.name);
    if (!application)
        return {AppleEventError::NotRunning};
    AppleEventReply reply = answer(*application, object);
    if (application->manners == Manners::AnswersNonsense && reply.error == AppleEventError::None)
        reply.value = reply.as<bool>() ? platform::AppleEventValue(u"yes"_s)
                                       : platform::AppleEventValue(true);
    return reply;
}

AppleEventReply SimulatedAppleEvents::answer(const SimulatedScriptable& application,
                                             const ObjectSpecifier& object)
{
    const AppleEventReply missing{AppleEventError::NoSuchObject};
    const auto& steps = object.steps;
    if (steps.empty())
        return missing;
    if (steps[0].code == fourCharCode("pPlS"))
        return {AppleEventError::None, application.state};
    if (application.current >= application.tracks.size() || steps.size() < 2)
        return missing;
    const SimulatedTrack& track = application.tracks[application.current];
    switch (steps[1].code) {
    case fourCharCode("play"):
        return {AppleEventError::None, application.state == fourCharCode("kPSP")};
    case fourCharCode("pArt"):
        return {AppleEventError::None, track.artist};
    case fourCharCode("pnam"):
        return {AppleEventError::None, track.name};
    case fourCharCode("cArt"):
        break;
    default:
        return missing;
    }
    if (steps.size() == 3) {
        const auto index = static_cast<std::size_t>(steps[1].index) - 1;
        return index < track.artworks.size() && !track.artworks[index].isNull()
                   ? AppleEventReply{AppleEventError::None, track.artworks[index]}
                   : missing;
    }
    std::vector<ObjectSpecifier> artworks;
    for (std::size_t i = 0; i < track.artworks.size(); ++i) {
        artworks.push_back(object);
        artworks.back().steps[1].kind = ObjectSpecifier::Step::Kind::Element;
        artworks.back().steps[1].index = static_cast<int>(i) + 1;
    }
    return {AppleEventError::None, artworks};
}

platform::ApplicationRole SimulatedAppleEvents::roleOf(std::int32_t pid, platform::WindowID)
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_roles.find(pid);
    return it == m_roles.end() ? platform::ApplicationRole::Other : it->second;
}

void SimulatedAppleEvents::setRole(std::int32_t pid, platform::ApplicationRole role)
{
    const std::lock_guard lock(m_mutex);
    m_roles[pid] = role;
}

void SimulatedAppleEvents::change(const QString& name,
                                  const std::function<void(SimulatedScriptable&)>& change)
{
    const std::lock_guard lock(m_mutex);
    change(m_applications[name]);
}

void SimulatedAppleEvents::quit(const QString& name)
{
    const std::lock_guard lock(m_mutex);
    m_applications.erase(name);
}

SimulatedScriptable SimulatedAppleEvents::application(const QString& name)
{
    const std::lock_guard lock(m_mutex);
    const SimulatedScriptable* application = find(name);
    return application ? *application : SimulatedScriptable();
}

QStringList SimulatedAppleEvents::takeCommands()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_commands, {});
}

} // namespace lumbrix::test
