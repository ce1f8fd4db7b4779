// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program as installed on Linux: an executable with a helper that starts it again.
#pragma once

#include "platform/ApplicationBundle.h"

namespace lumbrix::platform
{

/// Main thread, once the toolkit is up. Docks and panels show what has windows, so whether this
/// program shows in them is settled by whether it keeps one, and there is nothing to store.
class ProgramBundle final : public ApplicationBundle
{
public:
    QString path() const override;
    QString shortVersionString() const override;
    void setShowsInDock(bool) override {}
    void transformToForegroundApplication() override {}
    bool isShownByWindows() const override { return true; }
    bool relaunch() override;
};

} // namespace lumbrix::platform
