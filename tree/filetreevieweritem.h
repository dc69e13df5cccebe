#ifndef FILETREEVIEWERITEM_H
#define FILETREEVIEWERITEM_H

#include <QModelIndex>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <QDeclarativeItem>

class FileSystemModel;
class FileSystemProxyModel;
class QGraphicsProxyWidget;
class QTreeView;

/**
 * The instrument's files as a tree, for QML: a styled tree view with check boxes, sized to the
 * item, and the operations on what is selected or checked in it.
 *
 * @code
 * import FileBrowser 1.0
 * FileTreeViewerItem {
 *     id: tree
 *     anchors.fill: parent
 *     isSelectable: true
 *     Component.onCompleted: tree.viewLogDirectory()
 *     onCurrentFilenameChanged: console.log(currentFilepath + "/" + currentFilename)
 * }
 * @endcode
 *
 * A row acts when it is touched, not when it is released. A touch on a check box checks the row and
 * is no touch of the row.
 *
 * Folders are read in the background: rows may be missing right after a change of path.
 *
 * Runs on the user-interface thread. Creating, renaming and deleting switch the effective user to
 * the instrument's account (see PrivilegeDropGuard) and throw std::runtime_error when that fails,
 * with the disk untouched. The view learns of changes from the file system.
 */
class FileTreeViewerItem : public QDeclarativeItem
{
    Q_OBJECT
    Q_PROPERTY(QString root READ root WRITE setRoot NOTIFY rootChanged)
    Q_PROPERTY(QString absoluteFilePath READ absoluteFilePath NOTIFY absoluteFilePathChanged)
    Q_PROPERTY(QString currentFilename READ currentFilename WRITE setCurrentFilename NOTIFY
                   currentFilenameChanged)
    Q_PROPERTY(QString currentFilepath READ currentFilepath WRITE setCurrentFilepath NOTIFY
                   currentFilepathChanged)
    Q_PROPERTY(QString selectedFilename READ selectedFilename WRITE setSelectedFilename NOTIFY
                   selectedFilenameChanged)
    Q_PROPERTY(bool dirsFirst READ dirsFirst WRITE setDirsFirst NOTIFY dirsFirstChanged)
    Q_PROPERTY(bool openDirs READ openDirs WRITE setOpenDirs NOTIFY openDirsChanged)
    Q_PROPERTY(bool showRoot READ showRoot WRITE setShowRoot NOTIFY showRootChanged)
    Q_PROPERTY(bool isSelectable READ isSelectable WRITE setIsSelectable NOTIFY isSelectableChanged)
    Q_PROPERTY(quint64 checkedFilesKB READ checkedFilesKB NOTIFY checkedFilesKBChanged)
    Q_PROPERTY(QString nameFilters READ nameFilters WRITE setNameFilters NOTIFY nameFiltersChanged)
    Q_PROPERTY(bool nameFilterOn READ nameFilterOn WRITE setNameFilterOn NOTIFY nameFilterOnChanged)

public:
    /** An empty tree, sorted by name, without a root: set root or call one of the view slots. */
    explicit FileTreeViewerItem(QDeclarativeItem *parent = nullptr);

    ~FileTreeViewerItem() override;

    /** The folder that was last set with setRoot(), empty before. */
    QString root() const;

    /** Name of the file that was last touched, empty after a folder or a change of path. */
    QString currentFilename() const;

    /** Sets the name, and selectedFilename when it is another one. Always emits
     * currentFilenameChanged(), so that every touch of a file is announced. */
    void setCurrentFilename(const QString &name);

    /** The folder the user is in: the one of the file last touched, the folder last touched, or the
     * path last set. The process's working folder at first. */
    QString currentFilepath() const;

    /** Sets the folder and empties selectedFilename. The view stays where it is. */
    void setCurrentFilepath(const QString &path);

    /** Follows currentFilename when that changes, emptied when currentFilepath changes. */
    QString selectedFilename() const;
    void setSelectedFilename(const QString &name);

    /** Whether folders come before files, as they do at first, or after them. */
    bool dirsFirst() const;

    /** Whether a touch on a folder makes it the root of the view instead of opening it in place.
     * Off at first. */
    bool openDirs() const;

    /** Whether branches are drawn and can be opened at the top level. On at first. */
    bool showRoot() const;

    /** Whether rows have check boxes. Off at first. */
    bool isSelectable() const;

    /** Shows check boxes or none. isSelectableChanged() is not emitted. */
    void setIsSelectable(bool isSelectable);

    /**
     * Size of the checked entries in bytes: deliberately not in KB, whatever the name says.
     *
     * @unit bytes
     */
    quint64 checkedFilesKB() const;

    /** The filter words as they were set, with commas between them. */
    QString nameFilters() const;

    /** Whether only files are shown whose names contain a filter word. Off at first. */
    bool nameFilterOn() const;

    /** Switches the filter. Switching it on opens the tree when there are words. */
    void setNameFilterOn(bool on);

signals:
    /** A row was touched: absoluteFilePath may be another one. */
    void absoluteFilePathChanged();

    /** Emitted for each row that was checked or unchecked. */
    void checkedFilesKBChanged();

    /** Emitted on every touch. */
    void currentFilenameChanged();

    void currentFilepathChanged();
    void dirsFirstChanged();

    /** Never emitted. */
    void isSelectableChanged();

    /** renameFile() renamed an entry: @p path is the current file path, deliberately also when the
     * entry lies elsewhere; @p renamedFilePath is the entry's new path. Emitted while the account's
     * user id is in force: copy or eject on the next turn of the event loop. */
    void fileRenamed(const QString &path, const QString &renamedFilePath);

    void openDirsChanged();

    /** Filter words were set, the same ones too. */
    void nameFiltersChanged();

    void nameFilterOnChanged();

    /** Never emitted, deliberately: a new root shows in currentFilepathChanged(). */
    void rootChanged();

    void selectedFilenameChanged();
    void showRootChanged();

public slots:
    /** Fits the view to the item's size and paints it at once. Does nothing while width or height
     * is 0. */
    void redrawView();

    /** What a touch of the row @p index of the view does. */
    void updateSelection(const QModelIndex &index);

    /** Width of a column in pixels: 0 name, 1 size, 2 type (hidden at first), 3 date. */
    void setColumnWidth(int column, int width);

    /** Hides a column or shows it. */
    void setColumnHidden(int column, bool hide);

    /** Full path of the selected entry, empty without one. */
    QString absoluteFilePath() const;

    /** Closes every folder. */
    void collapseAll();

    /** Opens every folder that is loaded. */
    void expandAll();

    /** Where soil-flux data lie, whether or not the folder exists. */
    QString getSoilFluxDirectory();

    /** Makes the folder @p str the root of the view, with nothing selected. Does nothing when there
     * is no such folder. An empty path stands for the process's working folder in this test and
     * shows the whole file system. The row touched last is still the view's current one: if its
     * file goes, Qt's view selects a neighbour. clearSelection() rules that out. */
    void setCurrentPath(const QString &str);

    /** Groups folders before files or after them. */
    void setDirsFirst(bool dirsfirst);

    /** Makes a touch on a folder go into it, or open it in place. */
    void setOpenDirs(bool doOpen);

    /** As setCurrentPath(), and keeps @p str as root. Deliberately emits no rootChanged(). */
    void setRoot(const QString &str);

    /** Draws branches at the top level and lets rows be opened there, or not. */
    void setShowRoot(bool doShow);

    /** Shows the configurations. */
    void viewConfigsDirectory();

    /** Shows the log files. */
    void viewLogDirectory();

    /** Shows soil-flux data, or the log files when there is no such folder. It is never created. */
    void viewSoilFluxDirectory();

    /** Forgets the filter words. Deliberately, what is filtered out stays so until the filter is
     * switched off or words are set. */
    void clearNameFilters();

    /** The patterns in force: the words with an asterisk on either side, none while the filter is
     * off. */
    QStringList getNameFilters();

    /** Sets the filter words, with commas between them; blanks belong to a word. With the filter
     * on, opens the tree, also when there are no words. */
    void setNameFilters(const QString &filters);

    /**
     * Creates the file of this name in the current file path. An existing one is emptied.
     *
     * @return whether it could be opened for writing
     * @throws std::runtime_error when the switch to the account fails
     */
    bool createNewFile(const QString &);

    /**
     * Creates the folder of this name in the current file path.
     *
     * @return true, deliberately also when it could not be created: Qt's model takes what it
     * doesn't know for a folder
     * @throws std::runtime_error when the switch to the account fails
     */
    bool createNewFolder(const QString &);

    /**
     * Removes the selected folder when it is empty. @return whether it is gone; false with nothing
     * selected, for a file and for a folder with contents
     * @throws std::runtime_error when the switch to the account fails
     */
    bool deleteSelectedDir();

    /**
     * Removes the selected entry, a folder with all its contents.
     *
     * What Qt's model makes of a folder differs: Qt 5.15 and later remove a link to a folder and
     * leave its target alone, and tell whether all is gone. Qt 4.8 also empties the folders that
     * links lead to, and tells whether anything was removed.
     *
     * @return the model's result, false with nothing selected
     * @throws std::runtime_error when the switch to the account fails
     */
    bool deleteSelectedFile();

    /** Whether the folder of this path exists; a relative one is looked up in the process's working
     * folder. False for a file. */
    bool exists(const QString &);

    /** Whether the selected entry is a folder. */
    bool isDirSelected();

    /** Does nothing. */
    void listSelectedFiles();

    /**
     * Renames the selected entry within its folder and emits fileRenamed(). The names in the
     * properties are left alone. Call clearSelection() then: as soon as the model notices, Qt's
     * view selects a neighbour of the old name, and the next operation would mean that one. The
     * same goes for deleteSelectedFile() and deleteSelectedDir().
     *
     * @return whether it was renamed; false with nothing selected
     * @throws std::runtime_error when the switch to the account fails
     */
    bool renameFile(const QString &);

    /** Highlights the entry of this full path when it is painted next. */
    void setTaggedPath(const QString &path);

    /** Selects nothing. The path properties stay and nothing is emitted. */
    void clearSelection();

    /** Selects the entry of folder @p path whose absolute path is @p name, as if it were touched.
     * Finds nothing in a folder that is not loaded yet. */
    void findAndSelectIndex(const QString &path, const QString &name);

    /** Checks every entry of the root folder and all that is loaded below. */
    void selectAll();

    /** Unchecks every loaded entry. */
    void clearAll();

    /**
     * Copies the checked entries into the folder @p dest with their times, and unchecks them. Never
     * overwrites; a folder can't be copied. Deliberately runs with the rights of the process, not
     * the account's. Ask USB first whether there is a stick: an empty @p dest is "/".
     *
     * An entry that was checked and is gone from the disk counts as failed, with an empty name, in
     * every copy from then on. So a result of nothing but blanks means that all that was there has
     * been copied.
     *
     * @return the names that failed with a blank between them, empty when all were copied
     */
    QString copyCheckedFilesTo(const QString &dest);

    /** Writes the size of the checked entries to the debug output. */
    void updateCheckedFileKB();

    /** Name of the selected entry, empty without one. */
    QString getCurrentItemName();

private slots:
    void selectDir(const QModelIndex &index);
    void selectFile(const QModelIndex &index);
    void viewPressed(const QModelIndex &index);
    bool getSelectedModelIndex(QModelIndex &modelIndex) const;
    bool getSelectedProxyIndex(QModelIndex &proxyIndex) const;

private:
    void setUpView();
    void connectSignals();
    bool isDir(const QModelIndex &proxyIndex) const;
    void toggle(const QModelIndex &proxyIndex);
    QString selectedPath() const;
    void filterByWords();

    QPointer<QGraphicsProxyWidget> m_proxyWidget; // goes with the view
    QTreeView *m_treeView;
    FileSystemModel *m_model;
    FileSystemProxyModel *m_proxyModel;
    QStringList m_nameFilters;
    QString m_currentFilename;
    QString m_currentFilepath;
    QString m_root;
    QString m_selectedFilename;
    bool m_nameFilterOn;
    bool m_openDirs;
    bool m_showRoot;
};

#endif // FILETREEVIEWERITEM_H
