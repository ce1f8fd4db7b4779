// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Media players and a mail program that obey four-character codes, or do not.
#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <map>
#include <mutex>
#include <vector>

#include "platform/AppleEvents.h"
#include "platform/RunLoop.h"

namespace lumbrix::test
{

struct SimulatedTrack {
    QString artist;
    QString name;
    std::vector<QImage> artworks{}; ///< a null one has no picture data
};

struct SimulatedScriptable {
    enum class Manners { Answers, Hangs, AnswersNonsense };

    std::vector<SimulatedTrack> tracks{}; ///< or documents
    std::size_t current = 0;
    platform::FourCharCode state = platform::fourCharCode("kPSS");
    Manners manners = Manners::Answers;
    bool isKnownToHang = false; ///< it is waited for once only
};

/// Applications by name; one that was not set does not run. Any thread.
class SimulatedAppleEvents final : public platform::AppleEvents
{
public:
    explicit SimulatedAppleEvents(platform::RunLoop& runLoop) : m_runLoop(runLoop) {}

    platform::AppleEventReply send(const platform::AppleEventTarget& target,
                                   platform::FourCharCode eventClass,
                                   platform::FourCharCode eventID,
                                   const platform::ObjectSpecifier& direct) override;
    platform::AppleEventReply getItem(const platform::AppleEventTarget& target,
                                      const platform::ObjectSpecifier& object) override;
    platform::ApplicationRole roleOf(std::int32_t pid, platform::WindowID window) override;

    // For tests.
    void change(const QString& name, const std::function<void(SimulatedScriptable&)>& change);
    void quit(const QString& name);
    /// From now on the application takes commands as such a one; with Other, none.
    void setRole(std::int32_t pid, platform::ApplicationRole role);
    SimulatedScriptable application(const QString& name);
    /// The commands since the last call, such as "iTunes hook/Next" or, to a document, "QuickTime
    /// Player MVWR/play docu 1"; with the process id in front where one was given ("42 VLC ...").
    QStringList takeCommands();

private:
    SimulatedScriptable* find(const QString& name);
    static platform::AppleEventReply answer(const SimulatedScriptable& application,
                                            const platform::ObjectSpecifier& object);
    static void obey(SimulatedScriptable& application, platform::FourCharCode eventID);
    /// None when the application is there and answers.
    std::optional<platform::AppleEventReply> refusal(const QString& name);

    platform::RunLoop& m_runLoop;
    std::mutex m_mutex;
    std::map<QString, SimulatedScriptable> m_applications;     // guarded by m_mutex
    std::map<std::int32_t, platform::ApplicationRole> m_roles; // guarded by m_mutex
    QStringList m_commands;                                    // guarded by m_mutex
};

} // namespace lumbrix::test
