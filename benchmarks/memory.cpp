// What a listed entry holds in memory, in the format of Google Benchmark's results.

#include "support/bigfolder.h"
#include "support/listers.h"

#include <QApplication>

#include <cstdio>

#include <malloc.h>

namespace {
const int count = 10000;

size_t bytesInUse()
{
    const auto used = mallinfo2();
    return used.uordblks + used.hblkhd;
}

/** Bytes per entry that @p lister holds more than before it listed @p folder. */
double bytesPerEntry(Lister *lister, const BigFolder &folder)
{
    const Order &byDate = orders[2];
    for (int warmUp = 0; warmUp < 2; ++warmUp) { // what a first listing loads stays
        lister->prepare(byDate);
        lister->list(folder.path(), count);
    }
    lister->prepare(byDate);
    const size_t before = bytesInUse();
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
    const double ours = bytesPerEntry(makeDirectoryLister().get(), folder);
    const double reference = bytesPerEntry(makeFolderListModelLister().get(), folder);
    const double qdir = bytesPerEntry(makeQDirLister().get(), folder);
    const double model = bytesPerEntry(makeFileSystemModelLister().get(), folder);
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
