// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The previews' interface to hot keys. The hot-key centre of the application implements it.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>

#include "model/SGKeyCombo.h"

namespace lumbrix
{

struct SGHotKey {
    QString identifier;
    SGKeyCombo keyCombo;
    std::function<void()> action; ///< runs on the main thread
};

/// Main thread.
class HotKeyCenter
{
public:
    virtual ~HotKeyCenter() = default;
    virtual void registerHotKey(const std::shared_ptr<SGHotKey>& hotKey) = 0;
    /// Does nothing for null and for a key that is not registered.
    virtual void unregisterHotKey(const std::shared_ptr<SGHotKey>& hotKey) = 0;
    /// Turns on the taps needed in the current state, or turns off all that are not needed.
    virtual void toggleEventTap(bool on) = 0;
    /// The row of previews, or what is hovered of it, is another now: some keys follow that.
    virtual void rowChanged() = 0;
};

} // namespace lumbrix
