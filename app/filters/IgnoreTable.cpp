// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/IgnoreTable.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTableView>

#include <array>

#include "app/filters/FilterLevelTitle.h"
#include "app/filters/FilterSubject.h"
#include "app/preferences/NoteLabel.h"
#include "engine/LXHandler.h"
#include "engine/PrivateChoices.h"
#include "model/BundleIdentifiers.h"
#include "platform/Desktop.h"
#include "platform/Privacy.h"
#include "platform/StringLiterals.h"
#include "platform/UserDefaults.h"
#include "preview/DisplayText.h"
#include "preview/InterfaceFile.h"

namespace lumbrix
{
namespace
{

/// The subject (see FilterSubject) that an item of the applications pop-up stands for.
constexpr int subjectRole = Qt::UserRole;

/// The interface files are compiled into the program, so a missing part means a broken build.
template <class T> T& part(QWidget& root, const char* name)
{
    T* found = root.findChild<T*>(QString::fromLatin1(name));
    if (!found)
        qFatal("the interface file of '%s' has no '%s'", qPrintable(root.objectName()), name);
    return *found;
}

QWidget* makeNoteLabel(QWidget* parent) { return new NoteLabel(parent); }

QDialog& loadSheet(QWidget& pane)
{
    static constexpr std::array classes{InterfaceClass{QLatin1String("NoteLabel"), makeNoteLabel}};
    auto* sheet = qobject_cast<QDialog*>(
        loadInterface(platform::desktop(), u"FilterSheet"_s, classes).release());
    if (!sheet)
        qFatal("there is no interface file of the filter sheet");
    sheet->setParent(&pane, Qt::Dialog);
    return *sheet;
}

} // namespace

IgnoreTable::IgnoreTable(QWidget& pane)
    : QObject(&pane), m_pane(pane), m_tableView(part<QTableView>(pane, "tableView")),
      m_addFilterWindow(loadSheet(pane)), m_rows(m_icons)
{
    setUpTable();
    setUpSheet();
}

QVariantMap IgnoreTable::getFiltersDictionary()
{
    return FilterTable::getFiltersDictionary(platform::desktop().userDefaults);
}

void IgnoreTable::setUpTable()
{
    m_tableView.setModel(&m_rows);
    m_tableView.setIconSize({24, 24});
    m_tableView.verticalHeader()->setDefaultSectionSize(32);
    m_tableView.verticalHeader()->setMinimumSectionSize(32);
    QHeaderView& header = *m_tableView.horizontalHeader();
    header.setSectionResizeMode(FilterRows::ApplicationColumn, QHeaderView::Fixed);
    header.setSectionResizeMode(FilterRows::FilterColumn, QHeaderView::Stretch);
    header.resizeSection(FilterRows::ApplicationColumn, 200);
    header.setSectionsClickable(false);
    header.setHighlightSections(false);
    m_tableView.installEventFilter(this);
    m_tableView.viewport()->installEventFilter(this);

    m_deleteButton = &part<QAbstractButton>(m_pane, "deleteButton");
    const auto showWhetherDeletable = [this] { m_deleteButton->setEnabled(selectedRow() >= 0); };
    connect(m_tableView.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            showWhetherDeletable);
    connect(&m_rows, &QAbstractItemModel::modelReset, this, showWhetherDeletable);
    showWhetherDeletable();
    connect(m_deleteButton, &QAbstractButton::clicked, this, &IgnoreTable::deleteButtonPressed);
    connect(&part<QAbstractButton>(m_pane, "addButton"), &QAbstractButton::clicked, this,
            &IgnoreTable::addButtonPressed);
}

void IgnoreTable::setUpSheet()
{
    m_addFilterWindow.setWindowRole(u"alert"_s);
    m_addFilterWindow.setWindowModality(Qt::WindowModal);
    m_applications = &part<QComboBox>(m_addFilterWindow, "applications");
    m_filterLevels = &part<QComboBox>(m_addFilterWindow, "filterLevels");
    m_levelDescription = &part<QLabel>(m_addFilterWindow, "levelDescription");
    m_privateBox = &part<QCheckBox>(m_addFilterWindow, "privateBox");
    constexpr int iconSize = ApplicationIcons::size;
    m_applications->setIconSize({iconSize, iconSize});
    connect(m_applications, &QComboBox::activated, this, &IgnoreTable::applicationsButtonClicked);
    connect(m_applications, &QComboBox::currentIndexChanged, this, &IgnoreTable::showPrivacy);
    connect(m_filterLevels, &QComboBox::currentIndexChanged, this, &IgnoreTable::showDescription);
    connect(&part<QAbstractButton>(m_addFilterWindow, "okButton"), &QAbstractButton::clicked, this,
            &IgnoreTable::addFilter);
    connect(&part<QAbstractButton>(m_addFilterWindow, "cancelButton"), &QAbstractButton::clicked,
            this, &IgnoreTable::cancelFilter);
    connect(&m_addFilterWindow, &QDialog::finished, this, &IgnoreTable::sheetDidEnd);
    connect(&m_icons, &ApplicationIcons::loaded, m_applications, [this](const QString& bundle) {
        for (int i = 0; i < m_applications->count(); ++i)
            if (m_applications->itemData(i, subjectRole) == bundle)
                m_applications->setItemIcon(i, m_icons.icon(bundle));
    });
}

void IgnoreTable::addButtonPressed()
{
    if (m_addFilterWindow.isVisible())
        return;
    generateAppsMenu();
    m_filterLevels->clear();
    generateFiltersMenu();
    runSheet(tr("Add Filter – Lumbrix Preferences"));
}

void IgnoreTable::itemClicked(int row)
{
    if (row < 0 || row >= m_rows.numberOfRows()) {
        addButtonPressed();
        return;
    }
    if (m_addFilterWindow.isVisible())
        return;
    m_applications->clear();
    appendApplication(m_rows.getRowName(row), m_rows.getRowBundle(row));
    generateFiltersMenu();
    m_filterLevels->setCurrentIndex(m_filterLevels->findText(m_rows.getRowFilter(row)));
    runSheet(tr("Change Filter – Lumbrix Preferences"));
}

void IgnoreTable::deleteButtonPressed()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    LXHandler& handler = LXHandler::sharedHandler();
    const QString bundle = m_rows.getRowBundle(row);
    QVariantMap filters = handler.filters();
    filters.remove(bundle);
    handler.setFilters(filters);
    choosePrivacy(bundle, platform::desktop().privacy.isPrivateAtFirst(bundle));
    // The row that moves up is selected next, so that several can be deleted one after the other.
    const int next = row + 1 < m_rows.numberOfRows() ? row + 1 : row - 1;
    reloadData(next < 0 ? QString() : m_rows.getRowBundle(next));
    saveDefaults();
}

void IgnoreTable::addFilter()
{
    if (m_applications->currentIndex() >= 0 && m_filterLevels->currentIndex() >= 0) {
        LXHandler& handler = LXHandler::sharedHandler();
        const QString subject = m_applications->currentData(subjectRole).toString();
        QVariantMap filters = handler.filters();
        filters.insert(subject, m_filterLevels->currentIndex());
        handler.setFilters(filters);
        choosePrivacy(subject, m_privateBox->isChecked());
    }
    m_addFilterWindow.done(1);
}

void IgnoreTable::cancelFilter() { m_addFilterWindow.done(0); }

void IgnoreTable::applicationsButtonClicked() { generateFiltersMenu(); }

void IgnoreTable::showPrivacy()
{
    const QString subject = m_applications->currentData(subjectRole).toString();
    m_privateBox->setEnabled(subject != FilterSubject::AllApplications);
    m_privateBox->setChecked(platform::desktop().privacy.isPrivate(subject));
}

void IgnoreTable::choosePrivacy(const QString& bundle, bool isPrivate)
{
    LXHandler& handler = LXHandler::sharedHandler();
    platform::Privacy::Choices choices = handler.privateChoices();
    if (isPrivate == platform::desktop().privacy.isPrivateAtFirst(bundle))
        choices.remove(bundle);
    else
        choices.insert(bundle, isPrivate);
    if (choices != handler.privateChoices())
        handler.setPrivateChoices(choices);
}

void IgnoreTable::saveDefaults()
{
    platform::UserDefaults& defaults = platform::desktop().userDefaults;
    defaults.setDictionary(LXHandler::sharedHandler().filters(), u"filters"_s);
    PrivateChoices::store(defaults, LXHandler::sharedHandler().privateChoices());
    defaults.synchronize();
}

void IgnoreTable::generateAppsMenu()
{
    m_applications->clear();
    appendApplication(FilterSubject::name(FilterSubject::AllApplications),
                      FilterSubject::AllApplications);
    platform::Workspace& workspace = platform::desktop().workspace;
    if (LXHandler::sharedHandler().settings().showOthersInDockIcon) {
        for (const auto& application : workspace.runningApplications())
            appendApplication(application.localizedName, application.bundleIdentifier);
        return;
    }
    for (const std::int32_t pid : workspace.launchedApplications())
        if (const auto application = workspace.runningApplication(pid))
            appendApplication(application->localizedName, application->bundleIdentifier);
}

void IgnoreTable::appendApplication(const QString& name, const QString& subject)
{
    m_applications->addItem(FilterSubject::icon(subject, m_icons), displayText(name), subject);
    m_applications->setItemData(m_applications->count() - 1, FilterSubject::toolTip(subject),
                                Qt::ToolTipRole);
}

void IgnoreTable::generateFiltersMenu()
{
    // Keep a level that was chosen before the application.
    const int chosen = m_filterLevels->currentIndex();
    m_filterLevels->clear();
    const bool isFinder = m_applications->currentData(subjectRole) == BundleIdentifier::Finder;
    const int last = isFinder ? FilterLevel::totalFinder : FilterLevel::blockAll;
    for (int level = FilterLevel::low; level <= last; ++level)
        m_filterLevels->addItem(FilterLevel::title(level));
    if (chosen >= 0 && chosen <= last)
        m_filterLevels->setCurrentIndex(chosen);
}

void IgnoreTable::showDescription()
{
    const int level = m_filterLevels->currentIndex();
    m_levelDescription->setText(level < 0 ? QString() : FilterLevel::description(level));
}

void IgnoreTable::runSheet(const QString& title)
{
    m_addFilterWindow.setWindowTitle(title);
    showPrivacy();
    // Only one application to choose from: begin with what can be chosen.
    (m_applications->count() > 1 ? m_applications : m_filterLevels)->setFocus();
    m_addFilterWindow.open();
}

void IgnoreTable::sheetDidEnd(int code)
{
    const int row = selectedRow();
    const QString selected = row < 0 ? QString() : m_rows.getRowBundle(row);
    saveDefaults();
    reloadData(code == 0 ? selected : m_applications->currentData(subjectRole).toString());
}

void IgnoreTable::reloadData(const QString& selected)
{
    m_rows.reload();
    if (const int row = m_rows.rowOfBundle(selected); row >= 0)
        m_tableView.selectRow(row);
}

int IgnoreTable::selectedRow() const
{
    const QModelIndexList rows = m_tableView.selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

bool IgnoreTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick && watched == m_tableView.viewport()) {
        const auto& click = static_cast<const QMouseEvent&>(*event);
        if (click.button() == Qt::LeftButton)
            itemClicked(m_tableView.indexAt(click.position().toPoint()).row());
        return true;
    }
    if (event->type() != QEvent::KeyPress || watched != &m_tableView)
        return false;
    switch (static_cast<const QKeyEvent&>(*event).key()) {
    case Qt::Key_Insert:
        addButtonPressed();
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        deleteButtonPressed();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        itemClicked(selectedRow());
        return true;
    default:
        return false;
    }
}

} // namespace lumbrix
