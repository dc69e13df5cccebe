#include "common/filecopy.h"

#include "common/asciipath.h"
#include "common/filetime.h"

#include <QDebug>
#include <QFile>

#include <cstring>
#include <limits>

#include <sys/stat.h>
#include <utime.h>

namespace {
// Seconds as QDateTime::toTime_t gives them for a time of QFileInfo: one number for all that 32
// bits don't hold. QDateTime itself looks at the time zone on every conversion, which takes longer
// than to copy a small file.
time_t unsignedSeconds(const timespec &time)
{
    const quint64 unknown = std::numeric_limits<quint32>::max();
    return static_cast<time_t>(qMin(static_cast<quint64>(fileTime(time) / 1000), unknown));
}

void copyTimes(const QString &source, const QString &destination)
{
    struct stat info;
    memset(&info, 0, sizeof info); // stays so when the source has vanished meanwhile
    stat(QFile::encodeName(source).constData(), &info);
    utimbuf times;
    times.actime = unsignedSeconds(info.st_atim);
    times.modtime = unsignedSeconds(info.st_mtim);
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
