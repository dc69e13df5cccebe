#ifndef FILESYSTEMMODEL_H
#define FILESYSTEMMODEL_H

#include "tree/checkedentries.h"
#include "tree/entrycache.h"

#include <QFileSystemModel>
#include <QString>
#include <QVariant>

/**
 * The file system with a check box in front of every row: Qt's model with a set of checked entries
 * and their total size, one highlighted path, and the fonts, colours and folder image of the
 * instrument's tree.
 *
 * Checking a row checks every row below it that is loaded. Rows that are loaded later show as
 * checked because a folder above them is; their sizes are not in the total.
 *
 * Runs on the user-interface thread.
 */
class FileSystemModel : public QFileSystemModel
{
    Q_OBJECT

public:
    /** Roles of data() beyond those of Qt's model. The numbers are the same on every Qt. */
    enum Role {
        TypeRole = 36,         ///< QString: kind of entry as the type column shows it
        LastModifiedRole = 37, ///< QDateTime
        SizeRole = 38,         ///< qint64: bytes
        DisplayTextRole = 39,  ///< QString: text of the index's own column
        IsDirRole = 40         ///< bool
    };

    /**
     * An empty model: no root path, nothing checked or highlighted, no check boxes. Entries that
     * fail the name filters are hidden, not greyed.
     */
    explicit FileSystemModel(QObject *parent = nullptr);

    /** Every index can be checked by the user, also while no check boxes are shown. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /**
     * Besides the roles above: alignment, font, text colour, folder image and, in the first column
     * while check boxes are on, the check state.
     *
     * Deliberately, asking for the check state of an entry below a checked folder checks the entry,
     * so that what is loaded after its folder was checked is checked too. The total stays as it is.
     */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /**
     * For Qt::CheckStateRole: checks the entry when @p value is Qt::Checked (2), unchecks it
     * otherwise, keeps the total and does the same to every loaded row below. Emits dataChanged()
     * and checkedFilesKBChanged() for each row, the lowest rows first. Always true.
     *
     * An entry adds its size once, however often it is checked. Deliberately, unchecking an entry
     * that was checked by data() takes off a size that was never added, and the total is unsigned:
     * it can wrap.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /** What a sort needs to know about the entries. */
    EntryCache &entryCache() const;

signals:
    /** Never emitted by this model. */
    void isSelectableChanged();

    /** The total changed, or could have: emitted for each row that was checked or unchecked. */
    void checkedFilesKBChanged();

public slots:
    /** Unchecks the file system's root and with it every loaded entry. */
    void clearAll();

    /** Whether check boxes are shown. */
    bool isSelectable();

    /** Does nothing. */
    void listSelectedFiles();

    /**
     * Fetches what is below each row of @p path, which has just been loaded: connected to
     * directoryLoaded(). Subfolders start to load. Files start to be watched, so that one that
     * grows shows its size, and directoryLoaded() comes for each of them, too. Only while check
     * boxes are shown and only for paths that contain the name of the instrument's account, in
     * upper or lower case. Files are left out on Qt 6.5 and newer, whose model hangs on them.
     *
     * Each row takes one of the watches that the kernel allows a user
     * (fs.inotify.max_user_watches). What is beyond them Qt looks at once a second.
     */
    void readDirectory(const QString &path);

    /** Checks every entry of the root path, and all that is loaded below. */
    void selectAll();

    /** Keeps a format for dates. The model itself shows dates as Qt's model does. */
    void setDateTimeFormat(const QString &format);

    /** Shows check boxes or none. What is checked stays so. Announced by no signal. */
    void setIsSelectable(bool isSelectable);

    /** Highlights the entry whose full path is @p path when it is painted next. No signal. */
    void setTaggedPath(const QString &path);

    /** Highlights nothing from now on. */
    void clearTaggedPath();

    /** Size of the checked entries in bytes: deliberately not in KB, whatever the name says. */
    quint64 checkedFilesKB();

    /**
     * Copies every checked entry into the folder @p dest with its access and modification times, in
     * no particular order. Never overwrites; a folder can't be copied. What is checked stays so.
     *
     * Deliberately runs with the rights of the process: the stick it writes to need not belong to
     * the account. An empty @p dest is "/".
     *
     * An entry that was checked and is gone from the disk counts as failed, with an empty name, in
     * every copy from then on. So a result of nothing but blanks means that all that was there has
     * been copied.
     *
     * @return the names that failed with a blank between them, empty when all were copied
     */
    QString copyCheckedFilesTo(const QString &dest);

private slots:
    void recursiveCheck(const QModelIndex &index, const QVariant &value);

private:
    QString pathOnDisk(const QModelIndex &index) const;
    bool isTagged(const QModelIndex &index) const;
    Qt::CheckState checkState(const QModelIndex &index) const;

    mutable CheckedEntries m_checked; // data() checks what lies below a checked folder
    QString m_dateTimeFormat;
    QString m_taggedPath;
    quint64 m_checkedBytes;
    bool m_isSelectable;
    bool m_wasEdited;

    mutable EntryCache m_entryCache;

    // What data() answers for every cell that is painted, made once.
    const QVariant m_font;
    const QVariant m_taggedFont;
    const QVariant m_color;
    const QVariant m_taggedColor;
    const QVariant m_folderImage;
};

#endif // FILESYSTEMMODEL_H
