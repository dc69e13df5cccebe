#include "usb/usb.h"

#include "support/debuglog.h"
#include "support/diskstick.h"
#include "support/signallog.h"
#include "support/stick.h"

#include <QFile>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {
const QString noSpace("0.0 bytes");
const QString greenPath = QString::fromUtf8("/media/Gr\xc3\xbcn");

/** What readSpaceUsbA writes when its path can't be measured. */
const QStringList failureLinesA = QStringList() << "ERROR: USB::readSpaceUsbA Failed!"
                                                << "f_bsize =  0"
                                                << "f_bavail =  0"
                                                << "readSpaceUsbA() avail =   0"
                                                << "readSpaceUsbA() KB =  0";

/** Writes to the file @p path until nothing more fits on its file system. */
void fillUpWith(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("can't fill a stick");
    const QByteArray block(4096, 'x');
    while (file.write(block) > 0) {
    }
}
} // namespace

class tst_UsbSpace : public QObject
{
    Q_OBJECT

private slots:
    void everyReadingIsAnnouncedItsTextOnlyWhenItReadsOtherwise();
    void theSpaceIsAnnouncedThenItsText();
    void aReadingIsToldStepByStep();
    void anAbsentStickIsNotMeasured();
    void aFullStickHasNone();
    void aHugeStickIsMeasuredIn64Bits();
    void blocksReservedForRootAreNotCounted();
    void aPathThatIsGoneHasNone();
    void aFailureOfTheSecondStickNamesIt();
    void aMountPointWithAnUmlautCantBeMeasured();
    void aMountPointIsHandedOverInLatin1();
};

void tst_UsbSpace::everyReadingIsAnnouncedItsTextOnlyWhenItReadsOtherwise()
{
    const Stick stick("/dev/sda1", "/media/one", 2048);
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);

    usb.readSpaceUsbA();
    usb.readSpaceUsbA();
    QCOMPARE(signalLog.take(), QStringList() << "usbASpaceChanged"
                                             << "usbASpaceChanged");
    usb.readSpaceUsbB();
    usb.readSpaceUsbB();
    QCOMPARE(signalLog.take(), QStringList() << "usbBSpaceChanged"
                                             << "usbBSpaceChanged");

    QFile file(stick.path("a MB"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(1048576, 'x')) > 0 &&
            file.flush());
    usb.readSpaceUsbA();
    QCOMPARE(usb.usbASpace(), qint64(1024));
    QCOMPARE(usb.usbAFreeSpace(), QString("1.0 MB"));
    QCOMPARE(signalLog.take(), QStringList() << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged");
}

void tst_UsbSpace::theSpaceIsAnnouncedThenItsText()
{
    const Stick stick("/dev/sdb1", "/media/two");
    USB usb;
    usb.setUsbBPath(stick.mountPoint());
    usb.setUsbB(true);
    // With the object's own connection made again behind the log's, the log hears in order of
    // emission.
    QVERIFY(disconnect(&usb, SIGNAL(usbBSpaceChanged()), &usb, SLOT(updateUsbBFreeSpace())));
    SignalLog signalLog(&usb);
    usb.readSpaceUsbB();
    QCOMPARE(usb.usbBFreeSpace(), QString()); // nothing but that connection formats the text
    QCOMPARE(signalLog.take(), QStringList("usbBSpaceChanged"));

    connect(&usb, SIGNAL(usbBSpaceChanged()), &usb, SLOT(updateUsbBFreeSpace()));
    usb.readSpaceUsbB();
    QCOMPARE(signalLog.take(), QStringList() << "usbBSpaceChanged"
                                             << "usbBFreeSpaceChanged");
}

void tst_UsbSpace::aReadingIsToldStepByStep()
{
    const Stick stick("/dev/sdb1", "/media/two", 1024);
    USB usb;
    usb.find();
    const DebugLog log;
    usb.readSpaceUsbB();
    QCOMPARE(log.lines(), QStringList() << "f_bsize =  4096"
                                        << "f_bavail =  256"
                                        << "readSpaceUsbB() avail =   1048576"
                                        << "readSpaceUsbB() KB =  1024");
}

void tst_UsbSpace::anAbsentStickIsNotMeasured()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    usb.prepareUnmount("/media/one");
    QCOMPARE(usb.usbAPath(), QString("/media/one"));
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.readSpaceUsbA();
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QCOMPARE(signalLog.take(), QStringList() << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged");
    QCOMPARE(log.lines(), QStringList("readSpaceUsbA() KB =  0"));
}

void tst_UsbSpace::aFullStickHasNone()
{
    const Stick stick("/dev/sda1", "/media/one", 256);
    fillUpWith(stick.path("filler"));
    USB usb;
    usb.find();
    QVERIFY(usb.usbA());
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
}

void tst_UsbSpace::aHugeStickIsMeasuredIn64Bits()
{
    const qint64 twoTerabytesInKB = Q_INT64_C(2) << 30;
    const Stick first("/dev/sda1", "/media/one", twoTerabytesInKB);
    const Stick second("/dev/sdb1", "/media/two", Q_INT64_C(5) << 20);
    USB usb;
    usb.find();
    QCOMPARE(usb.usbASpace(), twoTerabytesInKB);
    QCOMPARE(usb.usbAFreeSpace(), QString("2.0 TB"));
    QCOMPARE(usb.usbBFreeSpace(), QString("5.0 GB"));
}

void tst_UsbSpace::blocksReservedForRootAreNotCounted()
{
    if (!DiskStick::isAllowed())
        QSKIP("disks are for the machine's own root, and a user namespace has another", SkipSingle);
    const DiskStick stick("/dev/sda1", "/media/disk");
    struct statvfs figures;
    QCOMPARE(statvfs("/media/disk", &figures), 0);
    QVERIFY(figures.f_bavail < figures.f_bfree);
    QCOMPARE(quint64(figures.f_bsize), Q_UINT64_C(1024));
    USB usb;
    usb.find();
    const DebugLog log;
    usb.readSpaceUsbA();
    QCOMPARE(usb.usbAPath(), QString("/media/disk"));
    QCOMPARE(usb.usbASpace(), qint64(figures.f_bavail));
    QVERIFY(log.lines().contains("f_bavail =  " + QString::number(figures.f_bavail)));
}

void tst_UsbSpace::aPathThatIsGoneHasNone()
{
    const Stick stick("/dev/sda1", "/media/one", 1024);
    USB usb;
    usb.find();
    usb.setUsbAPath("/media/nowhere");
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.readSpaceUsbA();
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QVERIFY(usb.usbA());
    QCOMPARE(signalLog.take(), QStringList() << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged");
    QCOMPARE(log.lines(), failureLinesA);
}

void tst_UsbSpace::aFailureOfTheSecondStickNamesIt()
{
    USB usb;
    usb.setUsbB(true); // and no path
    const DebugLog log;
    usb.readSpaceUsbB();
    QStringList expected = failureLinesA;
    expected.replaceInStrings("UsbA", "UsbB");
    QCOMPARE(log.lines(), expected);
}

void tst_UsbSpace::aMountPointWithAnUmlautCantBeMeasured()
{
    const Stick stick("/dev/sda1", greenPath);
    USB usb;
    usb.find();
    QVERIFY(usb.usbA());
    QCOMPARE(usb.usbAPath(), greenPath);
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    const DebugLog log;
    usb.readSpaceUsbA();
    QCOMPARE(log.lines(), failureLinesA);
}

void tst_UsbSpace::aMountPointIsHandedOverInLatin1()
{
    const Stick stick("/dev/sda1", greenPath, 1024);
    // A folder whose name is the path's Latin-1 bytes is what the system finds instead.
    QCOMPARE(mkdir("/media/Gr\xfcn", 0755), 0);
    QCOMPARE(mount("other", "/media/Gr\xfcn", "tmpfs", 0, "size=2048k"), 0);
    USB usb;
    usb.find();
    umount("/media/Gr\xfcn");
    rmdir("/media/Gr\xfcn");
    QCOMPARE(usb.usbAPath(), greenPath);
    QCOMPARE(usb.usbASpace(), qint64(2048));
}

QTEST_MAIN(tst_UsbSpace)
#include "tst_usbspace.moc"
