// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/ExpectedWarning.h"

#include <gtest/gtest.h>

#include <mutex>

namespace lumbrix::test
{
namespace
{
std::mutex mutex;
ExpectedWarning* current = nullptr;
} // namespace

ExpectedWarning::ExpectedWarning(QString text) : m_text(std::move(text))
{
    const std::lock_guard lock(mutex);
    current = this;
}

ExpectedWarning::~ExpectedWarning()
{
    const std::lock_guard lock(mutex);
    current = nullptr;
    EXPECT_TRUE(m_hasCome) << "no warning with: " << qPrintable(m_text);
}

bool ExpectedWarning::accept(const QString& message)
{
    const std::lock_guard lock(mutex);
    if (!current || !message.contains(current->m_text))
        return false;
    current->m_hasCome = true;
    return true;
}

} // namespace lumbrix::test
