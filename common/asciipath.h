#ifndef ASCIIPATH_H
#define ASCIIPATH_H

#include <QByteArray>
#include <QString>

/**
 * A path as the instrument hands it to utime, statvfs and umount: converted with QString::toAscii,
 * which without a codec for C strings is Latin-1.
 *
 * Deliberately not the file system's encoding. On a UTF-8 system a path with any letter beyond
 * ASCII comes out as other bytes, the system call misses the file, and its caller reports that.
 */
inline QByteArray asciiPath(const QString &path)
{
#if QT_VERSION < 0x050000
    return path.toAscii();
#else
    return path.toLatin1(); // what became of toAscii, which Qt 5 deprecates
#endif
}

#endif // ASCIIPATH_H
