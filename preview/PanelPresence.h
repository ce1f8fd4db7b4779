// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How far a panel is on its way onto the screen or off it.
#pragma once

namespace lumbrix
{

/// Main thread. QWidget::isVisible() is not enough: the toolkit need not know that a panel is off
/// the screen.
class PanelPresence
{
public:
    bool isFront() const { return m_state != State::Away; }
    bool isDue() const { return m_state == State::Due; }
    bool isOnScreen() const { return m_state >= State::Blank; }
    /// Painting before the server has requested the content would be wasted.
    bool isPaintable() const { return m_state >= State::Ahead; }

    /// Ordered front, but it may not appear yet.
    void wait() { m_state = State::Due; }
    /// The toolkit has shown the window.
    void appear() { m_state = State::Blank; }
    /// A window that the toolkit has shown before was put back on the screen.
    void comeBack() { m_state = State::Ahead; }
    /// Off the screen, or ordered out.
    void leave() { m_state = State::Away; }
    /// The server requests the content. Returns whether it has already been painted, so that the
    /// request can be ignored: the first time if the toolkit knows that the window is mapped
    /// (`isKnown`), and always after that if a compositor keeps the content (`isKept`).
    bool expose(bool isKnown, bool isKept)
    {
        const bool isPainted = m_state == State::Ahead && isKnown;
        if (m_state == State::Blank || (isPainted && !isKept))
            m_state = State::Shown;
        return isPainted;
    }

private:
    enum class State {
        Away,  ///< not ordered front
        Due,   ///< ordered front, but held or alone: not on the screen yet
        Blank, ///< shown by the toolkit, which has not painted it yet
        Ahead, ///< on the screen, painted before the server has requested it
        Shown, ///< on the screen, painted whenever the server requests it
    };

    State m_state = State::Away;
};

} // namespace lumbrix
