// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Starting the program under test.
#pragma once

#include <QtCore/QMap>

#include <functional>
#include <memory>

#include "Session.h"

namespace lumbrix::privatedesk
{

using Settings = QMap<QString, QString>;

/// LUMBRIX_BINARY, or the one of this build.
QString lumbrixBinary();

/// Starts Lumbrix with the settings of a user who has changed only these, and waits until it
/// answers to the pointer. It says nowhere that it is ready, so ask as a person would: `approach`,
/// which moves the pointer away from the icon of some window and onto it, is repeated until
/// something shows. Its complaints go to the log "lumbrix".
std::unique_ptr<Process> startLumbrix(Session& session, const Settings& changed,
                                      const std::function<void()>& approach);
/// The same with the settings as they are in their file.
std::unique_ptr<Process> startLumbrix(Session& session, const std::function<void()>& approach);
QString settingsPath(const Session& session);

} // namespace lumbrix::privatedesk
