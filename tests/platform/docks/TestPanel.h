// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A panel on the accessibility bus, well-behaved or not, and that bus's registry.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QStringList>

#include <map>

#include "tests/platform/linux/TestService.h"

namespace lumbrix::test
{

class TestPanel final : public BusObject
{
public:
    static constexpr quint32 boxSize = 39;
    static constexpr quint32 push = 43;
    static constexpr quint32 toggle = 62;
    struct Element {
        quint32 role = boxSize;
        QString name;
        QRect extents;
        QStringList children;
    };

    explicit TestPanel(const PrivateBus& bus);

    std::map<QString, Element> elements; ///< by name on the bus; the program itself is "root"
    QString busAddress;                  ///< what is told about where the bus is
    int calls = 0;                       ///< also for the bus's address; without those for events
    int walks = 0;                       ///< questions for the program's windows
    QStringList registered;              ///< events that somebody wants to be told

    void add(const QString& parent, const QString& element, quint32 role, const QRect& extents = {},
             const QString& name = {});
    /// Tells that the element was laid out anew.
    void moved(const QString& element);

private:
    QVariantList answer(const QDBusMessage& message) override;
    QVariant registryAnswer(const QDBusMessage& message);

    TestService m_registry;
};

} // namespace lumbrix::test
