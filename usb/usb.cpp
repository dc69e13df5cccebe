#include "usb/usb.h"

#include "common/asciipath.h"
#include "usb/mounttable.h"

#include <QDebug>
#include <QFile>
#include <QMutexLocker>
#include <QTimer>

#include <cstring>

#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {
const QLatin1String mountTable("/proc/mounts");
const int rescanDelayMs = 1000;
const int kilobyteShift = 10;
const double sizeUnit = 1024.0;

// After a failure the measuring deliberately goes on, with a record that says nothing is free.
qint64 freeKilobytes(const QString &mountPoint, const QByteArray &slot)
{
    struct statvfs info;
    memset(&info, 0, sizeof info);
    if (statvfs(asciiPath(mountPoint).constData(), &info) != 0)
        qDebug() << ("ERROR: USB::" + slot + " Failed!").constData();
    qDebug() << "f_bsize = " << info.f_bsize;
    qDebug() << "f_bavail = " << info.f_bavail;
    const quint64 available = static_cast<quint64>(info.f_bsize) * info.f_bavail;
    qDebug() << (slot + "() avail =  ").constData() << available;
    return static_cast<qint64>(available >> kilobyteShift);
}

quint64 bytes(qint64 kilobytes)
{
    return static_cast<quint64>(kilobytes) << kilobyteShift;
}
} // namespace

USB::USB(QObject *parent)
    : QObject(parent)
    , m_usbAPath(QLatin1String(""))
    , m_usbBPath(QLatin1String(""))
    , m_usbAFreeSpace(QLatin1String(""))
    , m_usbBFreeSpace(QLatin1String(""))
    , m_usbASpace(0)
    , m_usbBSpace(0)
    , m_usbA(false)
    , m_usbB(false)
{
    connect(this, SIGNAL(usbASpaceChanged()), this, SLOT(updateUsbAFreeSpace()));
    connect(this, SIGNAL(usbBSpaceChanged()), this, SLOT(updateUsbBFreeSpace()));
}

void USB::find()
{
    qDebug() << "USB::find()";
    MountedSticks sticks;
    QFile table(mountTable);
    if (table.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qDebug() << "/proc/mounts file open!";
        sticks = readMountTable(&table);
    }
    setUsbA(sticks.a.found);
    setUsbAPath(sticks.a.path);
    setUsbB(sticks.b.found);
    setUsbBPath(sticks.b.path);
    readSpaceUsbA();
    readSpaceUsbB();
}

void USB::readSpaceUsbA()
{
    m_usbASpace = m_usbA ? freeKilobytes(m_usbAPath, "readSpaceUsbA") : 0;
    qDebug() << "readSpaceUsbA() KB = " << m_usbASpace;
    emit usbASpaceChanged();
}

void USB::readSpaceUsbB()
{
    m_usbBSpace = m_usbB ? freeKilobytes(m_usbBPath, "readSpaceUsbB") : 0;
    qDebug() << "readSpaceUsbB() KB = " << m_usbBSpace;
    emit usbBSpaceChanged();
}

void USB::prepareUnmount(QString mountPath)
{
    qDebug() << "DEBUG: USB::prepareUnmount () path = " << mountPath;
    if (m_usbAPath == mountPath)
        setUsbA(false);
    else if (m_usbBPath == mountPath)
        setUsbB(false);
}

void USB::ejectA()
{
    eject(m_usbAPath);
}

void USB::ejectB()
{
    eject(m_usbBPath);
}

void USB::eject(QString mnt)
{
    const QMutexLocker lock(&m_ejectMutex);
    qDebug() << "DEBUG: USB::eject (" << mnt << ")";
    qDebug() << "sync()";
    sync();
    qDebug() << "umount " << mnt;
    umount(asciiPath(mnt).constData()); // the scan tells how it went
    QTimer::singleShot(rescanDelayMs, this, SLOT(find()));
}

void USB::updateUsbAFreeSpace()
{
    setUsbAFreeSpace(getHumanSize(bytes(m_usbASpace)));
}

void USB::updateUsbBFreeSpace()
{
    setUsbBFreeSpace(getHumanSize(bytes(m_usbBSpace)));
}

// The size text of a listed file climbs the same units but has no decimal: the two stay apart.
QString USB::getHumanSize(quint64 bytes)
{
    static const char *const largerUnits[] = {"KB", "MB", "GB", "TB"};
    double number = static_cast<double>(bytes);
    const char *unit = "bytes";
    for (const char *larger : largerUnits) {
        if (number < sizeUnit)
            break;
        number /= sizeUnit;
        unit = larger;
    }
    return QString().setNum(number, 'f', 1) + QLatin1Char(' ') + QLatin1String(unit);
}

void USB::setUsbAPath(const QString &path)
{
    if (m_usbAPath == path)
        return;
    m_usbAPath = path;
    emit usbAPathChanged();
}

void USB::setUsbAFreeSpace(const QString &text)
{
    if (m_usbAFreeSpace == text)
        return;
    m_usbAFreeSpace = text;
    emit usbAFreeSpaceChanged();
}

void USB::setUsbASpace(qint64 kilobytes)
{
    if (m_usbASpace == kilobytes)
        return;
    m_usbASpace = kilobytes;
    emit usbASpaceChanged();
}

void USB::setUsbA(bool mounted)
{
    if (m_usbA == mounted)
        return;
    m_usbA = mounted;
    emit usbAChanged();
}

void USB::setUsbBPath(const QString &path)
{
    if (m_usbBPath == path)
        return;
    m_usbBPath = path;
    emit usbBPathChanged();
}

void USB::setUsbBFreeSpace(const QString &text)
{
    if (m_usbBFreeSpace == text)
        return;
    m_usbBFreeSpace = text;
    emit usbBFreeSpaceChanged();
}

void USB::setUsbBSpace(qint64 kilobytes)
{
    if (m_usbBSpace == kilobytes)
        return;
    m_usbBSpace = kilobytes;
    emit usbBSpaceChanged();
}

void USB::setUsbB(bool mounted)
{
    if (m_usbB == mounted)
        return;
    m_usbB = mounted;
    emit usbBChanged();
}
