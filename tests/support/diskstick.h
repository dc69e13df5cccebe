#ifndef DISKSTICK_H
#define DISKSTICK_H

#include <QByteArray>
#include <QString>

/**
 * A stick with a real file system: ext4 with blocks of 1 KB, some of them reserved for root, on a
 * disk whose contents can be looked at from outside. For tests that care about blocks, or about
 * what has reached the disk; Stick is the quicker choice for all others. Needs the private
 * instrument around the test. Pulled with the object.
 */
class DiskStick
{
public:
    /** Whether this process may have disks: the root of a user namespace may not. */
    static bool isAllowed();

    /**
     * Makes a disk of @p kilobytes and mounts it as @p device, a path below /dev, on @p mountPoint,
     * which is made when missing.
     */
    DiskStick(const QByteArray &device, const QByteArray &mountPoint, int kilobytes = 8192);
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

private:
    Q_DISABLE_COPY(DiskStick)

    QByteArray m_mountPoint;
    QByteArray m_image;
};

#endif // DISKSTICK_H
