#include "usb/usb.h"

#include "support/debuglog.h"
#include "support/signallog.h"
#include "support/stick.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/mount.h>
#include <sys/statvfs.h>

namespace {
/** What readSpaceUsbA (or B, the @p letter) writes when it measures @p path. */
QStringList spaceLines(const QString &letter, const QString &path)
{
    struct statvfs figures = {};
    if (statvfs(QFile::encodeName(path).constData(), &figures) != 0)
        qFatal("can't measure a stick");
    const quint64 available = figures.f_bsize * figures.f_bavail;
    const QString slot = "readSpaceUsb" + letter;
    return QStringList() << "f_bsize =  " + QString::number(figures.f_bsize)
                         << "f_bavail =  " + QString::number(figures.f_bavail)
                         << slot + "() avail =   " + QString::number(available)
                         << slot + "() KB =  " + QString::number(available / 1024);
}

const QStringList scanStarts = QStringList() << "USB::find()"
                                             << "/proc/mounts file open!";
const QString noSpace("0.0 bytes");

/** Many mounts that are no sticks. */
class Crowd
{
public:
    explicit Crowd(int count)
        : m_ground("crowd", "/media/crowd")
    {
        for (int i = 0; i < count; ++i) {
            const QString folder = m_ground.path(QString::number(i));
            if (!QDir().mkdir(folder) ||
                mount("member", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=4k") != 0)
                qFatal("can't mount number %d", i);
        }
    }

private:
    Stick m_ground; // takes the mounts on it along when it goes
};

int entriesOf(const char *folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}
} // namespace

class tst_UsbFind : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void withoutSticksBothAreAbsentAndHaveNoSpace();
    void aStickIsFoundMeasuredAndAnnouncedInOrder();
    void theSecondStickIsFoundWithoutTheFirst();
    void twoSticksAreAnnouncedFlagsAndPathsFirst();
    void debugLinesFollowTheTableThenTheLetters();
    void aSecondScanAnnouncesOnlyTheSpaces();
    void theFirstOfSeveralPartitionsIsTheStick();
    void aBareDeviceIsAStick();
    void aThirdStickIsInvisible();
    void aBlankInAMountPointIsDecoded();
    void aTabInAMountPointIsNot();
    void aStickIsFoundBehindAThousandMounts();
    void aPulledStickIsGoneWithTheNextScan();
    void aStickPluggedInElsewhereChangesPathAndSpaceOnly();
    void anUnreadableMountTableCountsAsNoSticks();
    void aScanLeavesNoFileOpen();
};

void tst_UsbFind::initTestCase()
{
    USB usb;
    usb.find();
    QVERIFY2(!usb.usbA() && !usb.usbB(),
             "the machine itself has mounted something of /dev/sda or /dev/sdb");
}

void tst_UsbFind::withoutSticksBothAreAbsentAndHaveNoSpace()
{
    USB usb;
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.find();

    QVERIFY(!usb.usbA() && !usb.usbB());
    QCOMPARE(usb.usbAPath() + usb.usbBPath(), QString());
    QCOMPARE(usb.usbASpace() + usb.usbBSpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QCOMPARE(usb.usbBFreeSpace(), noSpace);
    // A text comes out of the first connection to its space, so this log hears of the text first.
    QCOMPARE(signalLog.take(), QStringList() << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBFreeSpaceChanged"
                                             << "usbBSpaceChanged");
    QCOMPARE(log.lines(), scanStarts + (QStringList() << "readSpaceUsbA() KB =  0"
                                                      << "readSpaceUsbB() KB =  0"));
}

void tst_UsbFind::aStickIsFoundMeasuredAndAnnouncedInOrder()
{
    const Stick stick("/dev/sda1", "/media/one", 65536);
    USB usb;
    SignalLog signalLog(&usb);
    usb.find();

    QVERIFY(usb.usbA());
    QCOMPARE(usb.usbAPath(), QString("/media/one"));
    QCOMPARE(usb.usbASpace(), qint64(65536));
    QCOMPARE(usb.usbAFreeSpace(), QString("64.0 MB"));
    QVERIFY(!usb.usbB());
    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbAPathChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBFreeSpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbFind::theSecondStickIsFoundWithoutTheFirst()
{
    const Stick stick("/dev/sdb1", "/media/two", 1536);
    USB usb;
    SignalLog signalLog(&usb);
    usb.find();

    QVERIFY(!usb.usbA());
    QCOMPARE(usb.usbAPath(), QString());
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QVERIFY(usb.usbB());
    QCOMPARE(usb.usbBPath(), QString("/media/two"));
    QCOMPARE(usb.usbBSpace(), qint64(1536));
    QCOMPARE(usb.usbBFreeSpace(), QString("1.5 MB"));
    QCOMPARE(signalLog.take(), QStringList() << "usbBChanged"
                                             << "usbBPathChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBFreeSpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbFind::twoSticksAreAnnouncedFlagsAndPathsFirst()
{
    const Stick first("/dev/sda1", "/media/one");
    const Stick second("/dev/sdb1", "/media/two");
    USB usb;
    // With the object's own connections made again behind the log's, the log hears in order of
    // emission.
    QVERIFY(disconnect(&usb, SIGNAL(usbASpaceChanged()), &usb, SLOT(updateUsbAFreeSpace())));
    QVERIFY(disconnect(&usb, SIGNAL(usbBSpaceChanged()), &usb, SLOT(updateUsbBFreeSpace())));
    SignalLog signalLog(&usb);
    connect(&usb, SIGNAL(usbASpaceChanged()), &usb, SLOT(updateUsbAFreeSpace()));
    connect(&usb, SIGNAL(usbBSpaceChanged()), &usb, SLOT(updateUsbBFreeSpace()));
    usb.find();

    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbAPathChanged"
                                             << "usbBChanged"
                                             << "usbBPathChanged"
                                             << "usbASpaceChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbBSpaceChanged"
                                             << "usbBFreeSpaceChanged");
}

void tst_UsbFind::debugLinesFollowTheTableThenTheLetters()
{
    const Stick second("/dev/sdb1", "/media/Second \"Stick\"");
    const Stick first("/dev/sda1", "/media/one");
    USB usb;
    const DebugLog log;
    usb.find();
    QCOMPARE(log.lines(), scanStarts +
                              (QStringList() << "pathB = " + quoted("/media/Second \"Stick\"")
                                             << "pathA = \"/media/one\"") +
                              spaceLines("A", "/media/one") + spaceLines("B", second.mountPoint()));
}

void tst_UsbFind::aSecondScanAnnouncesOnlyTheSpaces()
{
    const Stick first("/dev/sda1", "/media/one");
    const Stick second("/dev/sdb1", "/media/two");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    usb.find();
    QCOMPARE(signalLog.take(), QStringList() << "usbASpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbFind::theFirstOfSeveralPartitionsIsTheStick()
{
    const Stick second("/dev/sda2", "/media/second partition");
    const Stick first("/dev/sda1", "/media/first partition");
    const Stick again("/dev/sda2", "/media/again");
    USB usb;
    usb.find();
    QCOMPARE(usb.usbAPath(), QString("/media/second partition"));
    QVERIFY(!usb.usbB());
}

void tst_UsbFind::aBareDeviceIsAStick()
{
    const Stick first("/dev/sda", "/media/one");
    const Stick second("/dev/sdb", "/media/two");
    USB usb;
    usb.find();
    QVERIFY(usb.usbA() && usb.usbB());
    QCOMPARE(usb.usbAPath(), QString("/media/one"));
    QCOMPARE(usb.usbBPath(), QString("/media/two"));
}

void tst_UsbFind::aThirdStickIsInvisible()
{
    const Stick third("/dev/sdc1", "/media/three");
    const Stick card("/dev/mmcblk0p1", "/media/card");
    USB usb;
    const DebugLog log;
    usb.find();
    QVERIFY(!usb.usbA() && !usb.usbB());
    QCOMPARE(log.lines(), scanStarts + (QStringList() << "readSpaceUsbA() KB =  0"
                                                      << "readSpaceUsbB() KB =  0"));
}

void tst_UsbFind::aBlankInAMountPointIsDecoded()
{
    const Stick stick("/dev/sda1", "/media/My  own Stick ", 1024);
    USB usb;
    usb.find();
    QCOMPARE(usb.usbAPath(), QString("/media/My  own Stick "));
    QCOMPARE(usb.usbAFreeSpace(), QString("1.0 MB"));
}

void tst_UsbFind::aTabInAMountPointIsNot()
{
    const Stick stick("/dev/sda1", "/media/My\tStick");
    USB usb;
    const DebugLog log;
    usb.find();
    QVERIFY(usb.usbA());
    QCOMPARE(usb.usbAPath(), QString("/media/My\\011Stick"));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QVERIFY(log.lines().contains("ERROR: USB::readSpaceUsbA Failed!"));
}

void tst_UsbFind::aStickIsFoundBehindAThousandMounts()
{
    const Crowd crowd(1000);
    const Stick stick("/dev/sda1", "/media/last", 1024);
    QFile table("/proc/mounts");
    QVERIFY(table.open(QIODevice::ReadOnly));
    QVERIFY(table.readAll().count("\nmember ") == 1000);
    USB usb;
    usb.find();
    QVERIFY(usb.usbA() && !usb.usbB());
    QCOMPARE(usb.usbAPath(), QString("/media/last"));
    QCOMPARE(usb.usbASpace(), qint64(1024));
}

void tst_UsbFind::aPulledStickIsGoneWithTheNextScan()
{
    Stick first("/dev/sda1", "/media/one");
    const Stick second("/dev/sdb1", "/media/two", 1024);
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    first.pull();
    usb.find();

    QVERIFY(!usb.usbA());
    QCOMPARE(usb.usbAPath(), QString());
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QVERIFY(usb.usbB());
    QCOMPARE(usb.usbBSpace(), qint64(1024));
    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbAPathChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbFind::aStickPluggedInElsewhereChangesPathAndSpaceOnly()
{
    Stick first("/dev/sda1", "/media/one", 1024);
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    first.pull();
    const Stick other("/dev/sda1", "/media/other", 2048);
    usb.find();

    QCOMPARE(usb.usbAPath(), QString("/media/other"));
    QCOMPARE(usb.usbAFreeSpace(), QString("2.0 MB"));
    QCOMPARE(signalLog.take(), QStringList() << "usbAPathChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbFind::anUnreadableMountTableCountsAsNoSticks()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    QVERIFY(usb.usbA());
    const DebugLog log;
    {
        const Stick insteadOfProc("nothing", "/proc");
        usb.find();
    }
    QVERIFY(!usb.usbA() && !usb.usbB());
    QCOMPARE(usb.usbAPath(), QString());
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), noSpace);
    QCOMPARE(log.lines(), QStringList() << "USB::find()"
                                        << "readSpaceUsbA() KB =  0"
                                        << "readSpaceUsbB() KB =  0");
    usb.find();
    QVERIFY(usb.usbA());
}

void tst_UsbFind::aScanLeavesNoFileOpen()
{
    USB usb;
    const int before = entriesOf("/proc/self/fd");
    usb.find();
    QCOMPARE(entriesOf("/proc/self/fd"), before);
}

QTEST_MAIN(tst_UsbFind)
#include "tst_usbfind.moc"
