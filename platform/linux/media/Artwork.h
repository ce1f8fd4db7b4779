// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures that another program names.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

namespace lumbrix::platform
{

/// The picture that a file or data URI names, reduced to what a preview can show. Null for any
/// other kind of address (nothing is ever fetched), for what is no plain file, for more than 8
/// megabytes or 32 megapixels, and for what is no picture of a common format. Any thread; takes as
/// long as reading and decoding does.
QImage loadArtwork(const QString& uri);

} // namespace lumbrix::platform
