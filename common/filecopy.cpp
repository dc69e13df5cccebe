#include "common/filecopy.h"

#include "common/asciipath.h"

#include <QDebug>
#include <QFile>

#include <cstring>
#include <limits>

#include <sys/stat.h>
#include <utime.h>

namespace {
// Seconds as Qt 5's QDateTime::toTime_t gives them: one number for all times before 1970 or after
// 2106. QDateTime itself looks at the time zone on every conversion, which takes longer than to
// copy a small file.
time_t unsignedSeconds(time_t seconds)
{
    const quint64 unknown = std::numeric_limits<quint32>::max();
    return static_cast<time_t>(qMin(static_cast<quint64>(seconds), unknown));
}

void copyTimes(const QString &source, const QString &destination)
{
    struct stat info;
    memset(&info, 0, sizeof info);
    info.st_atime = info.st_mtime = -1; // stays so when the source has vanished meanwhile
    stat(QFile::encodeName(source).constData(), &info);
    utimbuf times;
    times.actime = unsignedSeconds(info.st_atime);
    times.modtime = unsignedSeconds(info.st_mtime);
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
