// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>

#include "model/FilterLevels.h"
#include "model/SWElement.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{

class ModelFixture : public DesktopFixture, public FilterLevels
{
protected:
    ModelFixture() { SWElement::setFilterLevels(this); }
    ~ModelFixture() override
    {
        loop.shutdown();
        SWElement::setFilterLevels(nullptr);
    }

    SWElementPtr element(WindowID window)
    {
        return SWElement::elementWithElementRef(ports(), desk.windowElement(window));
    }
    /// An element of the window, matched against the present window list.
    SWElementPtr matched(WindowID window)
    {
        const SWElementPtr result = element(window);
        EXPECT_TRUE(result->findPIDandWID(list()));
        return result;
    }
    SWElementPtr dockItem(const QString& title)
    {
        return SWElement::elementWithElementRef(ports(), desk.dockItem(title));
    }
    platform::WindowList list()
    {
        return desk.windowServer().copyWindowInfo(
            platform::WindowListOption::ExcludeDesktopElements);
    }

    std::map<QString, int> levels;

private:
    std::optional<int> levelForKey(const QString& key) const override
    {
        const auto found = levels.find(key);
        return found == levels.end() ? std::nullopt : std::optional(found->second);
    }
};

} // namespace lumbrix::test
