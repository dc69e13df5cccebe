#include "support/stick.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/mount.h>
#include <sys/stat.h>

Stick::Stick(const QString &device, const QString &mountPoint, qint64 kilobytes, Access access)
    : m_mountPoint(mountPoint)
{
    QDir().mkpath(mountPoint);
    const QByteArray options = "mode=777,size=" + QByteArray::number(kilobytes) + "k";
    const int flags = access == ReadOnly ? MS_RDONLY : 0;
    if (mount(QFile::encodeName(device).constData(), QFile::encodeName(mountPoint).constData(),
              "tmpfs", flags, options.constData()) == 0)
        return;
    fprintf(stderr, "stick: can't mount on %s: %s\n", QFile::encodeName(mountPoint).constData(),
            strerror(errno));
    abort();
}

Stick::~Stick()
{
    pull();
    QDir().rmdir(m_mountPoint);
}

QString Stick::path(const QString &name) const
{
    return m_mountPoint + QLatin1Char('/') + name;
}

bool Stick::isMounted() const
{
    struct stat here;
    struct stat above;
    const QByteArray path = QFile::encodeName(m_mountPoint);
    return stat(path.constData(), &here) == 0 && stat((path + "/..").constData(), &above) == 0 &&
           here.st_dev != above.st_dev;
}

void Stick::pull()
{
    if (isMounted())
        umount2(QFile::encodeName(m_mountPoint).constData(), MNT_DETACH);
}
