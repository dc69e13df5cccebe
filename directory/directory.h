#ifndef DIRECTORY_H
#define DIRECTORY_H

#include "directory/file.h"
#include "directory/folderlisting.h"
#include "directory/path.h"

#include <QDir>
#include <QFileSystemWatcher>
#include <QList>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <QDeclarativeListProperty>

/**
 * A folder of the instrument's data area, listed for QML with a breadcrumb, a multiple selection
 * and the operations on its files.
 *
 * @code
 * import FileBrowser 1.0 as Fb
 * Fb.Directory {
 *     id: directory
 *     Component.onCompleted: directory.refresh() // a new object has listed nothing yet
 * }
 * ListView {
 *     model: directory.files
 *     delegate: Text { text: modelData.name + " " + modelData.size }
 * }
 * @endcode
 *
 * Two things a screen has to know:
 * - filesChanged() and pathsChanged(), and at times an item's isSelectedChanged(), are emitted
 * while the object's mutex is held. A handler that calls a slot which takes it blocks for ever, and
 * each slot that does is marked. Act when the call that listed anew has returned. A Timer is no way
 * out: on Qt 4.8 it also fires inside a signal, when a handler of that starts an animation, as a
 * ListView with a new model does.
 * - Indexes in isDir(), selectFile(), renameFile() and deleteFile() count the entries of the
 * folder, those in files and setIsSelectedAt() the entries shown. They differ while a name filter
 * hides files.
 *
 * The enum keys start in lower case, which no QML engine can name: QML passes their numbers.
 *
 * Runs on the user-interface thread. File operations switch the effective user to the instrument's
 * account (see PrivilegeDropGuard) and throw std::runtime_error when that fails; the mutex is free
 * and the disk untouched then.
 */
class Directory : public QObject
{
    Q_OBJECT
    Q_ENUMS(SortType)
    Q_ENUMS(SortOrder)
    Q_PROPERTY(int filesCount READ filesCount CONSTANT)
    Q_PROPERTY(QDeclarativeListProperty<File> files READ files NOTIFY filesChanged)
    Q_PROPERTY(int pathsCount READ pathsCount NOTIFY pathsChanged)
    Q_PROPERTY(QDeclarativeListProperty<Path> paths READ paths NOTIFY pathsChanged)
    Q_PROPERTY(QString root READ root WRITE setRoot NOTIFY rootChanged)
    Q_PROPERTY(QString currentPath READ currentPath WRITE setCurrentPath NOTIFY currentPathChanged)
    Q_PROPERTY(QString selectedFiles READ selectedFiles NOTIFY selectedFilesChanged)
    Q_PROPERTY(qint64 selectedFilesKB READ selectedFilesKB WRITE setSelectedFilesKB NOTIFY
                   selectedFilesKBChanged)
    Q_PROPERTY(bool nameSorted READ nameSorted WRITE setNameSorted NOTIFY nameSortedChanged)
    Q_PROPERTY(bool dateSorted READ dateSorted WRITE setDateSorted NOTIFY dateSortedChanged)
    Q_PROPERTY(bool sizeSorted READ sizeSorted WRITE setSizeSorted NOTIFY sizeSortedChanged)
    Q_PROPERTY(bool typeSorted READ typeSorted WRITE setTypeSorted NOTIFY typeSortedChanged)
    Q_PROPERTY(bool ascendingSorted READ ascendingSorted WRITE setAscendingSorted NOTIFY
                   ascendingSortedChanged)
    Q_PROPERTY(QDeclarativeListProperty<QString> filters READ filters NOTIFY filtersChanged)

public:
    /** What the list is sorted by. */
    enum SortType {
        name = 0,
        date = 1, ///< newest first when ascending; the initial order
        size = 2, ///< largest first when ascending
        kind = 3  ///< folders first when ascending, last when descending; by name in each group
    };

    /** Direction of the order. The numbers deliberately go on where those of SortType end. */
    enum SortOrder { ascending = 4, descending = 5 };

    /**
     * Takes the logs folder as root and current path, and makes it when it is missing. Lists
     * nothing until refresh() is called or the path or the order changes: deliberate, a screen sets
     * its path first.
     *
     * @throws std::runtime_error when the switch to the account fails
     */
    explicit Directory(QObject *parent = nullptr);

    /** Leaves the list items to whoever still shows them. */
    ~Directory() override;

    /** Number of entries shown. Constant to QML, whose bindings don't follow it: bind to files. */
    int filesCount() const;

    /** The entries shown, in order. QML can't add to them. */
    QDeclarativeListProperty<File> files();

    /** Number of steps of the breadcrumb. */
    int pathsCount() const;

    /** The breadcrumb, from the root folder down to the current path. QML can't add to it. */
    QDeclarativeListProperty<Path> paths();

    /** The folder that navigation stays in. */
    QString root() const;

    /** The folder that is listed. */
    QString currentPath() const;

    /** Names of the selected entries in the order of their full paths, with a blank between them.
     */
    QString selectedFiles() const;

    /**
     * Size of the selection: the sum of each entry's whole KB (1024 bytes).
     *
     * @unit KB (1024 bytes)
     */
    qint64 selectedFilesKB() const;

    /** Sets the number that selectedFilesKB() tells; the only way to selectedFilesKBChanged(). */
    void setSelectedFilesKB(qint64 kb);

    bool nameSorted() const;
    bool dateSorted() const;
    bool sizeSorted() const;
    bool typeSorted() const;
    bool ascendingSorted() const;

    /**
     * The name filters: files are shown whose name contains one of them. Empty: all are shown. QML
     * can neither read the texts nor add to them; viewScriptDirectory() sets them.
     */
    QDeclarativeListProperty<QString> filters();

signals:
    /** Asks for refresh(), to which it is connected. @locks */
    void updateDirectory();

    /** The entries shown are other ones. The mutex is held: see the class. */
    void filesChanged();

    /** The breadcrumb was built again. The mutex is held: see the class. */
    void pathsChanged();

    /** Never emitted. */
    void filtersChanged();

    /** Never emitted. */
    void filenameChanged();

    void rootChanged();
    void currentPathChanged();

    /** Never emitted. */
    void fileContentChanged();

    void nameSortedChanged();
    void dateSortedChanged();
    void sizeSortedChanged();
    void typeSortedChanged();
    void ascendingSortedChanged();

    /** An entry was added to the selection or taken from it, or the selection was emptied. */
    void selectedFilesChanged();

    /** selectedFilesKB was written; additions to the selection don't emit it. */
    void selectedFilesKBChanged();

public slots:
    /**
     * Reads the folder and builds list and breadcrumb again. The list stays as it is, sizes and
     * dates too, when the names shown are the same. A folder that can't be entered leaves
     * everything as it is.
     *
     * @locks
     */
    void refresh();

    /**
     * Makes @p str the root and the current path, and makes the folder as the account when it is
     * missing. Nothing happens when it is the root already.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void setRoot(QString str);

    /**
     * Lists @p str, also when it lies outside the root. Empty or unchanged: nothing happens. When
     * there is no such folder, the entries of the one before stay under the new path; a debug line
     * says so.
     *
     * @locks
     */
    void setCurrentPath(QString str);

    /**
     * Sorts by name without regard to case; the other direction when it is sorted so already.
     *
     * @locks
     */
    void reorderByName();

    /**
     * Sorts by date, or turns that order round. As a new object is sorted so, its first call does
     * that.
     *
     * @locks
     */
    void reorderByDate();

    /** Sorts by size, or turns that order round. @locks */
    void reorderBySize();

    /** Sorts by kind, or turns that order round. @locks */
    void reorderByType();

    /**
     * The five flags tell QML the order: by name, by date, by size or by kind, and whether it is
     * ascending. Writing one emits its signal always and so lists the folder again; it does not
     * change the order: deliberate, use reorderBy...() or setSortType().
     *
     * @locks
     */
    void setNameSorted(bool state);
    void setDateSorted(bool state);
    void setSizeSorted(bool state);
    void setTypeSorted(bool state);
    void setAscendingSorted(bool state);

    /** Goes into the folder at @p index of the folder read. Anything else there: nothing happens.
     *
     * @locks
     */
    void selectFile(int index);

    /**
     * Goes to @p newpath if its text contains the root's anywhere (deliberately not only in front)
     * and it can be entered.
     *
     * @locks
     */
    void selectPath(QString newpath);

    /** Whether the entry at @p index of the folder read is a folder; false beyond its ends. */
    bool isDir(int index);

    /** Changes the sort key and sets the four flags of the keys, which lists the folder four times.
     * A number that is no key sorts by size and clears the four flags.
     *
     * @locks
     */
    void setSortType(Directory::SortType type);

    /** Changes the direction and sets its flag. @locks */
    void setSortOrder(Directory::SortOrder order);

    /**
     * Looks an entry up.
     *
     * @return the index in files of the entry named exactly @p filename, or -1
     * @locks
     */
    int getIndex(QString filename);

    /**
     * Selects or deselects the entry at @p index of files, a folder too. Selecting one twice counts
     * its size twice: deliberate, nothing corrects it but clearSelectedFiles(). Bad index: nothing
     * happens.
     */
    void setIsSelectedAt(int index, bool isSelected);

    /**
     * Copies the selected files, wherever they were selected, into the folder @p dest as the
     * account, with their access and modification times. Existing files are not overwritten,
     * folders not copied. An empty @p dest is "/": ask USB first whether there is a stick. Blocks
     * until all is done; 200 ms later the selection is emptied.
     *
     * The times are set by way of asciiPath(): on a UTF-8 system a copy whose path has letters
     * beyond ASCII keeps the time of its making, and a debug line says so.
     *
     * @return empty when everything was copied, else the names that were not, with a blank between
     * them
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    QString copySelectedTo(QString dest);

    /** Empties the selection, entries in other folders included. @locks */
    void clearSelectedFiles();

    /**
     * Marks the entries shown as the selection has them. The items tell their changes while the
     * mutex is held.
     *
     * @locks
     */
    void updateSelectedFiles();

    /** Writes the size of the selection to the debug output. */
    void updateSelectedFilesKB();

    /** The same as clearSelectedFiles(). @locks */
    void clearAll();

    /** Selects every file shown that is not selected yet; folders are left out. */
    void selectAll();

    /** Whether there is a file or folder @p name, a name in the current folder or an absolute path.
     */
    bool exists(QString name);

    /**
     * Makes the empty file @p name as the account, and lists the folder again 200 ms later. Pass a
     * full path: whether the name is free is looked up in the current folder, but a relative name
     * is made in the working directory of the process. Deliberate, kept for the screens that rely
     * on it.
     *
     * @return whether it was made; false, and nothing touched, when the name exists
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    bool newFile(QString name);

    /**
     * Makes the folder @p name, one level only, as the account, and lists again 200 ms later.
     *
     * @return whether it was made; false, and nothing listed, when the name exists
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    bool newDirectory(QString name);

    /**
     * Removes the file or the empty folder at @p index of the folder read, as the account, and
     * lists again 200 ms later. A selected entry stays in the selection. The switch to the account
     * is not even tried for a bad index.
     *
     * @return whether it was removed
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    bool deleteFile(int index);

    /**
     * Renames the entry at @p index of the folder read to @p name as the account, and lists again
     * 200 ms later. Nothing is overwritten. A selected entry stays in the selection under its old
     * name.
     *
     * @return whether it was renamed
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    bool renameFile(int index, QString name);

    /**
     * Shows the automatic programs, only names with ".py" in them. The filter stays when another
     * folder is shown afterwards: deliberate, screens that want all files use an object of their
     * own.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void viewScriptDirectory();

    /**
     * Shows the logs.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void viewLogDirectory();

    /**
     * Shows the graph definitions.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void viewGraphDefinitionDirectory();

    /**
     * Shows the configurations.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void viewConfigsDirectory();

    /**
     * Shows the soil-flux data; the folder is made when it is missing.
     *
     * @throws std::runtime_error when the switch to the account fails
     * @locks
     */
    void viewSoilFluxDirectory();

    /** Path of the soil-flux data, whether or not it exists. */
    QString getSoilFluxDirectory();

private:
    // What QML counts list items with: not an int on every line of Qt.
    typedef decltype(QDeclarativeListProperty<File>().count(nullptr)) ListSize;

    void verifyRoot();
    void refreshFileList();
    void refreshPathList();
    bool readCurrentFolder();
    QDir::SortFlags sortFlags() const;
    QVector<FolderEntry> shownEntries() const;
    bool showsNamesOf(const QVector<FolderEntry> &entries) const;
    void replaceFiles(const QVector<FolderEntry> &entries);
    bool filter(const QString &name) const;
    void reorderBy(SortType type);

    bool isEntry(int index) const;
    QString selectionKey(const File *file) const;
    void addSelectedFile(File *file);
    void removeSelectedFile(File *file);
    void scheduleRefresh();

    static void appendFile(QDeclarativeListProperty<File> *list, File *file);
    static File *fileAt(QDeclarativeListProperty<File> *list, ListSize index);
    static ListSize fileSize(QDeclarativeListProperty<File> *list);
    static void appendPath(QDeclarativeListProperty<Path> *list, Path *path);
    static Path *pathAt(QDeclarativeListProperty<Path> *list, ListSize index);
    static ListSize pathSize(QDeclarativeListProperty<Path> *list);
    static void appendFilter(QDeclarativeListProperty<QString> *list, QString *filter);
    static QString *filterAt(QDeclarativeListProperty<QString> *list, ListSize index);
    static ListSize filterSize(QDeclarativeListProperty<QString> *list);

    QDir m_dir;              // on the current path since the last listing that could enter it
    FolderListing m_listing; // of the folder that was last read, before filtering
    QString m_root;
    QString m_currentPath;
    SortType m_sortType;
    SortOrder m_sortOrder;
    qint64 m_selectedFilesKB;
    bool m_nameSorted;
    bool m_dateSorted;
    bool m_sizeSorted;
    bool m_typeSorted;
    bool m_ascendingSorted;
    QList<File *> m_files;
    QList<Path *> m_paths;
    QStringList m_pathParts;
    QMap<QString, QString> m_selection; // names by full path
    QString m_scriptFilter;
    QList<QString *> m_filters;
    QFileSystemWatcher m_watcher; // follows the current path; nothing listens to it
    QMutex m_mutex;
};

// As for File: the names by which the engine's own registration finds the type declared.
Q_DECLARE_METATYPE(Directory *)
Q_DECLARE_METATYPE(QDeclarativeListProperty<Directory>)

#endif // DIRECTORY_H
