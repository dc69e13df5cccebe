#include "host/diskcheck.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <sys/statvfs.h>

DiskCheck::DiskCheck(QObject *parent)
    : QObject(parent)
{
}

bool DiskCheck::isWriteProtected(const QString &path) const
{
    struct statvfs info;
    return statvfs(QFile::encodeName(path).constData(), &info) == 0 &&
           (info.f_flag & ST_RDONLY) != 0;
}

bool DiskCheck::isEmpty(const QString &path) const
{
    return !QDirIterator(path, QDir::AllEntries | QDir::NoDotAndDotDot).hasNext();
}
