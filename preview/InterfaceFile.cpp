// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/InterfaceFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtUiTools/QUiLoader>

#include <array>

#include "preview/BadgeView.h"
#include "preview/Cells.h"
#include "preview/DBOverlayWindow.h"
#include "preview/ImageButton.h"
#include "preview/KeyLabel.h"
#include "preview/MAWindow.h"
#include "preview/NumberLabel.h"
#include "preview/PanelBackground.h"
#include "preview/PictureButton.h"
#include "preview/PictureView.h"
#include "preview/TitleLabel.h"

namespace lumbrix
{
namespace
{

template <class Widget> QWidget* make(QWidget* parent) { return new Widget(parent); }

struct WidgetClass {
    QLatin1String name;
    QWidget* (*create)(QWidget* parent);
};

constexpr std::array WidgetClasses{
    WidgetClass{QLatin1String("BadgeView"), make<BadgeView>},
    WidgetClass{QLatin1String("DBOverlayWindow"), make<DBOverlayWindow>},
    WidgetClass{QLatin1String("ImageButton"), make<ImageButton>},
    WidgetClass{QLatin1String("KeyLabel"), make<KeyLabel>},
    WidgetClass{QLatin1String("LXImageCell"), make<LXImageCell>},
    WidgetClass{QLatin1String("MAWindow"), make<MAWindow>},
    WidgetClass{QLatin1String("NumberLabel"), make<NumberLabel>},
    WidgetClass{QLatin1String("PanelBackground"), make<PanelBackground>},
    WidgetClass{QLatin1String("PictureButton"), make<PictureButton>},
    WidgetClass{QLatin1String("PictureView"), make<PictureView>},
    WidgetClass{QLatin1String("TitleLabel"), make<TitleLabel>},
};

class Loader : public QUiLoader
{
public:
    Loader() { setLanguageChangeEnabled(false); }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        for (const WidgetClass& known : WidgetClasses) {
            if (className == known.name) {
                QWidget* widget = known.create(parent);
                widget->setObjectName(name);
                return widget;
            }
        }
        return QUiLoader::createWidget(className, parent, name);
    }
};

/// A loader looks for plug-ins on disk when it is made, and loads the libraries behind every widget
/// they offer (a whole scene-graph toolkit, where the form editor is installed). None is wanted.
std::unique_ptr<Loader> makeLoader()
{
    const QStringList paths = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    auto loader = std::make_unique<Loader>();
    QCoreApplication::setLibraryPaths(paths);
    return loader;
}

} // namespace

std::unique_ptr<QWidget> loadInterface(const QString& name)
{
    QFile file(u":/interfaces/%1.ui"_qs.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    static const std::unique_ptr<Loader> kept = makeLoader();
    Loader& loader = *kept;
    return std::unique_ptr<QWidget>(loader.load(&file));
}

} // namespace lumbrix
