// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Of which windows there must be no pictures, and when there must be none at all.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <functional>

namespace lumbrix::platform
{

/// Applications go by their bundle identifiers. What is private is not to be asked for at the
/// window server; an adapter that takes pictures unasked, or keeps them, leaves it out by itself.
class Privacy
{
public:
    using Choices = QHash<QString, bool>;

    virtual ~Privacy() = default;

    /// Whether no picture of the application's windows is to be made. Any thread.
    virtual bool isPrivate(const QString& bundleIdentifier) = 0;
    /// What isPrivate() says where nothing was chosen: true for password managers and the like.
    /// Any thread.
    virtual bool isPrivateAtFirst(const QString& bundleIdentifier) = 0;
    /// What the user has chosen, in the place of earlier choices. Pictures of what is private now
    /// are dropped. Main thread.
    virtual void setChoices(const Choices& choices) = 0;

    /// The screen is locked or saved, or the machine is about to sleep: whoever sees the screen
    /// next may be somebody else. The adapter has dropped all its pictures and makes none. Any
    /// thread.
    virtual bool isAway() = 0;
    /// Called on the main thread after isAway() has changed; an empty one ends that. Main thread.
    virtual void setObserver(std::function<void()> changed) = 0;
};

} // namespace lumbrix::platform
