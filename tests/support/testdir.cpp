#include "support/testdir.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

#include <sys/stat.h>
#include <utime.h>

namespace {
const QDir::Filters allEntries =
    QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
const qint64 smallFile = 65536;

void check(bool done, const char *what, const QString &path)
{
    if (done)
        return;
    fprintf(stderr, "test folder: can't %s %s\n", what, QFile::encodeName(path).constData());
    abort();
}

QString temporaryFolder()
{
    QByteArray pattern = QFile::encodeName(QDir::tempPath() + QLatin1String("/filebrowser-XXXXXX"));
    check(mkdtemp(pattern.data()), "make", QDir::tempPath());
    chmod(pattern.constData(), 0777);
    return QFile::decodeName(pattern);
}

QString describe(const QString &path)
{
    struct stat info;
    check(lstat(QFile::encodeName(path).constData(), &info) == 0, "look at", path);
    QStringList parts = QStringList() << path;
    for (qint64 number : {qint64(info.st_uid), qint64(info.st_gid), qint64(info.st_mode),
                          qint64(info.st_size), qint64(info.st_mtime)})
        parts.append(QString::number(number));
    QFile file(path);
    if (S_ISREG(info.st_mode) && info.st_size <= smallFile && file.open(QIODevice::ReadOnly))
        parts.append(QString::fromLatin1(file.readAll().toHex()));
    return parts.join(QLatin1String(" "));
}
} // namespace

TestDir::TestDir()
    : m_path(temporaryFolder())
{
}

TestDir::TestDir(const QString &path)
    : m_path(path)
{
    removeTree(path);
    check(QDir().mkpath(path), "make", path);
    chmod(QFile::encodeName(path).constData(), 0777);
}

TestDir::~TestDir()
{
    removeTree(m_path);
}

QString TestDir::path(const QString &name) const
{
    return m_path + QLatin1Char('/') + name;
}

void TestDir::file(const QString &name, const QByteArray &contents, time_t time) const
{
    QFile file(path(name));
    check(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size(), "write",
          file.fileName());
    file.close();
    if (time != 0)
        setTimes(file.fileName(), time, time);
}

void TestDir::file(const QString &name, qint64 bytes, time_t time) const
{
    QFile file(path(name));
    check(file.open(QIODevice::WriteOnly) && file.resize(bytes), "write", file.fileName());
    file.close();
    if (time != 0)
        setTimes(file.fileName(), time, time);
}

void TestDir::grow(const QString &name, int bytes) const
{
    QFile file(path(name));
    check(file.open(QIODevice::Append) && file.write(QByteArray(bytes, 'x')) == bytes, "append to",
          file.fileName());
}

void TestDir::folder(const QString &name) const
{
    check(QDir().mkpath(path(name)), "make", path(name));
    chmod(QFile::encodeName(path(name)).constData(), 0777);
}

QByteArray TestDir::contents(const QString &name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

QStringList TestDir::names() const
{
    return QDir(m_path).entryList(allEntries, QDir::Name);
}

void removeTree(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymLink()) {
        QFile::remove(path);
        return;
    }
    for (const QString &name : QDir(path).entryList(allEntries))
        removeTree(path + QLatin1Char('/') + name);
    QDir().rmdir(path);
}

QStringList treeOf(const QString &path)
{
    QStringList lines;
    QDirIterator below(path, allEntries, QDirIterator::Subdirectories);
    while (below.hasNext())
        lines.append(describe(below.next()));
    lines.sort();
    return lines;
}

void setTimes(const QString &path, time_t access, time_t modification)
{
    utimbuf times;
    times.actime = access;
    times.modtime = modification;
    check(utime(QFile::encodeName(path).constData(), &times) == 0, "set the times of", path);
}
