// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a media player says of itself, taken out of whatever it sends.
#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <optional>

namespace lumbrix::platform
{

enum class Playback { Unknown, Playing, Paused, Stopped };

/// Texts are cut to a length that can be shown.
struct MprisProperties {
    Playback playback = Playback::Unknown;
    /// The rest is empty while nothing is loaded.
    QString artist; ///< several are joined by ", "
    QString name;
    QString artUrl; ///< as sent; what it leads to is another matter

    bool operator==(const MprisProperties&) const = default;
};

/// Takes the properties over that are among the given ones; one that is not what it ought to be
/// counts as empty or unknown. Values come as the bus library leaves them, compound ones packed.
void applyMprisProperties(const QVariantMap& properties, MprisProperties& known);

} // namespace lumbrix::platform
