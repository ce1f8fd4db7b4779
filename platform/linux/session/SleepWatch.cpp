// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/SleepWatch.h"

#include <utility>

#include "platform/Log.h"
#include "platform/StringLiterals.h"

namespace lumbrix::platform
{

SleepWatch::SleepWatch(QDBusConnection bus, std::function<void()> willSleep)
    : m_bus(std::move(bus)), m_willSleep(std::move(willSleep))
{
    m_bus.connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                  u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
                  SLOT(prepareForSleep(bool)));
}

void SleepWatch::prepareForSleep(bool isBeginning)
{
    qCDebug(log::session, "the computer %s", isBeginning ? "goes to sleep" : "has woken up");
    if (isBeginning)
        m_willSleep();
}

} // namespace lumbrix::platform
