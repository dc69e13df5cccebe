// The tree's models in a tree view, beside the plain models of Qt in the same view.

#include "tree/filesystemmodel.h"
#include "tree/filesystemproxymodel.h"

#include "support/bigfolder.h"
#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QHeaderView>
#include <QSet>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <algorithm>
#include <memory>

namespace {
const int count = 10000;
const double goal = 1.1;
const int nameColumn = 0;
const int sizeColumn = 1;
const int dateColumn = 3;
const QLatin1String folderPrefix("site_");

/** Qt's model with the fewest lines that make its rows checkable, the debug line among them. */
class PlainCheckableModel : public QFileSystemModel
{
public:
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return QFileSystemModel::flags(index) | Qt::ItemIsUserCheckable;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::CheckStateRole && index.column() == nameColumn && m_shown)
            return int(m_checked.contains(index) ? Qt::Checked : Qt::Unchecked);
        return QFileSystemModel::data(index, role);
    }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role != Qt::CheckStateRole)
            return QFileSystemModel::setData(index, value, role);
        qDebug() << "Add Size " << fileName(index) << "=" << size(index);
        m_checked.insert(index);
        emit dataChanged(index, index);
        return true;
    }

    void checkAll()
    {
        m_shown = true;
        const QModelIndex folder = index(rootPath());
        for (int row = 0; row < rowCount(folder); ++row)
            setData(index(row, nameColumn, folder), Qt::Checked, Qt::CheckStateRole);
    }

private:
    QSet<QPersistentModelIndex> m_checked;
    bool m_shown = false;
};

class CheckableModel : public FileSystemModel
{
public:
    void checkAll()
    {
        setIsSelectable(true);
        selectAll();
    }
};

/** A model, a proxy and a view of the size of the instrument's screen. */
template <typename Model, typename Proxy>
class Tree
{
public:
    explicit Tree(const QString &folder)
        : m_path(folder)
        , m_view(new QTreeView)
    {
        m_model.setNameFilterDisables(false);
        m_proxy.setSourceModel(&m_model);
        m_proxy.setDynamicSortFilter(true);
        m_view->setUniformRowHeights(true);
        m_view->setModel(&m_proxy);
        m_view->setSortingEnabled(true);
        m_view->sortByColumn(nameColumn, Qt::AscendingOrder);
        m_view->resize(800, 480);
        m_view->show();
    }

    void open(int rows)
    {
        m_model.setRootPath(m_path);
        m_view->setRootIndex(m_proxy.mapFromSource(m_model.index(m_path)));
        waitForRows(rows);
    }

    void waitForRows(int rows)
    {
        while (m_proxy.rowCount(m_view->rootIndex()) != rows)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        m_view->viewport()->repaint();
    }

    void sort(int column)
    {
        m_view->sortByColumn(column, Qt::AscendingOrder);
        m_view->viewport()->repaint();
    }

    void filter(const QStringList &patterns, int rows)
    {
        m_model.setNameFilters(patterns);
        waitForRows(rows);
    }

    void checkAll()
    {
        m_model.checkAll();
        m_view->viewport()->repaint();
    }

    QStringList names() const
    {
        QStringList names;
        for (int row = 0; row < m_proxy.rowCount(m_view->rootIndex()); ++row)
            names.append(m_proxy.index(row, 0, m_view->rootIndex()).data().toString());
        return names;
    }

    int checked() const
    {
        int number = 0;
        for (int row = 0; row < m_proxy.rowCount(m_view->rootIndex()); ++row) {
            const QModelIndex index = m_proxy.index(row, 0, m_view->rootIndex());
            number += index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? 1 : 0;
        }
        return number;
    }

private:
    const QString m_path;
    Model m_model;
    Proxy m_proxy;
    const std::unique_ptr<QTreeView> m_view; // goes before the models that it shows
};

typedef Tree<PlainCheckableModel, QSortFilterProxyModel> PlainTree;
typedef Tree<CheckableModel, FileSystemProxyModel> OurTree;

/** What both trees of a task have to do; they are made anew, loaded, when it has changed them. */
class Trees
{
public:
    explicit Trees(const BigFolder &folder)
        : m_folder(folder)
    {
    }

    void addBenchmarks();

private:
    template <typename Type>
    void load(std::unique_ptr<Type> *tree, bool checked)
    {
        tree->reset(new Type(m_folder.path()));
        (*tree)->open(count);
        if (checked)
            (*tree)->checkAll();
    }

    /** What is left to do for a tree of before would be done, and timed, with the next one. */
    void clear()
    {
        m_plain.reset();
        m_ours.reset();
    }

    template <typename Type>
    void loadAlone(std::unique_ptr<Type> *tree, bool checked)
    {
        clear();
        load(tree, checked);
    }

    template <typename Type>
    Step opening(std::unique_ptr<Type> *tree)
    {
        return {[=] {
                    clear();
                    tree->reset(new Type(m_folder.path()));
                },
                [=] { (*tree)->open(count); }};
    }

    template <typename Type>
    Step sorting(std::unique_ptr<Type> *tree, int column)
    {
        return {[=] {
                    if (!*tree)
                        load(tree, false);
                    (*tree)->sort(column == nameColumn ? sizeColumn : nameColumn);
                },
                [=] { (*tree)->sort(column); }};
    }

    template <typename Type>
    Step checking(std::unique_ptr<Type> *tree)
    {
        return {[=] { loadAlone(tree, false); }, [=] { (*tree)->checkAll(); }};
    }

    template <typename Type>
    Step filtering(std::unique_ptr<Type> *tree)
    {
        return {[=] { loadAlone(tree, false); },
                [=] { (*tree)->filter(QStringList(QLatin1String("*7.csv")), m_filteredRows); }};
    }

    template <typename Type>
    Step appearing(std::unique_ptr<Type> *tree)
    {
        const QString path = m_folder.path() + QLatin1String("/new.csv");
        return {[=] {
                    QFile::remove(path);
                    loadAlone(tree, true);
                },
                [=] {
                    QFile file(path);
                    file.open(QIODevice::WriteOnly);
                    file.close();
                    (*tree)->waitForRows(count + 1);
                    QFile::remove(path);
                }};
    }

    void add(const std::string &task, const Step &plain, const Step &ours,
             const std::function<QString()> &check)
    {
        addBenchmark(task, "reference: Qt's models", 0, aFifth, [=](benchmark::State &state) {
            measure(state, plain, plain, [] { return QString(); });
            clear();
        });
        addBenchmark(task, plugin, goal, aThird, [=](benchmark::State &state) {
            measure(state, plain, ours, check);
            clear();
        });
    }

    QString unlessShown(QDir::SortFlags order) const
    {
        QStringList names = m_folder.names(order);
        std::stable_partition(names.begin(), names.end(),
                              [](const QString &name) { return name.startsWith(folderPrefix); });
        // Folders have no size to be sorted by; their order is nobody's promise then.
        const int folders = order & QDir::Size ? count / 100 : 0;
        const bool same = m_ours->names().mid(folders) == names.mid(folders);
        return same ? QString() : QLatin1String("shows other names, or in another order");
    }

    const BigFolder &m_folder;
    const int m_filteredRows = count / 10 + count / 100;
    std::unique_ptr<PlainTree> m_plain;
    std::unique_ptr<OurTree> m_ours;
};

void Trees::addBenchmarks()
{
    const QDir::SortFlags byName = QDir::Name;
    add("tree: open 10,000", opening(&m_plain), opening(&m_ours),
        [=] { return unlessShown(byName); });
    add("tree: sort 10,000 by name", sorting(&m_plain, nameColumn), sorting(&m_ours, nameColumn),
        [=] { return unlessShown(byName); });
    add("tree: sort 10,000 by size", sorting(&m_plain, sizeColumn), sorting(&m_ours, sizeColumn),
        [=] { return unlessShown(QDir::Size | QDir::Reversed); });
    add("tree: sort 10,000 by date", sorting(&m_plain, dateColumn), sorting(&m_ours, dateColumn),
        [=] { return unlessShown(QDir::Time | QDir::Reversed); });
    add("tree: check all of 10,000", checking(&m_plain), checking(&m_ours),
        [=] { return m_ours->checked() == count ? QString() : QLatin1String("checks others"); });
    add("tree: filter 10,000", filtering(&m_plain), filtering(&m_ours), [=] {
        const int shown = m_ours->names().filter(QLatin1String("7.csv")).size();
        return shown == m_filteredRows - count / 100 ? QString() : QLatin1String("shows others");
    });
    add("tree: 1 file appears, 10,000 checked", appearing(&m_plain), appearing(&m_ours),
        [=] { return m_ours->checked() == count ? QString() : QLatin1String("checks others"); });
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    setTimeZone(nullptr);
    const BigFolder folder(count);
    Trees trees(folder);
    trees.addBenchmarks();
    return runBenchmarks(argc, argv);
}
