#ifndef PLAINDIRECTORY_H
#define PLAINDIRECTORY_H

#include "directory/directory.h"

#include <QDir>
#include <QList>
#include <QMap>
#include <QString>

/** What a Directory must show, told in the plainest way: QDir lists, and nothing is remembered. */
class PlainDirectory
{
public:
    struct Item
    {
        QString name;
        qint64 size;
        bool isDir;
        bool isMarked;
    };

    PlainDirectory();

    void refresh();
    void setRoot(const QString &path);
    void setCurrentPath(const QString &path);
    void selectPath(const QString &path);
    void selectFile(int index);
    void reorderBy(Directory::SortType type);
    void showScripts();
    void mark(int index, bool isSelected);
    void markAll();
    void clearSelection();

    /** Names that copying the selection to @p destination must tell as failed. */
    QString namesThatFail(const QString &destination) const;

    /** All that was put off for 200 ms has happened. */
    void timePasses();

    /** Name of entry @p index of the folder read; null beyond its ends. */
    QString entry(int index) const;

    QString root;
    QString currentPath;
    QDir dir; ///< where names without a path are
    QList<Item> shown;
    QMap<QString, QString> selection;
    qint64 kilobytes;
    QStringList breadcrumb;
    bool listsWhenSelected; ///< a handler of selectedFilesChanged() calls refresh()
    bool willRefresh;
    bool willClear;

private:
    void noteSelected();

    QList<QFileInfo> m_entries;
    Directory::SortType m_type;
    bool m_isAscending;
    bool m_onlyScripts;
    bool m_willMark;
};

#endif // PLAINDIRECTORY_H
