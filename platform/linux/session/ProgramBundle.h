// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program as installed on Linux: an executable with a helper that starts it again.
#pragma once

#include "platform/ApplicationBundle.h"

namespace lumbrix::platform
{

/// Main thread, after the toolkit has been started. Docks and panels show programs with windows, so
/// this program appears in them if it keeps a window; nothing needs to be stored.
class ProgramBundle final : public ApplicationBundle
{
public:
    QString path() const override;
    QString shortVersionString() const override;
    bool isInstalled() const override;
    void setShowsInDock(bool) override {}
    void transformToForegroundApplication() override {}
    bool isShownByWindows() const override { return true; }
    bool relaunch() override;
};

} // namespace lumbrix::platform
