// What a listed entry and a row of the tree hold in memory, in the format of Google Benchmark's
// results.

#include "support/bigfolder.h"
#include "support/listers.h"
#include "support/trees.h"

#include <QApplication>

#include <cstdio>
#include <memory>

#include <malloc.h>

namespace {
const int count = 10000;
const char entryGoal[] = ", \"goal\": 1";
const char rowGoal[] = ", \"goal\": 1.1";

qint64 bytesInUse()
{
    const auto used = mallinfo2();
    return static_cast<qint64>(used.uordblks + used.hblkhd);
}

/** Bytes per entry that a lister holds more than before it listed @p folder. */
double bytesPerEntry(std::unique_ptr<Lister> (*make)(), const BigFolder &folder)
{
    const Order &byDate = orders[2];
    const std::unique_ptr<Lister> first = make(); // what the first of its kind loads stays
    first->prepare(byDate);
    first->list(folder.path(), count);
    const std::unique_ptr<Lister> lister = make();
    lister->prepare(byDate);
    const qint64 before = bytesInUse();
    lister->list(folder.path(), count);
    return static_cast<double>(bytesInUse() - before) / count;
}

/** What is done with a tree before its memory is looked at. */
enum Use { opened, checked, openedWithBoxes };

template <typename Type>
void use(Type *tree, Use use)
{
    if (use == openedWithBoxes)
        tree->openAndFetch(count, count / 100);
    else
        tree->open(count);
    if (use == checked)
        tree->checkAll();
}

/** Bytes per row that a tree holds more than before it was used on @p folder. */
template <typename Type>
double bytesPerRow(Use how, const BigFolder &folder)
{
    std::unique_ptr<Type> tree(new Type(folder.path()));
    use(tree.get(), how);
    tree.reset(new Type(folder.path()));
    const qint64 before = bytesInUse();
    use(tree.get(), how);
    return static_cast<double>(bytesInUse() - before) / count;
}

void print(const char *task, const char *contender, double bytes, double reference,
           const char *limit)
{
    static const char *separator = "";
    printf("%s{\"name\": \"%s|%s\", \"run_type\": \"iteration\", "
           "\"time_unit\": \"bytes\", \"real_time\": %.1f, \"reference\": %.1f, "
           "\"reference_scale\": 1%s}",
           separator, task, contender, bytes, reference, limit);
    separator = ",\n";
}

void printEntries(const BigFolder &folder)
{
    const char task[] = "memory per listed entry";
    const double ours = bytesPerEntry(makeDirectoryLister, folder);
    const double reference = bytesPerEntry(makeFolderListModelLister, folder);
    print(task, "reference: Qt.labs.folderlistmodel", reference, reference, "");
    print(task, "this plugin", ours, reference, entryGoal);
    print(task, "QDir::entryInfoList", bytesPerEntry(makeQDirLister, folder), reference, "");
    print(task, "QFileSystemModel", bytesPerEntry(makeFileSystemModelLister, folder), reference,
          "");
}

void printRows(const char *task, Use how, const BigFolder &folder)
{
    const double ours = bytesPerRow<OurTree>(how, folder);
    const double reference = bytesPerRow<PlainTree>(how, folder);
    print(task, "reference: Qt's models", reference, reference, "");
    print(task, "this plugin", ours, reference, rowGoal);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const BigFolder folder(count);
    printf("{\"benchmarks\": [\n");
    printEntries(folder);
    printRows("memory per row of the tree", opened, folder);
    printRows("memory per row of the tree, all checked", checked, folder);
    printRows("memory per row of the tree, with what is below", openedWithBoxes, folder);
    printf("\n]}\n");
}
