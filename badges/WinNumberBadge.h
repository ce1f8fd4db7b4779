// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QRectF>
#include <QtGui/QColor>

#include <memory>

#include "model/SWElement.h"
#include "platform/Desktop.h"

namespace lumbrix
{

class LXImageCell;
class MAWindow;
class NumberLabel;

/// One badge over one Dock item: a small panel from the interface file of the same name. Mouse
/// events pass through it. Main thread.
class WinNumberBadge
{
public:
    /// Null when the interface file cannot be loaded. The ports must outlive it.
    static std::unique_ptr<WinNumberBadge> load(const platform::Desktop& ports,
                                                SWElementPtr dockItem);
    ~WinNumberBadge();

    /// The item's rectangle on the screen (screen coordinates); empty while the Dock hides it. Any
    /// thread.
    static QRectF iconRect(const SWElement& dockItem);

    void setBadgeValue(int count);
    /// Places the badge over the item, as badgeFrame() says, or hides it while the item is hidden.
    void arrangeRelativeTo(std::int32_t position, float sizeExtra);
    void updateImageColor(const QColor& color);
    void orderFront();
    void dismiss();

    const SWElementPtr& dockItem() const { return m_dockItem; }
    MAWindow& window() const { return *m_window; }
    const NumberLabel& badge() const { return *m_badge; }
    /// The item's rectangle when the badge was last placed.
    QRectF prevRect() const { return m_prevRect; }

private:
    WinNumberBadge(SWElementPtr dockItem, std::unique_ptr<MAWindow> window);
    void fitNumber();
    void updateImage();

    const SWElementPtr m_dockItem;
    const std::unique_ptr<MAWindow> m_window;
    NumberLabel* m_badge = nullptr;      ///< owned by the window, as is the image
    LXImageCell* m_badgeImage = nullptr; ///< the template, tinted
    QColor m_color;
    QRectF m_prevRect;
    bool m_isFront = false; ///< ordered front; may be hidden nevertheless
};

} // namespace lumbrix
