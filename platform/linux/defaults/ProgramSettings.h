// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The settings of another program in GSettings; read only.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

namespace lumbrix::platform
{

/// Main thread. Never blocks. A value is null if the installed schema has none of that name and
/// type.
class ProgramSettings
{
public:
    /// `path` is empty for a schema with a fixed path; `changed` is called when a value changes.
    /// Null if the schema is not installed or does not allow such a path.
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
