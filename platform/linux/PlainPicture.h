// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures from untrusted sources. Any thread.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QSize>
#include <QtGui/QImage>

#include <functional>

namespace lumbrix::platform
{

/// The picture if it is in one of these formats, which have to be such as carry pixels only: others
/// can name further files, which are opened, and waited for, as soon as the picture is asked for
/// its size. `sizeFor` is given the size it says it has, of at least a pixel, and answers the size
/// it is wanted in; an empty one, if it is not wanted. Null as well if it is broken. What takes
/// more than a second or two of the processor to unpack comes cut short or not at all: a file of
/// a few megabytes may hold work for days.
QImage readPlainPicture(const QByteArray& bytes, const QList<QByteArray>& formats,
                        const std::function<QSize(QSize)>& sizeFor);

} // namespace lumbrix::platform
