#include "faults/world.h"

#include "common/datafolders.h"
#include "support/account.h"
#include "support/testdir.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {
const time_t firstTime = 1368000000;

// None, one and several blocks of every buffer on the way.
int sizeOf(const QString &name)
{
    if (name.startsWith("alpha"))
        return 10;
    return name.startsWith("beta") ? 70001 : 5000;
}

time_t modified(const QString &path)
{
    struct stat info;
    return stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mtime : 0;
}

QByteArray contentsAt(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("can't be read");
}

void makeFolder(const QString &path)
{
    removeTree(path);
    QDir().mkpath(path);
    chmod(QFile::encodeName(path).constData(), 0777);
}
} // namespace

void World::build()
{
    {
        const EffectiveUser account(ostanUid);
        for (const QString &name :
             QDir("/home/ostan").entryList(QDir::AllDirs | QDir::NoDotAndDotDot))
            removeTree("/home/ostan/" + name);
        QDir().mkpath(DataFolders::logs());
        time_t time = firstTime;
        for (const QString &name : fileNames()) {
            const QString path = DataFolders::logs() + '/' + name;
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(contentsOf(name)) < 0)
                qFatal("can't write a file");
            file.close();
            setTimes(path, time, time);
            ++time;
        }
        QDir().mkpath(DataFolders::logs() + "/folder");
    }
    makeFolder(destination());
    makeFolder(secondDestination());
}

QStringList World::fileNames()
{
    return QStringList() << "alpha.csv"
                         << "beta 1.csv"
                         << "gamma.csv";
}

QByteArray World::contentsOf(const QString &name)
{
    QByteArray contents;
    for (int i = 0; i < sizeOf(name); ++i)
        contents.append(static_cast<char>(i * 7 + i / 251 + name.at(0).unicode()));
    return contents;
}

QString World::destination()
{
    return "/media/copies";
}

QString World::secondDestination()
{
    return "/media/again";
}

void World::expectSources(Complaints *complaints, const QStringList &names)
{
    for (const QString &name : names) {
        const QString path = DataFolders::logs() + '/' + name;
        complaints->expect(contentsAt(path) == contentsOf(name), "the source " + name + " changed");
        complaints->expect(ownerOf(QFile::encodeName(path)) == ostanUid,
                           "the source " + name + " has another owner");
    }
}

void World::expectNothingIncomplete(Complaints *complaints, const QString &folder)
{
    for (const QString &name : fileNames()) {
        const QString path = folder + '/' + name;
        complaints->expect(!isThere(path) || contentsAt(path) == contentsOf(name),
                           name + " is not complete in " + folder);
    }
}

QString World::missingIn(const QString &folder)
{
    QStringList names;
    for (const QString &name : fileNames()) {
        if (!isThere(folder + '/' + name))
            names.append(name);
    }
    return names.join(" ");
}

void World::expectNothingElse(Complaints *complaints, const QString &folder)
{
    for (const QString &name :
         QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        complaints->expect(fileNames().contains(name), name + " was left behind in " + folder);
}

void World::expectTimes(Complaints *complaints, const QString &folder)
{
    for (const QString &name : fileNames()) {
        const QString path = folder + '/' + name;
        complaints->expect(!isThere(path) ||
                               modified(path) == modified(DataFolders::logs() + '/' + name),
                           "the copy of " + name + " has another time");
    }
}

bool World::isThere(const QString &path)
{
    struct stat info;
    return lstat(QFile::encodeName(path).constData(), &info) == 0;
}
