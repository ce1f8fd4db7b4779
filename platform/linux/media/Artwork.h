// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Loads pictures whose address comes from another program.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

namespace lumbrix::platform
{

/// The picture at a file or data URI, reduced to the size that a preview can show. Null for any
/// other kind of address (nothing is fetched), for anything but a regular file, for more than 8
/// megabytes or 32 megapixels, and if it is not a picture of a common format. Any thread; blocks
/// while reading and decoding.
QImage loadArtwork(const QString& uri);

} // namespace lumbrix::platform
