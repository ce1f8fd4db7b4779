// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/SocketProbe.h"
#include "platform/StringLiterals.h"

#include <QtCore/QUrl>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace lumbrix::platform
{

namespace
{

/// The name of the socket, with a leading zero byte if it is abstract; empty if it is not a local
/// one.
QByteArray socketName(const QString& address)
{
    const QString first = address.section(u';', 0, 0);
    if (!first.startsWith(u"unix:"_s))
        return {};
    for (const QString& part : first.mid(5).split(u',')) {
        QByteArray value = QByteArray::fromPercentEncoding(part.section(u'=', 1).toUtf8());
        if (part.startsWith(u"path="_s))
            return value;
        if (part.startsWith(u"abstract="_s))
            return '\0' + value;
    }
    return {};
}

} // namespace

SocketProbe::SocketProbe(std::function<void(bool)> done) : m_done(std::move(done)) {}

SocketProbe::~SocketProbe()
{
    if (m_notifier) { // it may be the caller
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    if (m_socket >= 0)
        ::close(m_socket);
}

void SocketProbe::start(const QString& address)
{
    if (!connectTo(address)) {
        finish(false);
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { readable(); });
}

bool SocketProbe::connectTo(const QString& address)
{
    const QByteArray name = socketName(address);
    sockaddr_un place{};
    if (name.isEmpty() || static_cast<std::size_t>(name.size()) >= sizeof place.sun_path)
        return false;
    place.sun_family = AF_UNIX;
    std::memcpy(place.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const bool isFile = name.front() != '\0';
    const auto length = static_cast<socklen_t>(
        offsetof(sockaddr_un, sun_path) + static_cast<std::size_t>(name.size()) + (isFile ? 1 : 0));
    m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    constexpr std::string_view question("\0AUTH\r\n", 7);
    return m_socket >= 0 &&
           ::connect(m_socket, reinterpret_cast<const sockaddr*>(&place), length) == 0 &&
           ::send(m_socket, question.data(), question.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(question.size());
}

void SocketProbe::readable()
{
    m_notifier->setEnabled(false);
    std::array<char, 256> answer{};
    finish(::recv(m_socket, answer.data(), answer.size(), 0) > 0);
}

void SocketProbe::finish(bool answers)
{
    const std::function<void(bool)> done = std::move(m_done);
    done(answers);
}

} // namespace lumbrix::platform
