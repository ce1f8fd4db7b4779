// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What another program keeps in GSettings; read only.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

namespace lumbrix::platform
{

/// Main thread. Waits for nobody. A value is null when the installed schema has none of that name
/// and type.
class ProgramSettings
{
public:
    /// `path` is empty for a schema that has but one; `changed` is called when a value changed.
    /// Null when the schema is not installed, or not for such a path.
    static std::unique_ptr<ProgramSettings> open(const QString& schema, const QString& path = {},
                                                 std::function<void()> changed = nullptr);
    ~ProgramSettings();
    ProgramSettings(const ProgramSettings&) = delete;
    ProgramSettings& operator=(const ProgramSettings&) = delete;

    std::optional<QString> text(const char* key) const;
    std::optional<int> number(const char* key) const;
    std::optional<bool> flag(const char* key) const;

private:
    struct Native;

    explicit ProgramSettings(std::unique_ptr<Native> native);

    const std::unique_ptr<Native> m_native;
};

} // namespace lumbrix::platform
