// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ThemeWatch.h"

#include "platform/StringLiterals.h"
#include "platform/linux/x11/Connection.h"

#include <QtCore/QtEndian>

#include <xcb/xfixes.h>

#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::uint32_t mostWords = 16384; ///< of 32 bits; daemons write some kilobytes

/// Reads on and on; past the end there is nothing but zeros.
class Reader
{
public:
    Reader(QByteArrayView bytes, bool isBigEndian) : m_bytes(bytes), m_isBigEndian(isBigEndian) {}

    bool isAtEnd() const { return m_bytes.isEmpty(); }
    QByteArrayView take(std::size_t size)
    {
        const auto length = std::min(static_cast<qsizetype>(size), m_bytes.size());
        const QByteArrayView taken = m_bytes.first(length);
        m_bytes = m_bytes.sliced(length);
        return taken;
    }
    QByteArrayView takePadded(std::size_t size)
    {
        const QByteArrayView taken = take(size);
        take((4 - size % 4) % 4);
        return taken;
    }
    template <class Number> Number number()
    {
        const QByteArrayView taken = take(sizeof(Number));
        if (taken.size() != sizeof(Number))
            return 0;
        return m_isBigEndian ? qFromBigEndian<Number>(taken.data())
                             : qFromLittleEndian<Number>(taken.data());
    }

private:
    QByteArrayView m_bytes;
    const bool m_isBigEndian;
};

enum Kind : quint8 { Number = 0, Text = 1, Colour = 2 };

} // namespace

QString themeNameIn(QByteArrayView settings)
{
    Reader reader(settings, !settings.isEmpty() && settings.front() == 1);
    reader.take(12); // the order, a serial number and how many there are
    while (!reader.isAtEnd()) {
        const auto kind = reader.number<quint8>();
        reader.take(1);
        const QByteArrayView name = reader.takePadded(reader.number<quint16>());
        reader.take(4);
        if (kind == Text) {
            const QByteArrayView text = reader.takePadded(reader.number<quint32>());
            if (name == "Net/ThemeName")
                return QString::fromUtf8(text);
        } else if (kind == Number || kind == Colour) {
            reader.take(kind == Number ? 4 : 8);
        } else {
            break;
        }
    }
    return {};
}

ThemeWatch::ThemeWatch(const Connection& connection, const Atoms& atoms)
    : m_connection(connection), m_selection(atoms[AtomName::SettingsDaemon]),
      m_property(atoms[AtomName::DaemonSettings])
{
    xcb_xfixes_select_selection_input(connection.get(), connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const auto owner = connection.reply(xcb_get_selection_owner_reply,
                                        xcb_get_selection_owner(connection.get(), m_selection));
    follow(owner ? owner->owner : XCB_NONE);
}

QString ThemeWatch::themeName() const
{
    const std::lock_guard lock(m_mutex);
    return m_name;
}

void ThemeWatch::setChanged(std::function<void()> changed)
{
    const std::lock_guard lock(m_mutex);
    m_changed = std::move(changed);
}

void ThemeWatch::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_PROPERTY_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (m_daemon != XCB_NONE && notify.window == m_daemon && notify.atom == m_property)
            read();
    } else if (type == m_connection.extensions().xfixes.firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        if (notify.selection == m_selection)
            follow(notify.owner);
    }
}

void ThemeWatch::follow(xcb_window_t daemon)
{
    m_daemon = daemon;
    if (daemon != XCB_NONE) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection.get(), daemon, XCB_CW_EVENT_MASK, &events);
    }
    read();
}

void ThemeWatch::read()
{
    QString name;
    if (m_daemon != XCB_NONE) {
        const auto reply = m_connection.reply(
            xcb_get_property_reply, xcb_get_property(m_connection.get(), 0, m_daemon, m_property,
                                                     m_property, 0, mostWords));
        if (reply && reply->format == 8)
            name =
                themeNameIn({static_cast<const char*>(xcb_get_property_value(reply.get())),
                             static_cast<qsizetype>(xcb_get_property_value_length(reply.get()))});
    }
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_name, name) != name && m_changed)
        m_changed();
}

} // namespace lumbrix::platform::x11
