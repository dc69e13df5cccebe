#include "support/bigfolder.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

const QDir::Filters listedEntries = QDir::Dirs | QDir::Files | QDir::Drives | QDir::NoDotAndDotDot;

namespace {
const int entriesPerFolder = 100;
const time_t newest = 1719792000; // 1 July 2024
const int secondsBetween = 61; // all in one summer: who sorts differs on an hour that comes twice

void need(bool done, const QByteArray &what)
{
    if (done)
        return;
    perror(what.constData());
    exit(EXIT_FAILURE);
}

/** A number below @p count that no other @p number gets: neighbours end up far from each other. */
int scattered(int number, int count)
{
    const qint64 step = 7919; // a prime, and no divisor of a count that is a power of ten
    return static_cast<int>(number * step % count);
}

void makeEntry(const QByteArray &path, bool isFolder, int size, time_t time)
{
    if (isFolder) {
        need(mkdir(path.constData(), 0755) == 0, path);
    } else {
        const int file = open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
        need(file >= 0 && ftruncate(file, size) == 0, path);
        close(file);
    }
    const timespec times[] = {{time, 0}, {time, 0}};
    need(utimensat(AT_FDCWD, path.constData(), times, 0) == 0, path);
}
} // namespace

BigFolder::BigFolder(int count)
    : m_path(QLatin1String("/home/ostan/folder-of-") + QString::number(count))
    , m_count(count)
{
    const QByteArray folder = QFile::encodeName(m_path);
    need(mkdir(folder.constData(), 0755) == 0, folder);
    for (int i = 0; i < count; ++i) {
        const int number = scattered(i, count);
        const bool isFolder = i % entriesPerFolder == 0;
        char name[32];
        snprintf(name, sizeof name, isFolder ? "/site_%06d" : "/log_%06d.csv", number);
        const int size = scattered(number, count) + 1;
        makeEntry(QByteArray(folder).append(name), isFolder, size,
                  newest - scattered(size, count) * secondsBetween);
    }
}

QStringList BigFolder::names(QDir::SortFlags flags) const
{
    return QDir(m_path).entryList(listedEntries, flags);
}

void BigFolder::resizeOne(int bytes) const
{
    const QByteArray path = QFile::encodeName(m_path + QLatin1String("/log_000002.csv"));
    struct stat info;
    need(stat(path.constData(), &info) == 0, path);
    need(truncate(path.constData(), info.st_size + bytes) == 0, path);
    const timespec times[] = {info.st_atim, info.st_mtim};
    need(utimensat(AT_FDCWD, path.constData(), times, 0) == 0, path);
}

void BigFolder::readWithNothingElse() const
{
    DIR *folder = opendir(QFile::encodeName(m_path).constData());
    need(folder, "opendir");
    while (const dirent *entry = readdir(folder)) {
        struct stat info;
        if (entry->d_name[0] != '.')
            fstatat(dirfd(folder), entry->d_name, &info, 0);
        benchmark::DoNotOptimize(info);
    }
    closedir(folder);
}

void setTimeZone(const char *name)
{
    if (name)
        setenv("TZ", name, 1);
    else
        unsetenv("TZ");
    tzset();
}
