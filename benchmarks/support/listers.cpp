#include "support/listers.h"

#include "directory/directory.h"
#include "support/bigfolder.h"

#include <QCoreApplication>
#include <QDeclarativeComponent>
#include <QDeclarativeEngine>
#include <QElapsedTimer>
#include <QFileSystemModel>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
const QLatin1String emptyFolder("/home/ostan/logs"); // Directory makes it

template <typename Condition>
void runEventLoopUntil(const Condition &reached)
{
    while (!reached())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QStringList namesOf(const QAbstractItemModel &model, const QModelIndex &parent, int role)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(parent); ++row)
        names.append(model.index(row, 0, parent).data(role).toString());
    return names;
}

QStringList beginningWith(const QStringList &names, const QString &text)
{
    QStringList found;
    for (const QString &name : names) {
        if (name.startsWith(text))
            found.append(name);
    }
    return found;
}

class DirectoryLister : public Lister
{
public:
    void prepare(const Order &order) override
    {
        m_directory.setCurrentPath(emptyFolder);
        m_directory.setSortType(static_cast<Directory::SortType>(order.sortType));
        m_directory.setSortOrder(order.descending ? Directory::descending : Directory::ascending);
        QCoreApplication::processEvents();
    }

    void list(const QString &folder, int) override
    {
        m_directory.setCurrentPath(folder);
    }

    QStringList names() const override
    {
        QStringList names;
        QDeclarativeListProperty<File> files = m_directory.files();
        for (int i = 0; i < files.count(&files); ++i)
            names.append(files.at(&files, i)->name());
        return names;
    }

private:
    mutable Directory m_directory;
};

class QDirLister : public Lister
{
public:
    void prepare(const Order &order) override
    {
        m_flags = order.dir;
        m_infos.clear();
    }

    void list(const QString &folder, int) override
    {
        m_infos = QDir(folder).entryInfoList(listedEntries, m_flags);
    }

    QStringList names() const override
    {
        QStringList names;
        for (const QFileInfo &info : m_infos)
            names.append(info.fileName());
        return names;
    }

private:
    QDir::SortFlags m_flags;
    QFileInfoList m_infos;
};

/**
 * A new model for each listing: it reads and sorts in a thread of its own, anew for each property
 * that is set, and shows whatever comes of that. One that has all set before it gets its folder
 * reads that folder once.
 */
class FolderListModelLister : public Lister
{
public:
    FolderListModelLister()
        : m_component(&m_engine)
    {
#if QT_VERSION >= 0x050000
        m_component.setData("import Qt.labs.folderlistmodel 2.12\n"
                            "FolderListModel { sortCaseSensitive: false; showOnlyReadable: false; "
                            "folder: 'file:///home/ostan/logs' }",
                            QUrl());
#else
        m_component.setData("import Qt.labs.folderlistmodel 1.0\n"
                            "FolderListModel { folder: 'file:///home/ostan/logs' }",
                            QUrl());
#endif
    }

    bool knows(const Order &order) const override
    {
        return order.sortType != Directory::kind || !order.descending;
    }

    void prepare(const Order &order) override
    {
        static const int fields[] = {1, 2, 3, 1}; // Name, Time, Size; folders first by name
        m_model.reset(qobject_cast<QAbstractItemModel *>(m_component.create()));
        if (!m_model) {
            fprintf(stderr, "%s\n", qPrintable(m_component.errorString()));
            exit(EXIT_FAILURE);
        }
        m_model->setProperty("showDirsFirst", order.sortType == Directory::kind);
        m_model->setProperty("sortField", fields[order.sortType]);
        m_model->setProperty("sortReversed", order.descending);
        letItsThreadFinish();
    }

    void list(const QString &folder, int count) override
    {
        m_model->setProperty("folder", QUrl::fromLocalFile(folder));
        runEventLoopUntil([this, count] { return m_model->rowCount() == count; });
    }

    QStringList names() const override
    {
        return namesOf(*m_model, QModelIndex(), m_model->roleNames().key("fileName"));
    }

private:
    static void letItsThreadFinish()
    {
        const int quietMs = 30;
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < quietMs)
            QCoreApplication::processEvents(QEventLoop::AllEvents, quietMs);
    }

    QDeclarativeEngine m_engine;
    QDeclarativeComponent m_component;
    std::unique_ptr<QAbstractItemModel> m_model;
};

class FileSystemModelLister : public Lister
{
public:
    bool knows(const Order &order) const override
    {
        return order.sortType != Directory::kind || !order.descending;
    }

    void prepare(const Order &order) override
    {
        static const int columns[] = {0, 3, 1, 0};
        m_column = columns[order.sortType];
        // Newest and largest first is descending to this model.
        const bool turned = order.sortType == Directory::date || order.sortType == Directory::size;
        m_order = order.descending != turned ? Qt::DescendingOrder : Qt::AscendingOrder;
        m_model.reset(new QFileSystemModel);
        m_model->setFilter(listedEntries);
    }

    void list(const QString &folder, int count) override
    {
        m_root = m_model->setRootPath(folder);
        runEventLoopUntil([this, count] { return m_model->rowCount(m_root) == count; });
        m_model->sort(m_column, m_order);
    }

    QStringList names() const override
    {
        return namesOf(*m_model, m_root, QFileSystemModel::FileNameRole);
    }

    /** This model has its folders together: in front, or at the end when it sorts descending. By
     * size all folders are the same to it, as to QDir, and turned round too. */
    QStringList expected(const QStringList &names, const Order &order) const override
    {
        if (order.sortType == Directory::date)
            return names;
        const QStringList folders = beginningWith(names, QLatin1String("site_"));
        const QStringList files = beginningWith(names, QLatin1String("log_"));
        if (order.sortType == Directory::size) {
            QStringList sorted = folders;
            sorted.sort();
            if (order.descending)
                return sorted + files;
            std::reverse(sorted.begin(), sorted.end());
            return files + sorted;
        }
        return order.descending ? files + folders : folders + files;
    }

private:
    std::unique_ptr<QFileSystemModel> m_model;
    QPersistentModelIndex m_root;
    int m_column;
    Qt::SortOrder m_order;
};
} // namespace

const Order orders[8] = {
    {"by name", Directory::name, false, QDir::Name | QDir::IgnoreCase},
    {"by name, descending", Directory::name, true, QDir::Name | QDir::IgnoreCase | QDir::Reversed},
    {"by date", Directory::date, false, QDir::Time},
    {"by date, descending", Directory::date, true, QDir::Time | QDir::Reversed},
    {"by size", Directory::size, false, QDir::Size},
    {"by size, descending", Directory::size, true, QDir::Size | QDir::Reversed},
    {"by kind", Directory::kind, false, QDir::Name | QDir::DirsFirst},
    {"by kind, descending", Directory::kind, true, QDir::Name | QDir::DirsLast},
};

Lister::~Lister()
{
}

bool Lister::knows(const Order &) const
{
    return true;
}

QStringList Lister::expected(const QStringList &names, const Order &) const
{
    return names;
}

std::unique_ptr<Lister> makeDirectoryLister()
{
    return std::unique_ptr<Lister>(new DirectoryLister);
}

std::unique_ptr<Lister> makeQDirLister()
{
    return std::unique_ptr<Lister>(new QDirLister);
}

std::unique_ptr<Lister> makeFolderListModelLister()
{
    return std::unique_ptr<Lister>(new FolderListModelLister);
}

std::unique_ptr<Lister> makeFileSystemModelLister()
{
    return std::unique_ptr<Lister>(new FileSystemModelLister);
}
