#include "directory/folderreader.h"

#include "common/filetime.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {
struct CloseFolder
{
    void operator()(DIR *folder) const
    {
        closedir(folder);
    }
};

bool isAscii(const char *name)
{
    for (; *name; ++name) {
        if (static_cast<signed char>(*name) < 0)
            return false;
    }
    return true;
}

/** Whether @p name is @p known, and no letter in it beyond ASCII. */
bool isAscii(const char *name, const QString &known)
{
    for (int i = 0; i < known.size(); ++i) {
        const ushort letter = known.at(i).unicode();
        if (letter != static_cast<uchar>(name[i]) || letter > 0x7f)
            return false;
    }
    return name[known.size()] == 0;
}

/** @p name as a string, which may be empty; that of @p known if there is one and it is the same.
 * @return whether QDir of this Qt lists such a name */
bool decode(const char *name, const QString *known, QString *result)
{
    if (known && isAscii(name, *known)) {
        *result = *known;
        return true;
    }
    if (isAscii(name)) { // most are, and a codec takes ten times as long
        *result = QLatin1String(name);
        return true;
    }

    // Behind a separator, as part of a path: alone, a leading byte-order mark would get lost.
    const QByteArray encoded = QByteArray("/") + name;
    const QString decoded = QFile::decodeName(encoded);
#if QT_VERSION >= 0x050000
    // Qt 4.8 lists names with bytes that mean nothing in the file system's encoding, Qt 5 does not.
    if (QFile::encodeName(decoded) != encoded)
        return false;
#endif
    *result = decoded.mid(1);
    return true;
}

bool isLink(int folder, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_LNK;
    struct stat info;
    return fstatat(folder, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(info.st_mode);
}

/** Size, time and kind of @p entry. @return whether it is to be listed */
bool lookAt(int folder, const dirent &entry, FolderEntry *result)
{
    struct stat info;
    if (fstatat(folder, entry.d_name, &info, 0) == 0) {
        result->size = info.st_size;
        result->modified = fileTime(info.st_mtim);
        result->isDir = S_ISDIR(info.st_mode);
        return S_ISREG(info.st_mode) || S_ISDIR(info.st_mode) || isLink(folder, entry);
    }
    // A folder that may be read but not entered still tells names and kinds.
    result->size = 0;
    result->modified = fileTime(timespec());
    result->isDir = entry.d_type == DT_DIR;
    return errno != ENOENT && (entry.d_type == DT_DIR || entry.d_type == DT_REG);
}
} // namespace

bool operator==(const FolderEntry &left, const FolderEntry &right)
{
    return left.modified == right.modified && left.size == right.size &&
           left.isDir == right.isDir && left.name == right.name;
}

QVector<FolderEntry> readFolder(const QString &path, const QVector<const QString *> &known)
{
    QVector<FolderEntry> entries;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(QFile::encodeName(path).constData()));
    if (!folder)
        return entries;

    const int descriptor = dirfd(folder.get());
    while (const dirent *next = readdir(folder.get())) {
        if (next->d_name[0] == '.')
            continue;
        entries.resize(entries.size() + 1); // filled in place, a copy would be counted in and out
        FolderEntry &entry = entries.last();
        const QString *const knownName = known.value(entries.size() - 1);
        if (!decode(next->d_name, knownName, &entry.name) || !lookAt(descriptor, *next, &entry))
            entries.resize(entries.size() - 1);
    }
    return entries;
}
