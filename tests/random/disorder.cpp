#include "random/disorder.h"

#include "support/moment.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {
const int delayMs = 200; // after which the module does what it has put off
const char *const fileNames[] = {"a.csv",    "B.csv", "b.csv", "run 1.py",
                                 "run 2.py", "z",     "sub",   "deep"};
const int folderNames = 2; // the last ones
} // namespace

const int nameCount = sizeof fileNames / sizeof *fileNames;
const QString destination = "/media/copies";

QString nameOf(int number)
{
    return fileNames[number % nameCount];
}

std::string inWords(const QString &text)
{
    return text.toUtf8().constData();
}

void meddle(const QString &folder, const QString &name, int size)
{
    const QString path = folder + '/' + name;
    if (!QFileInfo(folder).isDir())
        return;
    if (QFileInfo(path).exists()) {
        removeTree(path);
    } else if (name == fileNames[nameCount - 1] || name == fileNames[nameCount - folderNames]) {
        QDir().mkdir(path);
        chmod(QFile::encodeName(path).constData(), 0777);
    } else {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.resize(qint64(size) * 7);
        file.close();
        chmod(QFile::encodeName(path).constData(), 0666);
        setTimes(path, 1368000000 + size, 1368000000 + size);
    }
}

void letTimersFire()
{
    for (int round = 0; round < 2; ++round) { // what fires may put off something again
        const Moment all(delayMs + 10, [] {});
        waitUntil([&] { return all.isOver(); });
    }
}
