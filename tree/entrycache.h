#ifndef ENTRYCACHE_H
#define ENTRYCACHE_H

#include <QFileSystemModel>
#include <QString>
#include <QVector>

/**
 * What a sort asks for again and again about the entries of a file-system model: whether they are
 * folders, what they are called, and when they were modified.
 *
 * Qt's model wraps a name in a variant and converts a modification time to the local time zone
 * whenever it is asked, and a sort of 10,000 entries asks 260,000 times. Here it is asked once per
 * entry and change of the model.
 */
class EntryCache : public QObject
{
    Q_OBJECT

public:
    /** An empty cache over @p model. Make it before others listen to the model's signals, so that
     * what they read is up to date. */
    explicit EntryCache(const QFileSystemModel *model);

    /** QFileSystemModel::isDir() of @p index, which must be valid. */
    bool isDir(const QModelIndex &index);

    /** QFileSystemModel::fileName() of @p index, which must be valid. */
    QString name(const QModelIndex &index);

    /** QFileSystemModel::lastModified() of @p index, which must be valid, in ms since 1970 UTC. */
    qint64 modified(const QModelIndex &index);

private slots:
    void clear();
    void clearUnlessNamesOnly(const QModelIndex &first, const QModelIndex &last);

private:
    struct Entry
    {
        Entry();

        void *pointer; // the index's own; null in an entry that says nothing yet
        bool isDir;
        bool hasModified;
        qint64 modified;
        QString name; // null while it was not asked for
    };

    Entry &entry(const QModelIndex &index);
    void lookAt(const QModelIndex &index, Entry *entry) const;

    const QFileSystemModel *const m_model;
    QVector<Entry> m_entries; // by row, of whichever folder was asked about last
};

#endif // ENTRYCACHE_H
