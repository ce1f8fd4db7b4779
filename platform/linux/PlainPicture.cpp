// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/PlainPicture.h"

#include <QtCore/QIODevice>
#include <QtGui/QImageReader>

#include <ctime>

#include <algorithm>

namespace lumbrix::platform
{
namespace
{

constexpr double mostSeconds = 1.5;

/// Of the processor, so that a busy machine has no part in it.
double secondsOfThisThread()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// A library cannot be stopped in the middle of a call, but it asks for the next few kilobytes:
/// once the time is over, there are no more. For one thread.
class TimedBytes final : public QIODevice
{
public:
    explicit TimedBytes(const QByteArray& bytes) : m_bytes(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    qint64 size() const override { return m_bytes.size(); }
    bool seek(qint64 position) override
    {
        if (position > size() || !QIODevice::seek(position))
            return false;
        m_at = position;
        return true;
    }

protected:
    qint64 readData(char* to, qint64 most) override
    {
        if (secondsOfThisThread() - m_begun > mostSeconds)
            return -1;
        const qint64 count = std::min(most, m_bytes.size() - m_at);
        std::copy_n(m_bytes.constData() + m_at, count, to);
        m_at += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QByteArray& m_bytes;
    const double m_begun = secondsOfThisThread();
    qint64 m_at = 0;
};

} // namespace

QImage readPlainPicture(const QByteArray& bytes, const QList<QByteArray>& formats,
                        const std::function<QSize(QSize)>& sizeFor)
{
    TimedBytes device(bytes);
    QImageReader reader(&device);
    if (!formats.contains(reader.format()))
        return {};
    const QSize size = reader.size();
    const QSize wanted = size.isEmpty() ? QSize() : sizeFor(size);
    if (wanted.isEmpty())
        return {};
    reader.setAutoTransform(true);
    if (wanted != size)
        reader.setScaledSize(wanted);
    return reader.read();
}

} // namespace lumbrix::platform
