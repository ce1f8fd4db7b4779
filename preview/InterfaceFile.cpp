// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/InterfaceFile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtUiTools/QUiLoader>

#include <array>

#include "platform/StringLiterals.h"
#include "preview/BadgeView.h"
#include "preview/CalTableView.h"
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

template <class Panel> QWidget* makePanel(const platform::Desktop& ports, QWidget* parent)
{
    return new Panel(ports, parent);
}

constexpr std::array widgetClasses{
    InterfaceClass{QLatin1String("BadgeView"), make<BadgeView>},
    InterfaceClass{QLatin1String("CalTableView"), make<CalTableView>},
    InterfaceClass{QLatin1String("ImageButton"), make<ImageButton>},
    InterfaceClass{QLatin1String("KeyLabel"), make<KeyLabel>},
    InterfaceClass{QLatin1String("LXImageCell"), make<LXImageCell>},
    InterfaceClass{QLatin1String("NumberLabel"), make<NumberLabel>},
    InterfaceClass{QLatin1String("PanelBackground"), make<PanelBackground>},
    InterfaceClass{QLatin1String("PictureButton"), make<PictureButton>},
    InterfaceClass{QLatin1String("PictureView"), make<PictureView>},
    InterfaceClass{QLatin1String("TitleLabel"), make<TitleLabel>},
};

struct PanelClass {
    QLatin1String name;
    QWidget* (*create)(const platform::Desktop& ports, QWidget* parent);
};
constexpr std::array panelClasses{
    PanelClass{QLatin1String("DBOverlayWindow"), makePanel<DBOverlayWindow>},
    PanelClass{QLatin1String("MAWindow"), makePanel<MAWindow>},
};

class Loader : public QUiLoader
{
public:
    Loader() { setLanguageChangeEnabled(false); }

    std::unique_ptr<QWidget> loadWith(const platform::Desktop& ports, QIODevice& file,
                                      std::span<const InterfaceClass> classes)
    {
        m_ports = &ports;
        m_classes = classes;
        std::unique_ptr<QWidget> result(load(&file));
        m_classes = {};
        m_ports = nullptr;
        return result;
    }

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override
    {
        QWidget* widget = createOwn(className, parent);
        if (!widget)
            return QUiLoader::createWidget(className, parent, name);
        widget->setObjectName(name);
        return widget;
    }

private:
    /// Null if it is not one of the program's own classes.
    QWidget* createOwn(const QString& className, QWidget* parent) const
    {
        for (const PanelClass& candidate : panelClasses)
            if (className == candidate.name)
                return candidate.create(*m_ports, parent);
        for (const std::span<const InterfaceClass> known :
             {std::span<const InterfaceClass>(widgetClasses), m_classes}) {
            for (const InterfaceClass& candidate : known)
                if (className == candidate.name)
                    return candidate.create(parent);
        }
        return nullptr;
    }

    // Set only while a file is being loaded.
    const platform::Desktop* m_ports = nullptr;
    std::span<const InterfaceClass> m_classes; ///< in addition to widgetClasses and panelClasses
};

/// QUiLoader looks for plug-ins on disk when it is created, and loads the libraries of every widget
/// they offer (a whole scene-graph toolkit if the form editor is installed). None of them is
/// needed.
std::unique_ptr<Loader> makeLoader()
{
    const QStringList paths = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    auto loader = std::make_unique<Loader>();
    QCoreApplication::setLibraryPaths(paths);
    return loader;
}

} // namespace

std::unique_ptr<QWidget> loadInterface(const platform::Desktop& ports, const QString& name,
                                       std::span<const InterfaceClass> classes)
{
    QFile file(u":/interfaces/%1.ui"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    static const std::unique_ptr<Loader> kept = makeLoader();
    Loader& loader = *kept;
    return loader.loadWith(ports, file, classes);
}

} // namespace lumbrix
