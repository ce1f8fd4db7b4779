// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtDBus/QDBusMessage>

#include <functional>

#include "tests/platform/media/PrivateBus.h"

namespace lumbrix::test
{

/// A service on the bus, with one answer to each call of its objects.
class TestService final : public BusObject
{
public:
    using Answer = std::function<QVariant(const QDBusMessage& question)>;

    TestService(const QDBusConnection& bus, const QStringList& names, const QString& path,
                Answer answer)
        : BusObject(bus, path, names), m_answer(std::move(answer))
    {
    }

private:
    QVariantList answer(const QDBusMessage& message) override { return {m_answer(message)}; }

    const Answer m_answer;
};

} // namespace lumbrix::test
