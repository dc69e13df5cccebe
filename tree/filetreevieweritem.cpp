#include "tree/filetreevieweritem.h"

#include "common/datafolders.h"
#include "common/privilegedropguard.h"
#include "tree/filesystemmodel.h"
#include "tree/filesystemproxymodel.h"
#include "tree/namedelegate.h"
#include "tree/treestyle.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGraphicsProxyWidget>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QScrollBar>
#include <QTreeView>

namespace {
const int nameColumn = 0;
const int nameWidth = 260;
const int typeColumn = 2;
const int dateColumn = 3;
const int dateWidth = 150;
const int margin = 2;
const int indentation = 24;
const QChar separatorOfWords = QLatin1Char(',');
} // namespace

FileTreeViewerItem::FileTreeViewerItem(QDeclarativeItem *parent)
    : QDeclarativeItem(parent)
    , m_proxyWidget(new QGraphicsProxyWidget(this))
    , m_treeView(new QTreeView)
    , m_model(new FileSystemModel)
    , m_proxyModel(new FileSystemProxyModel)
    , m_currentFilename(QLatin1String(""))
    , m_currentFilepath(QDir::currentPath())
    , m_root(QLatin1String(""))
    , m_selectedFilename(QLatin1String(""))
    , m_nameFilterOn(false)
    , m_openDirs(false)
    , m_showRoot(true)
{
    setFlag(QGraphicsItem::ItemHasNoContents, false);
    m_proxyModel->setSourceModel(m_model);
    m_proxyModel->setDynamicSortFilter(true);
    setUpView();
    m_proxyWidget->setWidget(m_treeView);
    m_treeView->setSortingEnabled(true);
    m_treeView->sortByColumn(nameColumn, Qt::AscendingOrder);
    connectSignals();
}

FileTreeViewerItem::~FileTreeViewerItem()
{
    delete m_treeView;
    delete m_proxyModel;
    delete m_model;
}

void FileTreeViewerItem::setUpView()
{
    m_treeView->setContentsMargins(margin, margin, margin, margin);
    m_treeView->setUniformRowHeights(true);
    m_treeView->setRootIsDecorated(m_showRoot);
    m_treeView->setItemsExpandable(m_showRoot);
    m_treeView->setModel(m_proxyModel);
    m_treeView->setItemDelegateForColumn(nameColumn, new NameDelegate(m_treeView));
    m_treeView->setColumnWidth(nameColumn, nameWidth);
    m_treeView->setColumnHidden(typeColumn, true);
    m_treeView->setColumnWidth(dateColumn, dateWidth);
    m_treeView->setAttribute(Qt::WA_MouseTracking, false);
    m_treeView->setFocusPolicy(Qt::NoFocus);
    m_treeView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_treeView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_treeView->setTextElideMode(Qt::ElideMiddle);
    m_treeView->setIndentation(indentation);
    m_treeView->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_treeView->setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
    m_treeView->horizontalScrollBar()->setStyleSheet(TreeStyle::horizontalScrollBar());
    m_treeView->verticalScrollBar()->setStyleSheet(TreeStyle::verticalScrollBar());
    m_treeView->header()->setStyleSheet(TreeStyle::header());
    m_treeView->setStyleSheet(TreeStyle::tree());
}

void FileTreeViewerItem::connectSignals()
{
    connect(this, SIGNAL(widthChanged()), this, SLOT(redrawView()));
    connect(this, SIGNAL(heightChanged()), this, SLOT(redrawView()));
    connect(m_treeView, SIGNAL(pressed(QModelIndex)), this, SLOT(viewPressed(QModelIndex)));
    connect(m_proxyModel, SIGNAL(dirsFirstChanged()), this, SIGNAL(dirsFirstChanged()));
    connect(m_model, SIGNAL(isSelectableChanged()), this, SIGNAL(isSelectableChanged()));
    connect(m_model, SIGNAL(checkedFilesKBChanged()), this, SIGNAL(checkedFilesKBChanged()));
    connect(this, SIGNAL(checkedFilesKBChanged()), this, SLOT(updateCheckedFileKB()));
}

QString FileTreeViewerItem::root() const
{
    return m_root;
}

QString FileTreeViewerItem::currentFilename() const
{
    return m_currentFilename;
}

void FileTreeViewerItem::setCurrentFilename(const QString &name)
{
    if (name != m_currentFilename) {
        m_currentFilename = name;
        setSelectedFilename(name);
    }
    emit currentFilenameChanged();
}

QString FileTreeViewerItem::currentFilepath() const
{
    return m_currentFilepath;
}

void FileTreeViewerItem::setCurrentFilepath(const QString &path)
{
    if (path == m_currentFilepath)
        return;
    m_currentFilepath = path;
    m_selectedFilename = QString();
    emit currentFilepathChanged();
    emit selectedFilenameChanged();
}

QString FileTreeViewerItem::selectedFilename() const
{
    return m_selectedFilename;
}

void FileTreeViewerItem::setSelectedFilename(const QString &name)
{
    if (name == m_selectedFilename)
        return;
    m_selectedFilename = name;
    emit selectedFilenameChanged();
}

bool FileTreeViewerItem::dirsFirst() const
{
    return m_proxyModel->dirsFirst();
}

bool FileTreeViewerItem::openDirs() const
{
    return m_openDirs;
}

bool FileTreeViewerItem::showRoot() const
{
    return m_showRoot;
}

bool FileTreeViewerItem::isSelectable() const
{
    return m_model->isSelectable();
}

void FileTreeViewerItem::setIsSelectable(bool isSelectable)
{
    m_model->setIsSelectable(isSelectable);
}

quint64 FileTreeViewerItem::checkedFilesKB() const
{
    return m_model->checkedFilesKB();
}

QString FileTreeViewerItem::nameFilters() const
{
    return m_nameFilters.join(separatorOfWords);
}

bool FileTreeViewerItem::nameFilterOn() const
{
    return m_nameFilterOn;
}

void FileTreeViewerItem::setNameFilterOn(bool on)
{
    if (on == m_nameFilterOn)
        return;
    m_nameFilterOn = on;
    if (on) {
        filterByWords();
        // Deliberately not without words, unlike setNameFilters().
        if (!m_nameFilters.isEmpty())
            m_treeView->expandAll();
    } else {
        m_model->setNameFilters(QStringList());
    }
    emit nameFilterOnChanged();
}

void FileTreeViewerItem::redrawView()
{
    if (!m_treeView || !m_proxyWidget)
        return;
    const qreal itemWidth = width();
    const qreal itemHeight = height();
    if (itemWidth <= 0 || itemHeight <= 0)
        return;
    m_proxyWidget->setMinimumWidth(itemWidth);
    m_proxyWidget->setMinimumHeight(itemHeight);
    m_proxyWidget->setMaximumWidth(itemWidth);
    m_proxyWidget->setMaximumHeight(itemHeight);
    m_treeView->repaint();
}

void FileTreeViewerItem::updateSelection(const QModelIndex &row)
{
    // A handler of the signals below may filter or sort the rows anew.
    const QPersistentModelIndex index(row);
    const QModelIndex source = m_proxyModel->mapToSource(index);
    if (!isDir(index)) {
        if (source.isValid())
            setCurrentFilepath(QFileInfo(m_model->filePath(source)).absolutePath());
        selectFile(index);
    } else if (m_openDirs) {
        selectDir(index);
    } else {
        if (source.isValid())
            setCurrentFilepath(m_model->filePath(source));
        setCurrentFilename(QLatin1String(""));
        toggle(index);
    }
    emit absoluteFilePathChanged();
}

void FileTreeViewerItem::setColumnWidth(int column, int width)
{
    m_treeView->setColumnWidth(column, width);
}

void FileTreeViewerItem::setColumnHidden(int column, bool hide)
{
    m_treeView->setColumnHidden(column, hide);
}

QString FileTreeViewerItem::absoluteFilePath() const
{
    const QString path = selectedPath();
    return path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
}

void FileTreeViewerItem::collapseAll()
{
    m_treeView->collapseAll();
}

void FileTreeViewerItem::expandAll()
{
    m_treeView->expandAll();
}

QString FileTreeViewerItem::getSoilFluxDirectory()
{
    return DataFolders::soilFlux();
}

void FileTreeViewerItem::setCurrentPath(const QString &str)
{
    if (!QDir(str).exists())
        return;
    m_model->setRootPath(str);
    const QModelIndex folder = m_model->index(m_model->rootPath());
    m_treeView->setRootIndex(m_proxyModel->mapFromSource(folder));
    setCurrentFilepath(str);
    setCurrentFilename(QLatin1String(""));
    m_treeView->selectionModel()->clearSelection();
}

void FileTreeViewerItem::setDirsFirst(bool dirsfirst)
{
    m_proxyModel->setDirsFirst(dirsfirst);
}

void FileTreeViewerItem::setOpenDirs(bool doOpen)
{
    if (doOpen == m_openDirs)
        return;
    m_openDirs = doOpen;
    emit openDirsChanged();
}

void FileTreeViewerItem::setRoot(const QString &str)
{
    if (!QDir(str).exists())
        return;
    m_root = str;
    setCurrentPath(str);
}

void FileTreeViewerItem::setShowRoot(bool doShow)
{
    if (doShow == m_showRoot)
        return;
    m_showRoot = doShow;
    m_treeView->setRootIsDecorated(m_showRoot);
    m_treeView->setItemsExpandable(m_showRoot);
    emit showRootChanged();
}

void FileTreeViewerItem::viewConfigsDirectory()
{
    setRoot(DataFolders::configurations());
}

void FileTreeViewerItem::viewLogDirectory()
{
    setRoot(DataFolders::logs());
}

void FileTreeViewerItem::viewSoilFluxDirectory()
{
    if (QDir(DataFolders::soilFlux()).exists())
        setRoot(DataFolders::soilFlux());
    else
        viewLogDirectory();
}

void FileTreeViewerItem::clearNameFilters()
{
    m_nameFilters.clear();
    emit nameFiltersChanged();
}

QStringList FileTreeViewerItem::getNameFilters()
{
    return m_model->nameFilters();
}

void FileTreeViewerItem::setNameFilters(const QString &filters)
{
    m_nameFilters = filters.split(separatorOfWords);
    m_nameFilters.removeAll(QString());
    if (m_nameFilterOn) {
        filterByWords();
        m_treeView->expandAll();
    }
    emit nameFiltersChanged();
}

bool FileTreeViewerItem::createNewFile(const QString &name)
{
    const PrivilegeDropGuard guard;
    QFile file(m_currentFilepath + QDir::separator() + name);
    return file.open(QIODevice::WriteOnly);
}

bool FileTreeViewerItem::createNewFolder(const QString &name)
{
    const PrivilegeDropGuard guard;
    return m_model->isDir(m_model->mkdir(m_model->index(m_currentFilepath), name));
}

bool FileTreeViewerItem::deleteSelectedDir()
{
    const PrivilegeDropGuard guard;
    QModelIndex index;
    return getSelectedModelIndex(index) && m_model->rmdir(index);
}

bool FileTreeViewerItem::deleteSelectedFile()
{
    const PrivilegeDropGuard guard;
    QModelIndex index;
    return getSelectedModelIndex(index) && m_model->remove(index);
}

bool FileTreeViewerItem::exists(const QString &path)
{
    return QDir(path).exists();
}

bool FileTreeViewerItem::isDirSelected()
{
    QModelIndex index;
    return getSelectedProxyIndex(index) && isDir(index);
}

void FileTreeViewerItem::listSelectedFiles()
{
    m_model->listSelectedFiles();
}

bool FileTreeViewerItem::renameFile(const QString &name)
{
    const PrivilegeDropGuard guard;
    QModelIndex index;
    if (!getSelectedModelIndex(index))
        return false;
    const QFileInfo entry(m_model->filePath(index));
    const QString newPath = entry.absolutePath() + QDir::separator() + name;
    if (!QDir(entry.absolutePath()).rename(entry.absoluteFilePath(), newPath))
        return false;
    emit fileRenamed(m_currentFilepath, newPath);
    return true;
}

void FileTreeViewerItem::setTaggedPath(const QString &path)
{
    m_model->setTaggedPath(path);
}

void FileTreeViewerItem::clearSelection()
{
    m_treeView->clearSelection();
    m_treeView->selectionModel()->setCurrentIndex(QModelIndex(), QItemSelectionModel::Select);
}

void FileTreeViewerItem::findAndSelectIndex(const QString &path, const QString &name)
{
    if (path != m_currentFilepath)
        setCurrentPath(path);
    const QModelIndex folder = m_model->index(path);
    for (int row = 0; row < m_model->rowCount(folder); ++row) {
        const QModelIndex entry = m_model->index(row, nameColumn, folder);
        if (QFileInfo(m_model->filePath(entry)).absoluteFilePath() != name)
            continue;
        const QModelIndex found = m_proxyModel->mapFromSource(entry);
        m_treeView->selectionModel()->select(found, QItemSelectionModel::Select |
                                                        QItemSelectionModel::Rows);
        updateSelection(found);
        return;
    }
}

void FileTreeViewerItem::selectAll()
{
    m_model->selectAll();
}

void FileTreeViewerItem::clearAll()
{
    m_model->clearAll();
}

QString FileTreeViewerItem::copyCheckedFilesTo(const QString &dest)
{
    QString failed = m_model->copyCheckedFilesTo(dest);
    m_model->clearAll();
    m_model->fetchMore(m_model->index(dest));
    return failed;
}

void FileTreeViewerItem::updateCheckedFileKB()
{
    qDebug() << "DEBUG: FileTreeViewerItem::updateCheckedFileKB ()";
    qDebug() << "DEBUG: Checked files size in Bytes = " << m_model->checkedFilesKB();
}

QString FileTreeViewerItem::getCurrentItemName()
{
    return QFileInfo(selectedPath()).fileName();
}

void FileTreeViewerItem::selectDir(const QModelIndex &index)
{
    setCurrentPath(m_proxyModel->data(index, QFileSystemModel::FilePathRole).toString());
}

void FileTreeViewerItem::selectFile(const QModelIndex &index)
{
    setCurrentFilename(m_proxyModel->data(index, QFileSystemModel::FileNameRole).toString());
}

void FileTreeViewerItem::viewPressed(const QModelIndex &index)
{
    updateSelection(index);
}

bool FileTreeViewerItem::getSelectedModelIndex(QModelIndex &modelIndex) const
{
    QModelIndex proxyIndex;
    if (!getSelectedProxyIndex(proxyIndex))
        return false;
    modelIndex = m_proxyModel->mapToSource(proxyIndex);
    return modelIndex.isValid();
}

bool FileTreeViewerItem::getSelectedProxyIndex(QModelIndex &proxyIndex) const
{
    const QModelIndexList selected = m_treeView->selectionModel()->selectedIndexes();
    if (selected.isEmpty())
        return false;
    proxyIndex = selected.first();
    return proxyIndex.isValid();
}

bool FileTreeViewerItem::isDir(const QModelIndex &proxyIndex) const
{
    return m_proxyModel->data(proxyIndex, FileSystemModel::IsDirRole).toBool();
}

void FileTreeViewerItem::toggle(const QModelIndex &proxyIndex)
{
    // The view keeps what is expanded by the first column, and a touch may be on any.
    const QModelIndex row = proxyIndex.sibling(proxyIndex.row(), nameColumn);
    m_treeView->setExpanded(row, !m_treeView->isExpanded(row));
}

QString FileTreeViewerItem::selectedPath() const
{
    QModelIndex index;
    return getSelectedModelIndex(index) ? m_model->filePath(index) : QString();
}

void FileTreeViewerItem::filterByWords()
{
    QStringList patterns;
    for (const QString &word : m_nameFilters)
        patterns.append(QLatin1Char('*') + word + QLatin1Char('*'));
    m_model->setNameFilters(patterns);
}
