// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Watch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using privatedesk::Panel;

namespace
{

constexpr auto lookEvery = 50ms; ///< often enough for three seconds
constexpr int nearness = 130;    ///< pixels between an icon and its row, at most
constexpr int dockNearness = 40; ///< a dock slides and grows
constexpr std::uint8_t firstNumberKey = 10, lastNumberKey = 19, escapeKey = 9;

template <class T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

} // namespace

Watch::Watch(privatedesk::Display& display, const std::unique_ptr<privatedesk::Process>& lumbrix)
    : m_display(display), m_lumbrix(lumbrix)
{
}

void Watch::look()
{
    const auto now = Clock::now();
    if (now - m_lookedAt < lookEvery)
        return;
    m_lookedAt = now;
    if (!m_lumbrix)
        return;
    if (!m_lumbrix->isRunning()) {
        wrong("the program has gone");
        return;
    }
    if (m_isBlind || !isMouseElsewhere(m_display.panels())) {
        m_inOrderAt = now;
        m_isReported = false;
    } else if (now - m_inOrderAt > privatedesk::patience(stray) && !m_isReported) {
        m_isReported = true;
        wrong("panels without the mouse");
    }
}

void Watch::wait(std::chrono::milliseconds time)
{
    m_display.waitFor(
        [this] {
            look();
            return false;
        },
        time);
}

void Watch::setBlind(bool on)
{
    m_isBlind = on;
    m_inOrderAt = Clock::now();
}

void Watch::expectRest(const std::string& after)
{
    if (!m_display.waitFor([this] { return hasNoWindow(); }, privatedesk::patience(stray)))
        wrong("a window stays after " + after);
    if (!m_display.waitFor([this] { return !hasFocus(); }, privatedesk::patience(stray)))
        wrong("the keyboard's focus stays after " + after);
    if (!m_display.waitFor([this] { return isInputFree(); }, privatedesk::patience(stray)))
        wrong("keys or the pointer stay taken after " + after);
}

void Watch::wrong(const std::string& what)
{
    ++m_wrongs[what];
    const auto at = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - m_start);
    std::printf("WRONG at %lld s: %s\n", static_cast<long long>(at.count()), what.c_str());
    for (const Panel& panel : m_display.panels())
        std::printf("  %s '%s' at %d,%d %dx%d\n", qPrintable(panel.role), panel.title.constData(),
                    panel.geometry.x(), panel.geometry.y(), panel.geometry.width(),
                    panel.geometry.height());
    const QPoint pointer = m_display.pointer();
    std::printf("  the pointer at %d,%d\n", pointer.x(), pointer.y());
}

bool Watch::isMouseElsewhere(const std::vector<Panel>& panels)
{
    if (panels.empty())
        return false;
    const QPoint pointer = m_display.pointer();
    QRect row;
    for (const Panel& panel : panels)
        if (panel.role == u"preview"_s)
            row |= panel.geometry;
    if (row.isNull())
        return true; // what belongs to a row, and has none
    const auto holds = [&](const QRect& rect, int margin) {
        return rect.adjusted(-margin, -margin, margin, margin).contains(pointer);
    };
    const auto dock = m_display.dockArea();
    return !holds(row, nearness) && !(dock && holds(*dock, dockNearness));
}

bool Watch::hasNoWindow()
{
    return m_display.panels().empty() && m_display.managedWindows().empty();
}

bool Watch::hasFocus()
{
    const xcb_window_t focus = m_display.focus();
    return focus > XCB_INPUT_FOCUS_POINTER_ROOT &&
           m_display.bytes(focus, "WM_CLASS").startsWith("lumbrix");
}

bool Watch::isInputFree()
{
    xcb_connection_t* c = m_display.connection();
    const xcb_window_t root = m_display.root();
    const auto pointerCookie =
        xcb_grab_pointer(c, 0, root, 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                         XCB_NONE, XCB_CURRENT_TIME);
    const Reply<xcb_grab_pointer_reply_t> pointer(xcb_grab_pointer_reply(c, pointerCookie, nullptr),
                                                  &std::free);
    xcb_ungrab_pointer(c, XCB_CURRENT_TIME);
    const auto keyboardCookie =
        xcb_grab_keyboard(c, 0, root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_keyboard_reply_t> keyboard(
        xcb_grab_keyboard_reply(c, keyboardCookie, nullptr), &std::free);
    xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
    bool isFree = pointer && pointer->status == XCB_GRAB_STATUS_SUCCESS && keyboard &&
                  keyboard->status == XCB_GRAB_STATUS_SUCCESS;
    // The keys that a row takes: the numbers with the key for numbers, and the one that leaves it.
    for (std::uint8_t key = escapeKey; key <= lastNumberKey; ++key) {
        const std::uint16_t modifiers = key < firstNumberKey ? 0 : XCB_MOD_MASK_4;
        isFree = m_display.takeKey(key, modifiers) && isFree;
        m_display.giveKeyBack(key, modifiers);
    }
    return isFree;
}

} // namespace lumbrix::bench
