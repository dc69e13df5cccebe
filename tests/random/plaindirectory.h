#ifndef PLAINDIRECTORY_H
#define PLAINDIRECTORY_H

#include "directory/directory.h"

#include <QDir>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>

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

    /** What a Directory puts off for 200 ms. */
    enum Deferred { Refresh, ClearSelection, Mark };
    void defer(Deferred what);

    /** All that was put off happens, and what that puts off. */
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

    // What handlers do, each where its signal is emitted; empty without one.
    std::function<void()> whenListed;
    std::function<void()> whenMoved;
    std::function<void()> whenSelected;
    std::function<void()> whenSortedByOther;

private:
    void markSelected();

    QList<QFileInfo> m_entries;
    Directory::SortType m_type;
    bool m_isAscending;
    bool m_onlyScripts;
    QList<Deferred> m_deferred; // in the order of their timers
};

#endif // PLAINDIRECTORY_H
