#ifndef LISTERS_H
#define LISTERS_H

#include <QDir>
#include <QString>
#include <QStringList>

#include <memory>

/** An order that all who list a folder are asked for, in the plugin's terms. */
struct Order
{
    const char *title;
    int sortType; ///< Directory::SortType
    bool descending;
    QDir::SortFlags dir; ///< the same for QDir
};

/** The plugin's four orders in both directions. */
extern const Order orders[8];

/** Somebody who lists a folder. */
class Lister
{
public:
    virtual ~Lister();

    /** Whether it knows the order at all. */
    virtual bool knows(const Order &order) const;

    /** Gets ready to list in @p order; shows none of the folder's entries afterwards. */
    virtual void prepare(const Order &order) = 0;

    /** Lists @p folder, up to the moment when all @p count entries can be asked for. */
    virtual void list(const QString &folder, int count) = 0;

    /** Names of what is shown, in order. */
    virtual QStringList names() const = 0;

    /** The names to be shown in @p order, when QDir's are @p names. */
    virtual QStringList expected(const QStringList &names, const Order &order) const;
};

/** Directory, by way of its slots. */
std::unique_ptr<Lister> makeDirectoryLister();

/** QDir::entryInfoList. */
std::unique_ptr<Lister> makeQDirLister();

/** FolderListModel of Qt.labs.folderlistmodel, in a QML engine. */
std::unique_ptr<Lister> makeFolderListModelLister();

/** A new QFileSystemModel for each listing. */
std::unique_ptr<Lister> makeFileSystemModelLister();

#endif // LISTERS_H
