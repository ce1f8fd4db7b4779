// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/WindowVerdict.h"

namespace lumbrix
{

const char* plainWords(WindowVerdict verdict)
{
    switch (verdict) {
    case WindowVerdict::Good:
        return "it is good";
    case WindowVerdict::NoAnswer:
        return "its application does not answer";
    case WindowVerdict::Unreadable:
        return "it cannot be read, or is gone";
    case WindowVerdict::NoProcess:
        return "its process is not known";
    case WindowVerdict::NoServerWindow:
        return "the window server has none like it";
    case WindowVerdict::NoOrdinaryLayer:
        return "it is not in the layer of ordinary windows";
    case WindowVerdict::NoSameFrame:
        return "the window server has it in another place or size";
    case WindowVerdict::TooSmall:
        return "it is too small";
    case WindowVerdict::Untitled:
        return "it has no title";
    case WindowVerdict::NoSameTitle:
        return "the window server has it under another title";
    case WindowVerdict::OtherOwner:
        return "it is another application's now";
    case WindowVerdict::BlockedByLevel:
        return "its application's filter leaves out all windows";
    case WindowVerdict::ClosedToServer:
        return "no Space has it";
    case WindowVerdict::NoWindowRole:
        return "it does not call itself a window";
    case WindowVerdict::FloatingAtLevel:
        return "its application's filter leaves out windows of its kind";
    case WindowVerdict::NoContent:
        return "there is nothing in it";
    case WindowVerdict::NotScanned:
        return "its application shows in no Dock";
    case WindowVerdict::NumberListed:
        return "another window is known under its number";
    case WindowVerdict::ApplicationHidden:
        return "its application is hidden";
    case WindowVerdict::Minimized:
        return "it is minimised";
    case WindowVerdict::BeyondMost:
        return "there are as many previews as fit";
    }
    return "";
}

} // namespace lumbrix
