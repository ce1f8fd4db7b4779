// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A storm: on a private desktop, at random, windows open, close, move and change, docks, window
// manager, compositor, bus and applications are stopped, killed and started again, monitors come
// and go, and the mouse wanders and clicks. All the while the program is watched from outside.
// After each fault its previews must be right within three seconds. A seed repeats a run.
#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <unistd.h>

#include "Lumbrix.h"
#include "storm/Growth.h"
#include "storm/Service.h"
#include "storm/SettingsWriter.h"
#include "storm/Watch.h"
#include "storm/Weather.h"
#include "support/Holdings.h"
#include "support/ProcessFigures.h"
#include "support/Program.h"

using namespace lumbrix::privatedesk;
using namespace lumbrix::bench;

namespace
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr std::size_t windowCount = 18;
constexpr int recovery = 3000; ///< milliseconds
/// Until what the last row needed is given back.
constexpr auto rest = 4s;

class Storm
{
public:
    /// Of `only` this kind of fault; of all for an empty one.
    Storm(unsigned seed, const std::string& only) : m_random(seed), m_weather(m_random)
    {
        m_faults = m_weather.faults();
        m_faults.push_back(m_settings.fault());
        for (const int signal : {SIGTERM, SIGKILL})
            m_faults.push_back({.name = signal == SIGTERM ? "program quit" : "program killed",
                                .begin = [this, signal] { end(signal); },
                                .end = [this] { startAgain(); },
                                .endsProgram = true});
        std::erase_if(m_faults,
                      [&](const Fault& fault) { return !only.empty() && fault.name != only; });
        if (m_faults.empty())
            qFatal("there is no such fault");
        m_crowd.start(windowCount);
        m_weather.companions().start();
        m_lumbrix = startLumbrix(m_session, {{u"displayDelay"_s, u"0"_s}}, [this] { approach(); });
        m_pid = descendantNamed(getpid(), "lumbrix").value_or(0);
    }

    /// Of a fault that ends the program only where it may end: what one holds cannot be compared
    /// with what its successor does.
    void breakSomething(bool mayEnd)
    {
        const Fault& fault = m_faults[static_cast<std::size_t>(m_crowd.pick(m_faults.size()))];
        if (fault.endsProgram && !mayEnd)
            return;
        ++m_counts[fault.name];
        m_watch.setBlind(fault.isBlind);
        fault.begin();
        for (int deeds = 1 + m_crowd.pick(5); deeds > 0; --deeds)
            act(fault.isWithoutManager);
        m_watch.wait(std::chrono::milliseconds(m_crowd.pick(2500)));
        fault.end();
        m_watch.setBlind(false);
        expectRight(fault.name);
    }
    /// At the end, as it stays without one: what needs no bus goes on.
    void replaceBus()
    {
        ++m_counts["session bus killed"];
        m_weather.replaceBus();
        m_isBusNew = true;
        expectRight("session bus killed");
    }
    /// None once the program has gone.
    std::optional<Holdings> held()
    {
        m_weather.park();
        m_watch.expectRest("a pause");
        m_watch.wait(rest);
        return holdingsOf(m_display.connection(), m_pid);
    }
    bool isAlive() { return m_lumbrix && m_lumbrix->isRunning(); }
    QString logs() const { return m_session.logs(); }
    QString complaints() const { return m_complaints + m_session.log(u"lumbrix"_s); }
    const std::map<std::string, int>& wrongs() const { return m_watch.wrongs(); }
    const std::map<std::string, int>& counts() const { return m_counts; }
    const std::map<std::string, int>& kinds() const { return m_crowd.kinds(); }
    const std::map<std::string, int>& checks() const { return m_checks; }

private:
    void approach()
    {
        m_weather.park();
        m_weather.moveTo(m_crowd.any());
    }
    void end(int signal)
    {
        m_lumbrix->signal(signal);
        const auto status = m_lumbrix->waitForExit(patience(recovery));
        if (status != (signal == SIGTERM ? 0 : signal))
            m_watch.wrong("the program did not end as it was told");
        m_complaints += m_session.log(u"lumbrix"_s);
        m_lumbrix = nullptr;
    }
    void startAgain()
    {
        m_lumbrix = startLumbrix(m_session, [this] { approach(); });
        m_pid = descendantNamed(getpid(), "lumbrix").value_or(0);
    }
    void act(bool isWithoutManager)
    {
        m_watch.look();
        const auto& companions = m_weather.companions().applications();
        switch (m_crowd.pick(6)) {
        case 0:
            m_display.moveTo(m_weather.anywhere());
            if (m_crowd.pick(4) == 0)
                m_watch.wait(patience(Watch::stray) + 500ms); // for a row that does not notice
            break;
        case 1:
            if (!isWithoutManager)
                m_crowd.change(m_crowd.any());
            break;
        case 2:
            clickPreview();
            break;
        case 3:
            m_weather.moveTo(*companions[m_crowd.pick(companions.size())]);
            break;
        default:
            m_weather.moveTo(m_crowd.any());
        }
        m_watch.wait(std::chrono::milliseconds(m_crowd.pick(400)));
    }
    void clickPreview()
    {
        const auto previews = m_display.previews();
        if (previews.empty())
            return;
        const auto& target = previews[static_cast<std::size_t>(m_crowd.pick(previews.size()))];
        m_display.moveTo(target.geometry.center());
        m_display.click();
    }
    void expectRight(const std::string& after)
    {
        m_weather.park();
        m_watch.expectRest(after);
        Companions& companions = m_weather.companions();
        // The companions' services end with the session's bus.
        const bool isCompanion = !m_isBusNew && m_crowd.pick(4) == 0;
        const Application& application =
            isCompanion ? *companions.applications()[m_crowd.pick(companions.applications().size())]
                        : m_crowd.any();
        if (!m_weather.moveTo(application)) {
            // Docks have faults of their own.
            ++m_counts["(the dock showed no icon)"];
            return;
        }
        ++m_checks[application.identifier().toStdString()];
        if (m_display.waitFor(
                [&] {
                    return isCompanion ? companions.isShown(application)
                                       : m_crowd.isShown(application);
                },
                patience(recovery)))
            return;
        m_watch.wrong("previews of " + application.identifier().toStdString() +
                      " are not right after " + after);
        m_crowd.describe(application);
        if (isCompanion)
            companions.describe(application);
        m_display.picture().save(u"storm-wrong-%1.png"_s.arg(++m_pictures));
    }

    std::mt19937 m_random;
    Weather m_weather;
    Session& m_session = m_weather.session();
    Display& m_display = m_session.display();
    Crowd& m_crowd = m_weather.crowd();
    SettingsWriter m_settings{m_session, [this](std::size_t count) { return m_crowd.pick(count); }};
    std::unique_ptr<Process> m_lumbrix;
    Watch m_watch{m_display, m_lumbrix};
    int m_pid = 0;
    int m_pictures = 0;
    bool m_isBusNew = false;
    QString m_complaints; ///< of programs that have ended
    std::vector<Fault> m_faults;
    std::map<std::string, int> m_counts;
    std::map<std::string, int> m_checks; ///< whose previews were looked at
};

void print(const char* what, const std::map<std::string, int>& counts)
{
    std::printf("%s:", what);
    for (const auto& [name, count] : counts)
        std::printf(" %s %d,", name.c_str(), count);
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv)
{
    const Program program(argc, argv,
                          {{u"minutes"_s, u"How long."_s, u"N"_s, u"10"_s},
                           {u"seed"_s, u"What chance starts from."_s, u"N"_s, u"1"_s},
                           {u"only"_s, u"One kind of fault."_s, u"NAME"_s},
                           {u"serve"_s, u"For itself: be a service."_s, u"NAME"_s},
                           {u"number"_s, u"For itself: what it tells."_s, u"N"_s}});
    if (const QString service = program.text(u"serve"_s); !service.isEmpty())
        return serve(service, program.number(u"number"_s));
    const qint64 time = qRound64(program.text(u"minutes"_s).toDouble() * 60'000);
    std::printf("%lld s of storm over 6 applications with %zu windows, seed %s\n",
                static_cast<long long>(time / 1000), windowCount,
                qPrintable(program.text(u"seed"_s)));
    std::printf("previews have %lld s to be right\n",
                static_cast<long long>(patience(recovery).count() / 1000));
    const std::string only = program.text(u"only"_s).toStdString();
    Storm storm(program.text(u"seed"_s).toUInt(), only);
    QElapsedTimer clock;
    Growth growth;
    const qint64 between = std::max<qint64>(20'000, time / 45);
    qint64 next = time / 10;
    int faults = 0;
    clock.start();
    while (clock.elapsed() < time && storm.isAlive()) {
        const qint64 now = clock.elapsed();
        const bool isMeasured = now > time / 10 && now < time - time / 10;
        storm.breakSomething(!isMeasured || only.starts_with("program"));
        ++faults;
        if (!isMeasured || clock.elapsed() < next)
            continue;
        next = clock.elapsed() + between;
        if (auto held = storm.held())
            growth.add(std::move(*held));
    }
    const bool isAlive = storm.isAlive();
    if (isAlive)
        storm.replaceBus();
    else
        std::printf("the program has gone:\n%s\n", qPrintable(storm.logs()));
    growth.print();
    const auto grown = growth.grown();
    if (!grown)
        std::printf("too few to tell whether anything grows\n");
    std::printf("\n%d faults in %lld s\n", faults, static_cast<long long>(clock.elapsed() / 1000));
    print("faults", storm.counts());
    print("changes", storm.kinds());
    print("previews looked at", storm.checks());
    print("wrong", storm.wrongs());
    std::printf("what the program said: %s\n", qPrintable(storm.complaints()));
    return storm.wrongs().empty() && isAlive && (!grown || grown->empty()) ? 0 : 1;
}
