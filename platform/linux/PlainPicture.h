// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures that anybody may have made. Any thread.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QSize>
#include <QtGui/QImageReader>

namespace lumbrix::platform
{

/// The size of the picture if it is in one of these formats, which have to be such as carry pixels
/// only; empty otherwise. Others can name further files, which are opened, and waited for, as soon
/// as the picture is asked for its size.
QSize plainPictureSize(QImageReader& reader, const QList<QByteArray>& formats);

} // namespace lumbrix::platform
