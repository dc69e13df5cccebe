#include "common/filecopy.h"

#include "common/asciipath.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>

#include <utime.h>

namespace {
void copyTimes(const QString &source, const QString &destination)
{
    const QFileInfo info(source);
    utimbuf times;
    times.actime = info.lastRead().toTime_t();
    times.modtime = info.lastModified().toTime_t();
    // The text names one class for both browsers: the instrument's support greps for it.
    if (utime(asciiPath(destination).constData(), &times) == -1)
        qDebug() << "WARNING: Directory::copySelectedTo() - Failed to copy date modified!";
}
} // namespace

bool copyFileWithTimes(const QString &source, const QString &destination)
{
    if (!QFile::copy(source, destination))
        return false;
    copyTimes(source, destination);
    return true;
}
