#include "support/diskstick.h"

#include "support/account.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStringList>

#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <linux/loop.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
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

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

void format(const QByteArray &image, DiskStick::Format format)
{
    const char *const commands[] = {
        "/sbin/mkfs.ext4 -q -F -b 1024 -m 5 -E lazy_itable_init=0,lazy_journal_init=0",
        "/sbin/mkfs.exfat", "/sbin/mkfs.vfat", "/sbin/mkfs.ntfs -q -F -Q"};
    QStringList arguments = words(commands[format]);
    const QByteArray program = arguments.takeFirst().toLatin1();
    outputOf(program.constData(), arguments << QString::fromLatin1(image));
}

QByteArray newImage()
{
    QByteArray image =
        QFile::encodeName(QDir::tempPath() + QLatin1String("/filebrowser-disk-XXXXXX"));
    const int fd = mkstemp(image.data());
    check(fd != -1, "make a disk");
    close(fd);
    return image;
}

/** The program that mounts a format; none for those that the kernel knows. */
QByteArray mountProgram(DiskStick::Format format)
{
    const char *const programs[] = {"", "/sbin/mount.exfat-fuse", "/usr/bin/fusefat",
                                    "/usr/bin/ntfs-3g"};
    return programs[format];
}

void makeNode(const char *name, mode_t type, dev_t number)
{
    check(mknod(name, type | 0666, number) == 0, name);
}

QString mountOptions(DiskStick::Format format, DiskStick::Owner owner, DiskStick::Access access)
{
    const char *const owners[] = {"umask=077", "umask=077,uid=4711,gid=4711", "umask=000"};
    QString options = QLatin1String("allow_other,default_permissions,");
    options += QLatin1String(owners[owner]);
    if (access == DiskStick::ReadOnly)
        options += QLatin1String(",ro");
    else if (format == DiskStick::Fat)
        options += QLatin1String(",rw+"); // this program writes only when told that it is meant
    return options;
}

void mountByProgram(const QByteArray &program, const QByteArray &device,
                    const QByteArray &mountPoint, QString options)
{
    if (program.endsWith("fusefat")) {
        options += QLatin1String(",fsname=") + QString::fromLatin1(device);
        // Writes single pages unless told, as all do that are made with this library.
        if (outputOf("ldd", QStringList(QString::fromLatin1(program))).contains("libfuse.so.2"))
            options += QLatin1String(",big_writes");
    }
    outputOf(program.constData(), QStringList() << QLatin1String("-o") << options
                                                << QString::fromLatin1(device)
                                                << QString::fromUtf8(mountPoint));
}

void giveTo(DiskStick::Owner owner, const QByteArray &folder)
{
    if (owner == DiskStick::Account)
        check(chown(folder.constData(), ostanUid, ostanGid) == 0, "give the disk away");
    if (owner == DiskStick::Everybody)
        check(chmod(folder.constData(), 0777) == 0, "give the disk to everybody");
}
} // namespace

bool DiskStick::isAllowed()
{
    QFile map(QLatin1String("/proc/self/uid_map"));
    check(map.open(QIODevice::ReadOnly), "tell which users there are");
    return map.readAll().simplified() == "0 0 4294967295";
}

QByteArray DiskStick::obstacle(Format format)
{
    if (!isAllowed())
        return "disks are for the machine's own root, and a user namespace has another";
    const QByteArray program = mountProgram(format);
    if (program.isEmpty())
        return QByteArray();
    if (access(program.constData(), X_OK) != 0)
        return program + " is not installed";
    const int fuse = open("/dev/fuse", O_RDWR);
    if (fuse == -1)
        return "this kernel has no file systems in processes (/dev/fuse)";
    close(fuse);
    return QByteArray();
}

// The kernel wants a disk's name to lead to the disk, and the machine's own /dev is not to be
// touched: for the length of the mount there is another one.
DiskStick::DiskStick(const QByteArray &device, const QByteArray &mountPoint, int kilobytes,
                     Format type, Owner owner, Access access)
    : m_mountPoint(mountPoint)
    , m_image(newImage())
    , m_imageFile(open(m_image.constData(), O_RDWR | O_CLOEXEC))
{
    check(ftruncate(m_imageFile, static_cast<off_t>(kilobytes) * 1024) == 0, "size a disk");
    format(m_image, type);
    QDir().mkpath(this->mountPoint());
    const QByteArray loop =
        outputOf("/sbin/losetup", QStringList() << "--find"
                                                << "--show" << QString::fromLatin1(m_image));
    m_disk = open(loop.constData(), O_RDWR | O_CLOEXEC);
    // Takes effect when nobody uses the disk any more, however the test ends.
    outputOf("/sbin/losetup", QStringList() << "--detach" << QString::fromLatin1(loop));
    struct stat disk;
    struct stat fuse;
    const bool hasFuse = stat("/dev/fuse", &fuse) == 0;
    check(fstat(m_disk, &disk) == 0, "find the disk");

    check(mount("dev", "/dev", "tmpfs", 0, nullptr) == 0, "put a /dev in place");
    makeNode(device.constData(), S_IFBLK, disk.st_rdev);
    const QByteArray program = mountProgram(type);
    if (program.isEmpty()) {
        check(mount(device.constData(), m_mountPoint.constData(), "ext4",
                    access == ReadOnly ? MS_RDONLY : 0, nullptr) == 0,
              "mount the disk");
    } else {
        makeNode("/dev/null", S_IFCHR, makedev(1, 3));
        if (hasFuse)
            makeNode("/dev/fuse", S_IFCHR, fuse.st_rdev);
        mountByProgram(program, device, m_mountPoint, mountOptions(type, owner, access));
    }
    check(umount2("/dev", MNT_DETACH) == 0, "put /dev back");
    if (type == Ext4 && access == ReadWrite)
        giveTo(owner, m_mountPoint);
}

DiskStick::~DiskStick()
{
    unmount();
    close(m_disk);
    close(m_imageFile);
    unlink(m_image.constData());
}

bool DiskStick::isMounted() const
{
    struct stat here;
    struct stat above;
    return stat(m_mountPoint.constData(), &here) == 0 &&
           stat((m_mountPoint + "/..").constData(), &above) == 0 && here.st_dev != above.st_dev;
}

qint64 DiskStick::freeKilobytes() const
{
    struct statvfs figures;
    return statvfs(m_mountPoint.constData(), &figures) == 0
               ? qint64(figures.f_bavail * figures.f_bsize / 1024)
               : -1;
}

void DiskStick::cut() const
{
    if (ftruncate(m_imageFile, 0) != 0 || ioctl(m_disk, LOOP_SET_CAPACITY) != 0)
        perror("disk stick: can't cut it off");
}

void DiskStick::unmount() const
{
    umount2(m_mountPoint.constData(), MNT_DETACH);
    rmdir(m_mountPoint.constData());
}

bool DiskStick::diskHolds(const QByteArray &bytes) const
{
    QFile image(QString::fromLatin1(m_image));
    check(image.open(QIODevice::ReadOnly), "read the disk");
    return image.readAll().contains(bytes);
}
