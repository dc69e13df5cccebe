#include "support/diskstick.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
void check(bool done, const char *what)
{
    if (done)
        return;
    perror((QByteArray("disk stick: can't ") + what).constData());
    abort();
}

QByteArray outputOf(const char *program, const QStringList &arguments)
{
    QProcess process;
    process.start(QLatin1String(program), arguments);
    check(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
              process.exitCode() == 0,
          program);
    return process.readAllStandardOutput().trimmed();
}

QByteArray newImage(int kilobytes)
{
    QByteArray image =
        QFile::encodeName(QDir::tempPath() + QLatin1String("/filebrowser-disk-XXXXXX"));
    const int fd = mkstemp(image.data());
    check(fd != -1 && ftruncate(fd, static_cast<off_t>(kilobytes) * 1024) == 0, "make a disk");
    close(fd);
    outputOf("/sbin/mkfs.ext4", QStringList() << "-q"
                                              << "-F"
                                              << "-b"
                                              << "1024"
                                              << "-m"
                                              << "5"
                                              << "-E"
                                              << "lazy_itable_init=0,lazy_journal_init=0"
                                              << QString::fromLatin1(image));
    return image;
}

// The kernel wants a disk's name to lead to the disk, and the machine's own /dev is not to be
// touched: for the length of the mount there is another one.
void mountAs(const QByteArray &device, dev_t disk, const QByteArray &mountPoint)
{
    check(mount("dev", "/dev", "tmpfs", 0, nullptr) == 0, "put a /dev in place");
    check(mknod(device.constData(), S_IFBLK | 0600, disk) == 0, "name the disk");
    check(mount(device.constData(), mountPoint.constData(), "ext4", 0, nullptr) == 0,
          "mount the disk");
    check(umount2("/dev", MNT_DETACH) == 0, "put /dev back");
}
} // namespace

bool DiskStick::isAllowed()
{
    QFile map(QLatin1String("/proc/self/uid_map"));
    check(map.open(QIODevice::ReadOnly), "tell which users there are");
    return map.readAll().simplified() == "0 0 4294967295";
}

DiskStick::DiskStick(const QByteArray &device, const QByteArray &mountPoint, int kilobytes)
    : m_mountPoint(mountPoint)
    , m_image(newImage(kilobytes))
{
    QDir().mkpath(this->mountPoint());
    const QByteArray loop =
        outputOf("/sbin/losetup", QStringList() << "--find"
                                                << "--show" << QString::fromLatin1(m_image));
    struct stat disk;
    check(stat(loop.constData(), &disk) == 0, "find the disk");
    mountAs(device, disk.st_rdev, m_mountPoint);
    // Takes effect when nobody uses the disk any more, however the test ends.
    outputOf("/sbin/losetup", QStringList() << "--detach" << QString::fromLatin1(loop));
}

DiskStick::~DiskStick()
{
    umount2(m_mountPoint.constData(), MNT_DETACH);
    QDir().rmdir(mountPoint());
    unlink(m_image.constData());
}

bool DiskStick::diskHolds(const QByteArray &bytes) const
{
    QFile image(QString::fromLatin1(m_image));
    check(image.open(QIODevice::ReadOnly), "read the disk");
    return image.readAll().contains(bytes);
}
