// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/PlainPicture.h"

namespace lumbrix::platform
{

QSize plainPictureSize(QImageReader& reader, const QList<QByteArray>& formats)
{
    return formats.contains(reader.format()) ? reader.size() : QSize();
}

} // namespace lumbrix::platform
