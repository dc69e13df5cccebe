// The tree's models in a tree view, beside the plain models of Qt in the same view.

#include "support/bigfolder.h"
#include "support/measure.h"
#include "support/program.h"
#include "support/trees.h"

#include <QApplication>
#include <QFile>

#include <algorithm>
#include <memory>

namespace {
const int count = 10000;
const double goal = 1.1;
const int sizeColumn = 1;
const int dateColumn = 3;
const QLatin1String folderPrefix("site_");

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
        if (checked) { // in boxes, with which all below is fetched
            (*tree)->openAndFetch(count, count / 100);
            (*tree)->checkAll();
        } else {
            (*tree)->open(count);
        }
    }

    /** What is left to do for a tree of before would be done, and timed, with the next one. */
    void clear()
    {
        m_plain.reset();
        m_asking.reset();
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
    Step openingAll(std::unique_ptr<Type> *tree)
    {
        return {opening(tree).prepare, [=] { (*tree)->openAndFetch(count, count / 100); }};
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

    void addPeer(const std::string &task, const std::string &contender, const Step &plain,
                 const Step &peer)
    {
        addBenchmark(task, contender, 0, aFifth, [=](benchmark::State &state) {
            measure(state, plain, peer, [] { return QString(); });
            clear();
        });
    }

    void add(const std::string &task, const Step &plain, const Step &ours,
             const std::function<QString()> &check)
    {
        addPeer(task, "reference: Qt's models", plain, plain);
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
    std::unique_ptr<AskingTree> m_asking;
    std::unique_ptr<OurTree> m_ours;
};

void Trees::addBenchmarks()
{
    const QDir::SortFlags byName = QDir::Name;
    add("tree: open 10,000", opening(&m_plain), opening(&m_ours),
        [=] { return unlessShown(byName); });
    add("tree: open 10,000, fetch what is below", openingAll(&m_plain), openingAll(&m_ours),
        [=] { return unlessShown(byName); });
    add("tree: sort 10,000 by name", sorting(&m_plain, nameColumn), sorting(&m_ours, nameColumn),
        [=] { return unlessShown(byName); });
    add("tree: sort 10,000 by size", sorting(&m_plain, sizeColumn), sorting(&m_ours, sizeColumn),
        [=] { return unlessShown(QDir::Size | QDir::Reversed); });
    add("tree: sort 10,000 by date", sorting(&m_plain, dateColumn), sorting(&m_ours, dateColumn),
        [=] { return unlessShown(QDir::Time | QDir::Reversed); });
    add("tree: check all of 10,000", checking(&m_plain), checking(&m_ours),
        [=] { return m_ours->checked() == count ? QString() : QLatin1String("checks others"); });
    addPeer("tree: check all of 10,000", "Qt's models, each size from the disk", checking(&m_plain),
            checking(&m_asking));
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
