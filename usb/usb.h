#ifndef USB_H
#define USB_H

#include <QMutex>
#include <QObject>
#include <QString>

/**
 * Finds up to two mounted USB sticks, measures their free space and unmounts them.
 *
 * Stick A is the first file system in the kernel's mount table whose device starts with "/dev/sda",
 * stick B the first whose device starts with "/dev/sdb". Every other device is invisible. The
 * object neither scans when it is made nor polls: the properties change through find(), the slots
 * below and writes from QML, and keep their values in between.
 *
 * @code
 * import FileBrowser 1.0
 *
 * USB {
 *     id: usb
 *     Component.onCompleted: find()
 * }
 * Text {
 *     text: usb.usbA ? usb.usbAPath + ": " + usb.usbAFreeSpace + " free" : "Insert a USB stick"
 * }
 * MouseArea { // copies to the stick, then lets go of it; usbA turns false when it may be pulled
 *     onClicked: {
 *         if (!usb.usbA)
 *             return // usbAPath may be empty: copies to it would go to "/"
 *         directory.copySelectedTo(usb.usbAPath)
 *         usb.ejectA()
 *     }
 * }
 * @endcode
 *
 * A mount path is handed to the system in Latin-1. On a system with UTF-8 names a stick mounted
 * below a folder with a letter beyond ASCII is found, but can neither be measured nor unmounted: it
 * shows 0.0 bytes free and is there still after an eject.
 *
 * usbAFreeSpace follows usbASpace through a signal connection of the object's own, the first that
 * usbASpaceChanged has. A receiver connected later (every QML handler is) therefore sees
 * usbAFreeSpaceChanged before the usbASpaceChanged that caused it. Stick B is alike.
 *
 * To be used on the user-interface thread, which all slots block while they run. What happens is
 * told in debug lines; nothing is thrown and no error value is returned.
 */
class USB : public QObject
{
    Q_OBJECT
    /** Mount point of stick A; empty when a scan found none. */
    Q_PROPERTY(QString usbAPath READ usbAPath WRITE setUsbAPath NOTIFY usbAPathChanged)
    /** Free space of stick A for display, as in "3.7 GB"; empty before the first scan. */
    Q_PROPERTY(
        QString usbAFreeSpace READ usbAFreeSpace WRITE setUsbAFreeSpace NOTIFY usbAFreeSpaceChanged)
    /** Free space of stick A that a user without special rights may fill. @unit KB (1024 bytes) */
    Q_PROPERTY(qint64 usbASpace READ usbASpace WRITE setUsbASpace NOTIFY usbASpaceChanged)
    /** Whether stick A is mounted. */
    Q_PROPERTY(bool usbA READ usbA WRITE setUsbA NOTIFY usbAChanged)
    /** Mount point of stick B; empty when a scan found none. */
    Q_PROPERTY(QString usbBPath READ usbBPath WRITE setUsbBPath NOTIFY usbBPathChanged)
    /** Free space of stick B for display. */
    Q_PROPERTY(
        QString usbBFreeSpace READ usbBFreeSpace WRITE setUsbBFreeSpace NOTIFY usbBFreeSpaceChanged)
    /** Free space of stick B. @unit KB (1024 bytes) */
    Q_PROPERTY(qint64 usbBSpace READ usbBSpace WRITE setUsbBSpace NOTIFY usbBSpaceChanged)
    /** Whether stick B is mounted. */
    Q_PROPERTY(bool usbB READ usbB WRITE setUsbB NOTIFY usbBChanged)

public:
    /** An object that knows of no stick yet. */
    explicit USB(QObject *parent = nullptr);

    QString usbAPath() const
    {
        return m_usbAPath;
    }
    QString usbAFreeSpace() const
    {
        return m_usbAFreeSpace;
    }
    qint64 usbASpace() const
    {
        return m_usbASpace;
    }
    bool usbA() const
    {
        return m_usbA;
    }
    QString usbBPath() const
    {
        return m_usbBPath;
    }
    QString usbBFreeSpace() const
    {
        return m_usbBFreeSpace;
    }
    qint64 usbBSpace() const
    {
        return m_usbBSpace;
    }
    bool usbB() const
    {
        return m_usbB;
    }

    // A writer does nothing and emits nothing for the value that is there already.
    void setUsbAPath(const QString &path);
    void setUsbAFreeSpace(const QString &text);
    void setUsbASpace(qint64 kilobytes);
    void setUsbA(bool mounted);
    void setUsbBPath(const QString &path);
    void setUsbBFreeSpace(const QString &text);
    void setUsbBSpace(qint64 kilobytes);
    void setUsbB(bool mounted);

public slots:
    /**
     * Scans the mount table and measures the sticks it lists. A table that can't be read counts as
     * one without sticks. The changes are announced stick by stick, flag and path of both before
     * any space.
     */
    void find();

    /**
     * Measures the free space at usbAPath, 0 while usbA is false. Announces usbASpace on every
     * call, also when it is what it was. A path that can't be measured has 0 KB.
     */
    void readSpaceUsbA();

    /** The same for stick B. */
    void readSpaceUsbB();

    /**
     * Declares the stick mounted on @p mountPath absent at once, so that a screen hides it before
     * the eject. Unmounts nothing; path and space stay until the next scan, deliberately, and a
     * scan without an eject brings the stick back. Stick A comes first should both have that path.
     */
    void prepareUnmount(QString mountPath);

    /** Ejects what is mounted on usbAPath, whether or not usbA is true. @locks */
    void ejectA();

    /** Ejects what is mounted on usbBPath, whether or not usbB is true. @locks */
    void ejectB();

    /**
     * Writes all file systems out, unmounts the one on @p mnt and runs find() 1000 ms later. Until
     * then no property changes. A failed unmount, of a busy stick for one, is not reported: the
     * scan finds the stick again. Runs with the rights that the process has.
     *
     * @locks
     */
    void eject(QString mnt);

signals:
    void usbAChanged();

    /** Belongs to no property and is never emitted; kept for the screens that name it. */
    void usbADirChanged();

    void usbAFreeSpaceChanged();
    void usbAPathChanged();
    void usbASpaceChanged();
    void usbBChanged();

    /** Never emitted, like usbADirChanged(). */
    void usbBDirChanged();

    void usbBFreeSpaceChanged();
    void usbBPathChanged();
    void usbBSpaceChanged();

private slots:
    void updateUsbAFreeSpace();
    void updateUsbBFreeSpace();

    /** @p bytes with one decimal in the largest unit of bytes, KB, MB, GB, TB that leaves at
     * least 1. */
    QString getHumanSize(quint64 bytes);

private:
    Q_DISABLE_COPY(USB)

    QMutex m_ejectMutex;
    QString m_usbAPath;
    QString m_usbBPath;
    QString m_usbAFreeSpace;
    QString m_usbBFreeSpace;
    qint64 m_usbASpace;
    qint64 m_usbBSpace;
    bool m_usbA;
    bool m_usbB;
};

#endif // USB_H
