// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A storm: on a private desktop, at random, windows open, close, move and change, docks, window
// manager, compositor, bus and applications are stopped, killed and started again, monitors come
// and go, and the mouse wanders and clicks. All the while the program is watched from outside.
// After each fault its previews must be right within three seconds. A seed repeats a run.
#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <unistd.h>

#include "Lumbrix.h"
#include "storm/Service.h"
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

class Storm
{
public:
    /// Of `only` this kind of fault; of all for an empty one.
    Storm(unsigned seed, const std::string& only) : m_random(seed), m_weather(m_random)
    {
        std::ranges::copy_if(
            m_weather.faults(), std::back_inserter(m_faults),
            [&](const Fault& fault) { return only.empty() || fault.name == only; });
        if (m_faults.empty())
            qFatal("there is no such fault");
        m_crowd.start(windowCount);
        m_weather.companions().start();
        m_lumbrix = startLumbrix(m_session, {{u"displayDelay"_s, u"0"_s}}, [this] {
            m_weather.park();
            m_weather.moveTo(m_crowd.any());
        });
        m_watch = std::make_unique<Watch>(m_display, *m_lumbrix);
        const auto pid = descendantNamed(getpid(), "lumbrix");
        m_pid = pid.value_or(0);
    }

    void breakSomething()
    {
        const Fault& fault = m_faults[static_cast<std::size_t>(m_crowd.pick(m_faults.size()))];
        ++m_counts[fault.name];
        m_watch->setBlind(fault.isBlind);
        fault.begin();
        for (int deeds = 1 + m_crowd.pick(5); deeds > 0; --deeds)
            act(fault.isWithoutManager);
        m_watch->wait(std::chrono::milliseconds(m_crowd.pick(2500)));
        fault.end();
        m_watch->setBlind(false);
        expectRight(fault.name);
    }
    /// At the end, as it stays without one: what needs no bus goes on.
    void replaceBus()
    {
        ++m_counts["session bus killed"];
        m_weather.replaceBus();
        expectRight("session bus killed");
    }
    /// None once the program has gone.
    std::optional<Holdings> held()
    {
        m_weather.park();
        m_watch->expectRest("a pause");
        return holdingsOf(m_display.connection(), m_pid);
    }
    bool isAlive() { return m_lumbrix->isRunning(); }
    QString logs() const { return m_session.logs(); }
    QString complaints() const { return m_session.log(u"lumbrix"_s); }
    const std::map<std::string, int>& wrongs() const { return m_watch->wrongs(); }
    const std::map<std::string, int>& counts() const { return m_counts; }
    const std::map<std::string, int>& kinds() const { return m_crowd.kinds(); }

private:
    void act(bool isWithoutManager)
    {
        m_watch->look();
        const auto& companions = m_weather.companions().applications();
        switch (m_crowd.pick(6)) {
        case 0:
            m_display.moveTo(m_weather.anywhere());
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
        m_watch->wait(std::chrono::milliseconds(m_crowd.pick(400)));
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
        m_watch->expectRest(after);
        const Application& application = m_crowd.any();
        if (!m_weather.moveTo(application)) {
            // Docks have faults of their own.
            ++m_counts["(the dock showed no icon)"];
            return;
        }
        if (m_display.waitFor([&] { return m_crowd.isShown(application); }, patience(recovery)))
            return;
        m_watch->wrong("previews are not right after " + after);
        m_crowd.describe(application);
        m_display.picture().save(u"storm-wrong-%1.png"_s.arg(++m_pictures));
    }

    std::mt19937 m_random;
    Weather m_weather;
    Session& m_session = m_weather.session();
    Display& m_display = m_session.display();
    Crowd& m_crowd = m_weather.crowd();
    std::unique_ptr<Process> m_lumbrix;
    std::unique_ptr<Watch> m_watch;
    int m_pid = 0;
    int m_pictures = 0;
    std::vector<Fault> m_faults;
    std::map<std::string, int> m_counts;
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
                           {u"serve"_s, u"For itself: be a service."_s, u"NAME"_s}});
    if (const QString service = program.text(u"serve"_s); !service.isEmpty())
        return serve(service);
    const qint64 time = qRound64(program.text(u"minutes"_s).toDouble() * 60'000);
    std::printf("%lld s of storm over 6 applications with %zu windows, seed %s\n",
                static_cast<long long>(time / 1000), windowCount,
                qPrintable(program.text(u"seed"_s)));
    std::printf("previews have %lld s to be right\n",
                static_cast<long long>(patience(recovery).count() / 1000));
    Storm storm(program.text(u"seed"_s).toUInt(), program.text(u"only"_s).toStdString());
    QElapsedTimer clock;
    std::optional<Holdings> start;
    std::optional<Holdings> middle;
    int faults = 0;
    clock.start();
    while (clock.elapsed() < time && storm.isAlive()) {
        storm.breakSomething();
        ++faults;
        if (!start && clock.elapsed() > time / 10)
            start = storm.held();
        if (!middle && clock.elapsed() > time / 2)
            middle = storm.held();
    }
    const auto end = storm.held();
    if (storm.isAlive())
        storm.replaceBus();
    if (start && middle && end)
        print(*start, *middle, *end, faults, "faults");
    else
        std::printf("the program has gone:\n%s\n", qPrintable(storm.logs()));
    std::printf("\n%d faults in %lld s\n", faults, static_cast<long long>(clock.elapsed() / 1000));
    print("faults", storm.counts());
    print("changes", storm.kinds());
    print("wrong", storm.wrongs());
    std::printf("what the program said: %s\n", qPrintable(storm.complaints()));
    return storm.wrongs().empty() && end ? 0 : 1;
}
