// Listing a folder: this plugin, what Qt offers for it, and what the system calls alone take.

#include "directory/directory.h"
#include "support/bigfolder.h"
#include "support/listers.h"
#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QSignalSpy>

#include <cstring>
#include <map>

namespace {
const char zoneSet[] = "Europe/Berlin";
const char system[] = "floor: readdir and fstatat";
const char qdir[] = "QDir::entryInfoList";
const int usualCount = 10000;

struct Contender
{
    const char *name;
    std::unique_ptr<Lister> lister;
};

std::vector<Contender> &contenders()
{
    static std::vector<Contender> all;
    return all;
}

const BigFolder &folderOf(int count)
{
    static std::map<int, std::unique_ptr<BigFolder>> folders;
    std::unique_ptr<BigFolder> &folder = folders[count];
    if (!folder)
        folder.reset(new BigFolder(count));
    return *folder;
}

QString difference(const QStringList &shown, const QStringList &expected)
{
    return shown == expected ? QString() : QLatin1String("shows other names, or in another order");
}

const char *title(const char *zone)
{
    return zone ? ", TZ set" : ", TZ unset";
}

std::string grouped(int number)
{
    std::string text = std::to_string(number);
    if (text.size() > 3)
        text.insert(text.size() - 3, ",");
    return text;
}

/** The names that QDir gives, asked for once: by date that takes QDir a second. */
const QStringList &namesInOrder(const BigFolder &folder, const Order &order)
{
    static std::map<std::pair<const BigFolder *, const Order *>, QStringList> known;
    QStringList &names = known[std::make_pair(&folder, &order)];
    if (names.isEmpty())
        names = folder.names(order.dir);
    return names;
}

Step floorOf(const BigFolder &folder)
{
    return step([&folder] { folder.readWithNothingElse(); });
}

void list(benchmark::State &state, Lister *lister, const Order &order, const char *zone, int count)
{
    const BigFolder &folder = folderOf(count);
    setTimeZone(zoneSet);
    const QStringList names = lister->expected(namesInOrder(folder, order), order);
    const Step listing = {[&] {
                              setTimeZone(zone);
                              lister->prepare(order);
                          },
                          [&] { lister->list(folder.path(), count); }};
    measure(state, floorOf(folder), listing, [&] { return difference(lister->names(), names); });
}

void addListing(const Order &order, const char *zone, int count, double goal)
{
    const std::string task = "list " + grouped(count) + " " + order.title + title(zone);
    addBenchmark(task, system, 0, aThird, [count](benchmark::State &state) {
        const BigFolder &folder = folderOf(count);
        measure(state, floorOf(folder), floorOf(folder), [] { return QString(); });
    });
    const Rounds roundsOfPeers = count > usualCount ? aFifth : aThird;
    for (const Contender &contender : contenders()) {
        Lister *lister = contender.lister.get();
        if (!lister->knows(order))
            continue;
        const bool ours = contender.name == plugin;
        addBenchmark(
            task, contender.name, ours ? goal : 0, ours ? allRounds : roundsOfPeers,
            [=, &order](benchmark::State &state) { list(state, lister, order, zone, count); });
    }
}

/** A Directory that shows the usual folder in @p order. */
std::unique_ptr<Directory> directoryOn(const BigFolder &folder, const Order &order)
{
    std::unique_ptr<Directory> directory(new Directory);
    directory->setSortType(static_cast<Directory::SortType>(order.sortType));
    directory->setSortOrder(order.descending ? Directory::descending : Directory::ascending);
    directory->setCurrentPath(folder.path());
    return directory;
}

QStringList shownNames(Directory *directory)
{
    QStringList names;
    QDeclarativeListProperty<File> files = directory->files();
    for (int i = 0; i < files.count(&files); ++i)
        names.append(files.at(&files, i)->name());
    return names;
}

void listAgain(benchmark::State &state, const Order &order, int count, bool oneChanges)
{
    const BigFolder &folder = folderOf(count);
    setTimeZone(nullptr);
    const std::unique_ptr<Directory> directory = directoryOn(folder, order);
    QSignalSpy filesChanged(directory.get(), SIGNAL(filesChanged()));
    const Step refreshing = {[&] {
                                 if (oneChanges)
                                     folder.resizeOne(1);
                             },
                             [&] { directory->refresh(); }};
    measure(state, floorOf(folder), refreshing, [&] {
        if (oneChanges)
            folder.resizeOne(-1);
        if (!filesChanged.isEmpty())
            return QString::fromLatin1("announces a change of files");
        return difference(shownNames(directory.get()), namesInOrder(folder, order));
    });
}

void listAgainWithQDir(benchmark::State &state, const Order &order)
{
    const BigFolder &folder = folderOf(usualCount);
    setTimeZone(nullptr);
    QFileInfoList infos;
    const Step listing = {
        [&] { infos.clear(); },
        [&] { infos = QDir(folder.path()).entryInfoList(listedEntries, order.dir); }};
    measure(state, floorOf(folder), listing, [&] {
        return infos.size() == usualCount ? QString() : QLatin1String("shows another number");
    });
}

void changeKey(benchmark::State &state, const Order &order)
{
    const BigFolder &folder = folderOf(usualCount);
    setTimeZone(nullptr);
    const std::unique_ptr<Directory> directory = directoryOn(folder, order);
    const Directory::SortType type = static_cast<Directory::SortType>(order.sortType);
    const Directory::SortType other = type == Directory::name ? Directory::size : Directory::name;
    const Step changing = {[&] { directory->setSortType(other); },
                           [&] { directory->setSortType(type); }};
    measure(state, floorOf(folder), changing,
            [&] { return difference(shownNames(directory.get()), namesInOrder(folder, order)); });
}

void addRelistings()
{
    const double againGoal = 1.5;
    const double keyGoal = 6;
    for (const Order &order : orders) {
        if (order.descending)
            continue;
        const std::string again = std::string("list 10,000 again ") + order.title;
        addBenchmark(again, plugin, againGoal, allRounds, [&order](benchmark::State &state) {
            listAgain(state, order, usualCount, false);
        });
        addBenchmark(again, qdir, 0, aThird,
                     [&order](benchmark::State &state) { listAgainWithQDir(state, order); });
        addBenchmark(std::string("change the order of 10,000 to ") + order.title, plugin, keyGoal,
                     allRounds, [&order](benchmark::State &state) { changeKey(state, order); });
    }
    const Order &byDate = orders[2];
    addBenchmark(
        "list 10,000 again by date, one size changed", plugin, againGoal, allRounds,
        [&byDate](benchmark::State &state) { listAgain(state, byDate, usualCount, true); });
    addBenchmark(
        "list 100,000 again by date", plugin, againGoal, aThird,
        [&byDate](benchmark::State &state) { listAgain(state, byDate, 10 * usualCount, false); });
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    contenders().push_back({plugin, makeDirectoryLister()});
    contenders().push_back({qdir, makeQDirLister()});
    contenders().push_back({"Qt.labs.folderlistmodel", makeFolderListModelLister()});
    contenders().push_back({"QFileSystemModel", makeFileSystemModelLister()});

    const double goal = 2;
    for (const Order &order : orders) {
        addListing(order, zoneSet, usualCount, goal);
        if (order.sortType == Directory::date) // no other order looks at the zone
            addListing(order, nullptr, usualCount, goal);
    }
    const Order &byDate = orders[2];
    // The time of a few entries is that of the steps before the first; nobody sees it.
    for (int count : {100, 1000})
        addListing(byDate, zoneSet, count, 0);
    addListing(byDate, zoneSet, 10 * usualCount, goal);
    addRelistings();
    const int result = runBenchmarks(argc, argv);
    contenders().clear(); // before the application that they need
    return result;
}
