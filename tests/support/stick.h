#ifndef STICK_H
#define STICK_H

#include <QString>

/**
 * A USB stick as the instrument sees one: a mounted file system whose device is /dev/sda1 or the
 * like. Real in everything but the device: a line in the kernel's mount table, a size, a busy
 * state. Needs the private instrument around the test. Pulled with the object.
 */
class Stick
{
public:
    enum Access { ReadWrite, ReadOnly };

    /**
     * Plugs a stick in: mounts a file system of @p kilobytes as @p device on @p mountPoint, which
     * is made when missing and writable by everybody.
     */
    Stick(const QString &device, const QString &mountPoint, qint64 kilobytes = 65536,
          Access access = ReadWrite);

    ~Stick();

    QString mountPoint() const
    {
        return m_mountPoint;
    }

    /** Absolute path of @p name on the stick. */
    QString path(const QString &name) const;

    /** Whether something is mounted there still. */
    bool isMounted() const;

    /** Takes the stick away at once, whoever uses it. */
    void pull();

private:
    Q_DISABLE_COPY(Stick)

    QString m_mountPoint;
};

#endif // STICK_H
