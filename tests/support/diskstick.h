#ifndef DISKSTICK_H
#define DISKSTICK_H

#include <QByteArray>
#include <QString>

/**
 * A stick with a real file system on a disk whose contents can be looked at from outside. For tests
 * that care about what a file system can hold, about blocks, or about what has reached the disk;
 * Stick is the quicker choice for all others. Needs the private instrument around the test. Pulled
 * with the object.
 */
class DiskStick
{
public:
    /** Ext4 has blocks of 1 KB, some of them reserved for root. The others are the file systems of
     * sticks that one buys, each in a process of its own, as far as there are programs for it. */
    enum Format { Ext4, ExFat, Fat, Ntfs };

    /** Who may write to it. */
    enum Owner { Root, Account, Everybody };

    enum Access { ReadWrite, ReadOnly };

    /** Whether this process may have disks: the root of a user namespace may not. */
    static bool isAllowed();

    /** Why there can be no stick of this format here; empty when there can. */
    static QByteArray obstacle(Format format);

    /**
     * Makes a disk of @p kilobytes and mounts it as @p device, a path below /dev, on @p mountPoint,
     * which is made when missing.
     */
    DiskStick(const QByteArray &device, const QByteArray &mountPoint, int kilobytes = 8192,
              Format format = Ext4, Owner owner = Root, Access access = ReadWrite);
    ~DiskStick();

    QString mountPoint() const
    {
        return QString::fromUtf8(m_mountPoint);
    }

    /** Absolute path of @p name on the stick. */
    QString path(const QString &name) const
    {
        return mountPoint() + QLatin1Char('/') + name;
    }

    /** Whether @p bytes are anywhere on the disk, as opposed to in memory for a later write. */
    bool diskHolds(const QByteArray &bytes) const;

    /** Whether something is mounted there still. */
    bool isMounted() const;

    /** What a user without special rights can still write to it. Calls of the system only. */
    qint64 freeKilobytes() const;

    /** Cuts the disk off: from now on there is nothing on it, and nothing can be written. What is
     * mounted stays. Calls of the system only, for use after a fork(). */
    void cut() const;

    /** Takes the mount and its folder away, as the instrument does when a stick is gone. Calls of
     * the system only. */
    void unmount() const;

    /** Both, in this order. */
    void pull() const
    {
        cut();
        unmount();
    }

private:
    Q_DISABLE_COPY(DiskStick)

    QByteArray m_mountPoint;
    QByteArray m_image;
    int m_imageFile;
    int m_disk;
};

#endif // DISKSTICK_H
