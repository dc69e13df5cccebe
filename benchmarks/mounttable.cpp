// Finding the sticks in a mount table, beside the C library's reader of such tables.

#include "usb/mounttable.h"

#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

#include <cstring>

#include <mntent.h>

namespace {
const double goal = 2;

/** A table of @p lines lines with stick A in the middle and stick B at the end. */
QString writtenTable(int lines)
{
    const QString path = QString::fromLatin1("/home/ostan/mounts-%1").arg(lines);
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    for (int i = 0; i < lines; ++i) {
        if (i == lines / 2)
            file.write("/dev/sda1 /media/Stick\\040A vfat rw,relatime,fmask=0022 0 0\n");
        else if (i == lines - 1)
            file.write("/dev/sdb1 /media/Stick\\040B vfat rw,relatime,fmask=0022 0 0\n");
        else
            file.write("tmpfs /run/service/" + QByteArray::number(i) +
                       " tmpfs rw,nosuid,nodev,noexec,relatime,size=10240k,mode=755 0 0\n");
    }
    return path;
}

struct Found
{
    QByteArray a;
    QByteArray b;
};

Found readWithMntent(const QString &path)
{
    Found found;
    FILE *table = setmntent(path.toLatin1().constData(), "r");
    while (const mntent *entry = getmntent(table)) {
        if (found.a.isEmpty() && strncmp(entry->mnt_fsname, "/dev/sda", 8) == 0)
            found.a = entry->mnt_dir;
        if (found.b.isEmpty() && strncmp(entry->mnt_fsname, "/dev/sdb", 8) == 0)
            found.b = entry->mnt_dir;
    }
    endmntent(table);
    return found;
}

/** The lines as the plugin takes them, and nothing done with them. */
int readWithTextStream(const QString &path)
{
    QFile table(path);
    table.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream stream(&table);
    int lines = 0;
    while (!stream.readLine().isNull())
        ++lines;
    return lines;
}

MountedSticks readWithPlugin(const QString &path)
{
    QFile table(path);
    table.open(QIODevice::ReadOnly | QIODevice::Text);
    return readMountTable(&table);
}

void addScan(const char *count, int lines)
{
    const QString path = writtenTable(lines);
    const std::string task = std::string("scan a mount table of ") + count + " lines";
    const Step floor = step([path] { readWithMntent(path); });
    addBenchmark(task, "floor: getmntent", 0, aThird, [=](benchmark::State &state) {
        Found found;
        const Step scan = step([&] { found = readWithMntent(path); });
        measure(state, floor, scan, [&] {
            const bool right = found.a == "/media/Stick A" && found.b == "/media/Stick B";
            return right ? QString() : QLatin1String("finds others");
        });
    });
    addBenchmark(task, "QTextStream alone", 0, aThird, [=](benchmark::State &state) {
        int found = 0;
        const Step scan = step([&] { found = readWithTextStream(path); });
        measure(state, floor, scan,
                [&] { return found == lines ? QString() : QLatin1String("reads others"); });
    });
    addBenchmark(task, plugin, goal, allRounds, [=](benchmark::State &state) {
        MountedSticks sticks;
        const Step scan = {[&] { readWithPlugin(path); }, [&] { sticks = readWithPlugin(path); }};
        measure(state, floor, scan, [&] {
            const bool right = sticks.a.path == QLatin1String("/media/Stick A") &&
                               sticks.b.path == QLatin1String("/media/Stick B");
            return right ? QString() : QLatin1String("finds others");
        });
    });
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    addScan("30", 30);
    addScan("1,000", 1000);
    addScan("10,000", 10000);
    return runBenchmarks(argc, argv);
}
