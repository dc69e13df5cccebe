// What a listed entry holds in memory, in the format of Google Benchmark's results.

#include "support/bigfolder.h"
#include "support/listers.h"

#include <QApplication>

#include <cstdio>
#include <memory>

#include <malloc.h>

namespace {
const int count = 10000;

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

void print(const char *contender, double bytes, double reference, const char *goal)
{
    printf("{\"name\": \"memory per listed entry|%s\", \"run_type\": \"iteration\", "
           "\"time_unit\": \"bytes\", \"real_time\": %.1f, \"reference\": %.1f, "
           "\"reference_scale\": 1%s}",
           contender, bytes, reference, goal);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const BigFolder folder(count);
    const double ours = bytesPerEntry(makeDirectoryLister, folder);
    const double reference = bytesPerEntry(makeFolderListModelLister, folder);
    const double qdir = bytesPerEntry(makeQDirLister, folder);
    const double model = bytesPerEntry(makeFileSystemModelLister, folder);
    printf("{\"benchmarks\": [\n");
    print("reference: Qt.labs.folderlistmodel", reference, reference, "");
    printf(",\n");
    print("this plugin", ours, reference, ", \"goal\": 1");
    printf(",\n");
    print("QDir::entryInfoList", qdir, reference, "");
    printf(",\n");
    print("QFileSystemModel", model, reference, "");
    printf("\n]}\n");
}
