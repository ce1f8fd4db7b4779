// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where a panel is on its way onto the screen and off it.
#pragma once

namespace lumbrix
{

/// Main thread. What the toolkit calls visible says less: it need not know that a panel is away.
class PanelPresence
{
public:
    bool isFront() const { return m_state != State::Away; }
    bool isDue() const { return m_state == State::Due; }
    bool isOnScreen() const { return m_state >= State::Blank; }
    /// Before the server has asked for it, to paint is for nothing.
    bool isPaintable() const { return m_state >= State::Ahead; }

    /// Ordered front too early.
    void wait() { m_state = State::Due; }
    /// The toolkit has shown its window.
    void appear() { m_state = State::Blank; }
    /// A window that the toolkit has shown before is on the screen again.
    void comeBack() { m_state = State::Ahead; }
    /// Off the screen, or wanted there no longer.
    void leave() { m_state = State::Away; }
    /// The server asks for the content. Whether it has been painted already: once for a window that
    /// the toolkit knows to be there, and from then on where a compositor keeps what is painted.
    bool expose(bool isKnown, bool isKept)
    {
        const bool isPainted = m_state == State::Ahead && isKnown;
        if (m_state == State::Blank || (isPainted && !isKept))
            m_state = State::Shown;
        return isPainted;
    }

private:
    enum class State {
        Away,  ///< nobody wants it seen
        Due,   ///< ordered front, but held or alone: not on the screen yet
        Blank, ///< on the screen for the toolkit too, which has yet to paint it
        Ahead, ///< on the screen and painted before the server has asked for it
        Shown, ///< on the screen and painted whenever it is asked for
    };

    State m_state = State::Away;
};

} // namespace lumbrix
