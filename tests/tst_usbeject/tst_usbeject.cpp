#include "usb/usb.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/diskstick.h"
#include "support/signallog.h"
#include "support/stick.h"
#include "support/waiting.h"

#include <QDebug>
#include <QFile>
#include <QTest>
#include <QTimer>

namespace {
const int rescanDelayMs = 1000;
const QString scan("USB::find()");

QStringList ejectLines(const QString &path)
{
    return QStringList() << "DEBUG: USB::eject ( " + quoted(path) + " )"
                         << "sync()"
                         << "umount  " + quoted(path);
}

/** The object's properties, one line each. */
QStringList propertiesOf(const USB &usb)
{
    return QStringList() << usb.usbAPath() << usb.usbAFreeSpace()
                         << QString::number(usb.usbASpace()) << QString::number(usb.usbA())
                         << usb.usbBPath() << usb.usbBFreeSpace()
                         << QString::number(usb.usbBSpace()) << QString::number(usb.usbB());
}

/** Waits until @p count scans have run since @p log began, and a moment more, in case there is
 * another. */
bool scansRun(const DebugLog &log, int count)
{
    const bool inTime = waitUntil([&log, count] { return log.lines().count(scan) >= count; });
    letTimePass(rescanDelayMs / 10);
    return inTime && log.lines().count(scan) == count;
}
} // namespace

/** A clock beside the object's own: says when its time is up, and how the object was then. */
class Clock : public QObject
{
    Q_OBJECT

public:
    explicit Clock(const USB &usb)
        : m_usb(usb)
    {
    }

    /** The object's properties at each strike. */
    QList<QStringList> strikes() const
    {
        return m_strikes;
    }

public slots:
    void strike()
    {
        qDebug() << "strike";
        m_strikes.append(propertiesOf(m_usb));
    }

private:
    const USB &m_usb;
    QList<QStringList> m_strikes;
};

class tst_UsbEject : public QObject
{
    Q_OBJECT

private slots:
    void preparingHidesTheStickAndNothingElse();
    void preparingTheSecondStickLeavesTheFirst();
    void preparingTwiceAnnouncesOnce();
    void preparingAForeignPathOnlyTells_data();
    void preparingAForeignPathOnlyTells();
    void preparingAnEmptyPathMatchesAnAbsentStick();
    void ofTwoSticksWithOnePathTheFirstIsPrepared();
    void aScanWithoutAnEjectBringsAPreparedStickBack();

    void anEjectedStickIsGoneAfterTheScan();
    void nothingChangesBeforeTheScanAThousandMillisecondsLater();
    void ejectingTheSecondStickLeavesTheFirst();
    void aPreparedStickIsEjectedByItsPath();
    void aMountPointWithBlanksIsUnmounted();
    void anyMountPointIsUnmounted();
    void ejectingWithoutSticksTellsAndScans();
    void aBusyStickStaysAndShowsAgain();
    void aMountPointWithAnUmlautStays();
    void aTabInAMountPointStays();
    void ejectingTakesTheRightsOfTheProcess();
    void ejectingTwiceScansTwice();
    void oneEjectTakesOneOfTwoMounts();
    void everyFileSystemIsWrittenOutEvenWhenTheStickStays();
    void anObjectThatIsGoneDoesNotScan();
};

void tst_UsbEject::preparingHidesTheStickAndNothingElse()
{
    const Stick first("/dev/sda1", "/media/one", 1024);
    const Stick second("/dev/sdb1", "/media/two", 2048);
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.prepareUnmount("/media/one");

    QVERIFY(!usb.usbA());
    QCOMPARE(usb.usbAPath(), QString("/media/one"));
    QCOMPARE(usb.usbASpace(), qint64(1024));
    QCOMPARE(usb.usbAFreeSpace(), QString("1.0 MB"));
    QVERIFY(usb.usbB());
    QVERIFY(first.isMounted());
    QCOMPARE(signalLog.take(), QStringList("usbAChanged"));
    QCOMPARE(log.lines(), QStringList("DEBUG: USB::prepareUnmount () path =  \"/media/one\""));
}

void tst_UsbEject::preparingTheSecondStickLeavesTheFirst()
{
    const Stick first("/dev/sda1", "/media/one", 1024);
    const Stick second("/dev/sdb1", "/media/two", 2048);
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    usb.prepareUnmount("/media/two");

    QVERIFY(usb.usbA() && !usb.usbB());
    QCOMPARE(usb.usbBPath(), QString("/media/two"));
    QCOMPARE(usb.usbBFreeSpace(), QString("2.0 MB"));
    QCOMPARE(signalLog.take(), QStringList("usbBChanged"));
}

void tst_UsbEject::preparingTwiceAnnouncesOnce()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    usb.prepareUnmount("/media/one");
    usb.prepareUnmount("/media/one");
    QCOMPARE(signalLog.take(), QStringList("usbAChanged"));
}

void tst_UsbEject::preparingAForeignPathOnlyTells_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("another folder") << "/media/other";
    QTest::newRow("other case") << "/media/ONE";
    QTest::newRow("a separator at the end") << "/media/one/";
    QTest::newRow("nothing") << "";
}

void tst_UsbEject::preparingAForeignPathOnlyTells()
{
    QFETCH(QString, path);
    const Stick first("/dev/sda1", "/media/one");
    const Stick second("/dev/sdb1", "/media/two");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.prepareUnmount(path);
    QVERIFY(usb.usbA() && usb.usbB());
    QCOMPARE(signalLog.take(), QStringList());
    QCOMPARE(log.lines(), QStringList("DEBUG: USB::prepareUnmount () path =  " + quoted(path)));
}

void tst_UsbEject::preparingAnEmptyPathMatchesAnAbsentStick()
{
    const Stick second("/dev/sdb1", "/media/two");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    usb.prepareUnmount("");
    QVERIFY(!usb.usbA() && usb.usbB());
    QCOMPARE(signalLog.take(), QStringList());

    // The empty path is stick A's also when its flag says otherwise.
    usb.setUsbA(true);
    signalLog.take();
    usb.prepareUnmount("");
    QVERIFY(!usb.usbA() && usb.usbB());
    QCOMPARE(signalLog.take(), QStringList("usbAChanged"));
}

void tst_UsbEject::ofTwoSticksWithOnePathTheFirstIsPrepared()
{
    const Stick first("/dev/sda1", "/media/one");
    const Stick above("/dev/sdb1", "/media/one");
    USB usb;
    usb.find();
    QCOMPARE(usb.usbAPath(), usb.usbBPath());
    usb.prepareUnmount("/media/one");
    QVERIFY(!usb.usbA() && usb.usbB());
    usb.prepareUnmount("/media/one");
    QVERIFY(usb.usbB());
}

void tst_UsbEject::aScanWithoutAnEjectBringsAPreparedStickBack()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    usb.prepareUnmount("/media/one");
    SignalLog signalLog(&usb);
    usb.find();
    QVERIFY(usb.usbA());
    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbASpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbEject::anEjectedStickIsGoneAfterTheScan()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.ejectA();
    QVERIFY(!stick.isMounted());
    QCOMPARE(log.lines(), ejectLines("/media/one"));
    QVERIFY(scansRun(log, 1));

    QVERIFY(!usb.usbA());
    QCOMPARE(usb.usbAPath(), QString());
    QCOMPARE(usb.usbASpace(), qint64(0));
    QCOMPARE(usb.usbAFreeSpace(), QString("0.0 bytes"));
    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbAPathChanged"
                                             << "usbAFreeSpaceChanged"
                                             << "usbASpaceChanged"
                                             << "usbBSpaceChanged");
}

void tst_UsbEject::nothingChangesBeforeTheScanAThousandMillisecondsLater()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    const QStringList before = propertiesOf(usb);
    Clock clock(usb);
    const DebugLog log;

    // Timers of one thread run in the order of their times, however busy the machine is.
    QTimer::singleShot(rescanDelayMs - 1, &clock, SLOT(strike()));
    usb.ejectA();
    QTimer::singleShot(rescanDelayMs + 1, &clock, SLOT(strike()));
    QCOMPARE(propertiesOf(usb), before);
    QVERIFY(waitUntil([&clock] { return clock.strikes().size() == 2; }));

    const QStringList lines = log.lines().mid(ejectLines("").size());
    QCOMPARE(lines.first(), QString("strike"));
    QCOMPARE(lines.at(1), scan);
    QCOMPARE(lines.last(), QString("strike"));
    QCOMPARE(lines.count(scan), 1);
    QCOMPARE(clock.strikes().first(), before);
    QVERIFY(clock.strikes().last() != before);
}

void tst_UsbEject::ejectingTheSecondStickLeavesTheFirst()
{
    const Stick first("/dev/sda1", "/media/one");
    const Stick second("/dev/sdb1", "/media/two");
    USB usb;
    usb.find();
    const DebugLog log;
    usb.ejectB();
    QVERIFY(first.isMounted() && !second.isMounted());
    QCOMPARE(log.lines(), ejectLines("/media/two"));
    QVERIFY(scansRun(log, 1));
    QVERIFY(usb.usbA() && !usb.usbB());
    QCOMPARE(usb.usbBFreeSpace(), QString("0.0 bytes"));
}

void tst_UsbEject::aPreparedStickIsEjectedByItsPath()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    usb.prepareUnmount("/media/one");
    usb.ejectA();
    QVERIFY(!stick.isMounted());
}

void tst_UsbEject::aMountPointWithBlanksIsUnmounted()
{
    const Stick stick("/dev/sda1", "/media/My  own Stick ");
    USB usb;
    usb.find();
    const DebugLog log;
    usb.ejectA();
    QVERIFY(!stick.isMounted());
    QCOMPARE(log.lines(), ejectLines("/media/My  own Stick "));
}

void tst_UsbEject::anyMountPointIsUnmounted()
{
    const Stick third("/dev/sdc1", "/media/three");
    USB usb;
    usb.eject("/media/three");
    QVERIFY(!third.isMounted());
}

void tst_UsbEject::ejectingWithoutSticksTellsAndScans()
{
    USB usb;
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.ejectA();
    usb.ejectB();
    QCOMPARE(log.lines(), ejectLines("") + ejectLines(""));
    QCOMPARE(signalLog.take(), QStringList());
    QVERIFY(scansRun(log, 2));
    QCOMPARE(usb.usbAFreeSpace(), QString("0.0 bytes"));
}

void tst_UsbEject::aBusyStickStaysAndShowsAgain()
{
    const Stick stick("/dev/sda1", "/media/one");
    QFile file(stick.path("open"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    USB usb;
    usb.find();
    usb.prepareUnmount("/media/one");
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.eject("/media/one");
    QVERIFY(stick.isMounted());
    QCOMPARE(log.lines(), ejectLines("/media/one")); // no word of the failure
    QVERIFY(!usb.usbA());
    QVERIFY(scansRun(log, 1));
    QVERIFY(usb.usbA());
    QCOMPARE(signalLog.take(), QStringList() << "usbAChanged"
                                             << "usbASpaceChanged"
                                             << "usbBSpaceChanged");

    file.close();
    usb.ejectA();
    QVERIFY(!stick.isMounted());
}

void tst_UsbEject::aMountPointWithAnUmlautStays()
{
    const Stick stick("/dev/sda1", QString::fromUtf8("/media/Gr\xc3\xbcn"));
    USB usb;
    usb.find();
    QCOMPARE(usb.usbAPath(), stick.mountPoint());
    usb.ejectA();
    QVERIFY(stick.isMounted());
}

void tst_UsbEject::aTabInAMountPointStays()
{
    const Stick stick("/dev/sda1", "/media/My\tStick");
    USB usb;
    usb.find();
    QCOMPARE(usb.usbAPath(), QString("/media/My\\011Stick"));
    usb.ejectA();
    QVERIFY(stick.isMounted());
}

void tst_UsbEject::ejectingTakesTheRightsOfTheProcess()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    {
        const EffectiveUser stranger(strangerUid);
        usb.eject("/media/one");
    }
    QVERIFY(stick.isMounted());
    usb.eject("/media/one");
    QVERIFY(!stick.isMounted());
}

void tst_UsbEject::ejectingTwiceScansTwice()
{
    const Stick stick("/dev/sda1", "/media/one");
    USB usb;
    usb.find();
    SignalLog signalLog(&usb);
    const DebugLog log;
    usb.ejectA();
    usb.ejectA();
    QCOMPARE(log.lines(), ejectLines("/media/one") + ejectLines("/media/one"));
    QVERIFY(scansRun(log, 2));
    QVERIFY(!usb.usbA());
    QCOMPARE(signalLog.count("usbAChanged"), 1);
    QCOMPARE(signalLog.count("usbASpaceChanged"), 2);
}

void tst_UsbEject::oneEjectTakesOneOfTwoMounts()
{
    const Stick below("/dev/sda1", "/media/one", 1024);
    const Stick above("/dev/sda1", "/media/one", 2048);
    USB usb;
    usb.find();
    QCOMPARE(usb.usbASpace(), qint64(2048));
    const DebugLog log;
    usb.ejectA();
    QVERIFY(scansRun(log, 1));
    QVERIFY(usb.usbA());
    QCOMPARE(usb.usbASpace(), qint64(1024));
}

void tst_UsbEject::everyFileSystemIsWrittenOutEvenWhenTheStickStays()
{
    if (!DiskStick::isAllowed())
        QSKIP("disks are for the machine's own root, and a user namespace has another", SkipSingle);
    const DiskStick first("/dev/sda1", "/media/one");
    const DiskStick second("/dev/sdb1", "/media/two");
    const QByteArray words("these words are on the disk");
    QFile busy(first.path("file"));
    QFile other(second.path("file"));
    QVERIFY(busy.open(QIODevice::WriteOnly) && busy.write(words) > 0 && busy.flush());
    QVERIFY(other.open(QIODevice::WriteOnly) && other.write(words) > 0 && other.flush());
    USB usb;
    usb.find();
    usb.ejectA();
    QVERIFY(usb.usbA());
    QVERIFY(first.diskHolds(words));
    QVERIFY(second.diskHolds(words));
}

void tst_UsbEject::anObjectThatIsGoneDoesNotScan()
{
    const USB other;
    Clock clock(other);
    const DebugLog log;
    {
        USB usb;
        usb.ejectA();
    }
    QTimer::singleShot(rescanDelayMs + 1, &clock, SLOT(strike()));
    QVERIFY(waitUntil([&clock] { return clock.strikes().size() == 1; }));
    QCOMPARE(log.lines(), ejectLines("") << "strike");
}

QTEST_MAIN(tst_UsbEject)
#include "tst_usbeject.moc"
