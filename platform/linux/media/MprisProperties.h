// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Parses a media player's properties from untrusted input.
#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <optional>

namespace lumbrix::platform
{

enum class Playback { Unknown, Playing, Paused, Stopped };

/// Texts are truncated to a length that can be shown.
struct MprisProperties {
    Playback playback = Playback::Unknown;
    /// The rest is empty while nothing is loaded.
    QString artist; ///< several are joined by ", "
    QString name;
    QString artUrl; ///< as sent, unchecked

    bool operator==(const MprisProperties&) const = default;
};

/// Updates the properties contained in the given map; an invalid one counts as empty or unknown.
/// The values are as received from QtDBus, compound ones still packed.
void applyMprisProperties(const QVariantMap& properties, MprisProperties& known);

} // namespace lumbrix::platform
