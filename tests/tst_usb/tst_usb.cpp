#include "usb/usb.h"

#include "support/debuglog.h"
#include "support/signallog.h"
#include "support/stick.h"
#include "support/surface.h"
#include "support/waiting.h"

#include <QTest>
#include <QVariant>

namespace {
/** Tells how many connections a signal has, which only the object itself may ask. */
class Connections : public USB
{
public:
    int of(const char *signal) const
    {
        return receivers(signal);
    }
};
} // namespace

class tst_Usb : public QObject
{
    Q_OBJECT

private slots:
    void propertiesSignalsAndSlotsStandInTheirOrder();
    void aNewObjectKnowsNothing();
    void onlyTheSpaceSignalsAreConnected();
    void aWriterAnnouncesARealChange_data();
    void aWriterAnnouncesARealChange();
    void aWrittenSpaceIsFormatted_data();
    void aWrittenSpaceIsFormatted();
    void aWrittenTextStaysUntilTheSpaceIsAnnounced();
    void aSizeHasOneDecimalInTheLargestUnit_data();
    void aSizeHasOneDecimalInTheLargestUnit();
};

void tst_Usb::propertiesSignalsAndSlotsStandInTheirOrder()
{
    QCOMPARE(surface(USB::staticMetaObject), QStringList()
                                                 << "QString usbAPath rw usbAPathChanged"
                                                 << "QString usbAFreeSpace rw usbAFreeSpaceChanged"
                                                 << "qint64 usbASpace rw usbASpaceChanged"
                                                 << "bool usbA rw usbAChanged"
                                                 << "QString usbBPath rw usbBPathChanged"
                                                 << "QString usbBFreeSpace rw usbBFreeSpaceChanged"
                                                 << "qint64 usbBSpace rw usbBSpaceChanged"
                                                 << "bool usbB rw usbBChanged"
                                                 << "signal void usbAChanged()"
                                                 << "signal void usbADirChanged()"
                                                 << "signal void usbAFreeSpaceChanged()"
                                                 << "signal void usbAPathChanged()"
                                                 << "signal void usbASpaceChanged()"
                                                 << "signal void usbBChanged()"
                                                 << "signal void usbBDirChanged()"
                                                 << "signal void usbBFreeSpaceChanged()"
                                                 << "signal void usbBPathChanged()"
                                                 << "signal void usbBSpaceChanged()"
                                                 << "slot void find()"
                                                 << "slot void readSpaceUsbA()"
                                                 << "slot void readSpaceUsbB()"
                                                 << "slot void prepareUnmount(QString)"
                                                 << "slot void ejectA()"
                                                 << "slot void ejectB()"
                                                 << "slot void eject(QString)"
                                                 << "private slot void updateUsbAFreeSpace()"
                                                 << "private slot void updateUsbBFreeSpace()"
                                                 << "private slot QString getHumanSize(quint64)");
}

void tst_Usb::aNewObjectKnowsNothing()
{
    const Stick stick("/dev/sda1", "/media/one");
    const DebugLog log;
    QObject parent;
    USB *usb = new USB(&parent);
    const SignalLog signalLog(usb);
    letTimePass(50);

    QCOMPARE(usb->parent(), &parent);
    QVERIFY(!usb->usbA() && !usb->usbB());
    QCOMPARE(usb->usbASpace(), qint64(0));
    QCOMPARE(usb->usbBSpace(), qint64(0));
    const QStringList texts = QStringList() << usb->usbAPath() << usb->usbBPath()
                                            << usb->usbAFreeSpace() << usb->usbBFreeSpace();
    for (const QString &text : texts)
        QVERIFY(text.isEmpty() && !text.isNull());
    QCOMPARE(signalLog.names(), QStringList());
    QCOMPARE(log.lines(), QStringList());
}

void tst_Usb::onlyTheSpaceSignalsAreConnected()
{
    const Connections connections;
    QCOMPARE(connections.of(SIGNAL(usbASpaceChanged())), 1);
    QCOMPARE(connections.of(SIGNAL(usbBSpaceChanged())), 1);
    static const char *const others[] = {
        SIGNAL(usbAChanged()),     SIGNAL(usbADirChanged()),       SIGNAL(usbAFreeSpaceChanged()),
        SIGNAL(usbAPathChanged()), SIGNAL(usbBChanged()),          SIGNAL(usbBDirChanged()),
        SIGNAL(usbBPathChanged()), SIGNAL(usbBFreeSpaceChanged()),
    };
    for (const char *signal : others)
        QVERIFY2(connections.of(signal) == 0, signal);
}

void tst_Usb::aWriterAnnouncesARealChange_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("otherValue");

    for (const char *stick : {"usbA", "usbB"}) {
        const QByteArray name(stick);
        // The second text differs in case only.
        QTest::newRow(name + "Path")
            << QByteArray(name + "Path") << QVariant("/media/x") << QVariant("/media/X");
        QTest::newRow(name + "FreeSpace")
            << QByteArray(name + "FreeSpace") << QVariant("1.0 kb") << QVariant("1.0 KB");
        QTest::newRow(stick) << name << QVariant(true) << QVariant(false);
    }
}

void tst_Usb::aWriterAnnouncesARealChange()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(QVariant, otherValue);
    USB usb;
    SignalLog signalLog(&usb);
    const QStringList onlyItsOwn(QString::fromLatin1(property + "Changed"));

    QVERIFY(usb.setProperty(property, value));
    QCOMPARE(usb.property(property), value);
    QCOMPARE(signalLog.take(), onlyItsOwn);

    QVERIFY(usb.setProperty(property, value));
    QCOMPARE(signalLog.take(), QStringList());

    QVERIFY(usb.setProperty(property, otherValue));
    QCOMPARE(usb.property(property), otherValue);
    QCOMPARE(signalLog.take(), onlyItsOwn);
}

void tst_Usb::aWrittenSpaceIsFormatted_data()
{
    QTest::addColumn<QString>("stick");
    QTest::newRow("A") << "usbA";
    QTest::newRow("B") << "usbB";
}

void tst_Usb::aWrittenSpaceIsFormatted()
{
    QFETCH(QString, stick);
    const QByteArray space = stick.toLatin1() + "Space";
    const QByteArray text = stick.toLatin1() + "FreeSpace";
    USB usb;
    SignalLog signalLog(&usb);

    // The text follows through the space's first connection: this log, connected later, is told
    // second.
    const QStringList both = QStringList() << stick + "FreeSpaceChanged" << stick + "SpaceChanged";

    QVERIFY(usb.setProperty(space, Q_INT64_C(1)));
    QCOMPARE(usb.property(text).toString(), QString("1.0 KB"));
    QCOMPARE(signalLog.take(), both);

    QVERIFY(usb.setProperty(space, Q_INT64_C(1)));
    QCOMPARE(signalLog.take(), QStringList());

    QVERIFY(usb.setProperty(space, Q_INT64_C(10000000)));
    QCOMPARE(usb.property(space).toLongLong(), Q_INT64_C(10000000));
    QCOMPARE(usb.property(text).toString(), QString("9.5 GB"));
    QCOMPARE(signalLog.take(), both);

    // Reads the same to one decimal: the text is not announced.
    QVERIFY(usb.setProperty(space, Q_INT64_C(10000001)));
    QCOMPARE(signalLog.take(), QStringList(stick + "SpaceChanged"));
}

void tst_Usb::aWrittenTextStaysUntilTheSpaceIsAnnounced()
{
    USB usb;
    usb.setUsbAFreeSpace("full");
    usb.setUsbASpace(0); // no change, so not announced
    QCOMPARE(usb.usbAFreeSpace(), QString("full"));
    usb.readSpaceUsbB();
    QCOMPARE(usb.usbAFreeSpace(), QString("full"));
    usb.readSpaceUsbA();
    QCOMPARE(usb.usbAFreeSpace(), QString("0.0 bytes"));
}

void tst_Usb::aSizeHasOneDecimalInTheLargestUnit_data()
{
    QTest::addColumn<quint64>("bytes");
    QTest::addColumn<QString>("text");

    QTest::newRow("0") << Q_UINT64_C(0) << "0.0 bytes";
    QTest::newRow("1") << Q_UINT64_C(1) << "1.0 bytes";
    QTest::newRow("below a KB") << Q_UINT64_C(1023) << "1023.0 bytes";
    QTest::newRow("a KB") << Q_UINT64_C(1024) << "1.0 KB";
    QTest::newRow("one and a half KB") << Q_UINT64_C(1536) << "1.5 KB";
    QTest::newRow("the unit is chosen before rounding") << Q_UINT64_C(1048575) << "1024.0 KB";
    QTest::newRow("a MB") << Q_UINT64_C(1048576) << "1.0 MB";
    QTest::newRow("below a GB") << Q_UINT64_C(1073741823) << "1024.0 MB";
    QTest::newRow("a GB") << Q_UINT64_C(1073741824) << "1.0 GB";
    QTest::newRow("3.7 GB") << Q_UINT64_C(4000000000) << "3.7 GB";
    QTest::newRow("a TB") << (Q_UINT64_C(1) << 40) << "1.0 TB";
    QTest::newRow("the units end at TB") << (Q_UINT64_C(1) << 50) << "1024.0 TB";
    QTest::newRow("far beyond") << (Q_UINT64_C(1) << 60) << "1048576.0 TB";
    QTest::newRow("the most") << ~Q_UINT64_C(0) << "16777216.0 TB";
}

void tst_Usb::aSizeHasOneDecimalInTheLargestUnit()
{
    QFETCH(quint64, bytes);
    USB usb;
    QString text;
    QVERIFY(QMetaObject::invokeMethod(&usb, "getHumanSize", Q_RETURN_ARG(QString, text),
                                      Q_ARG(quint64, bytes)));
    QTEST(text, "text");
}

QTEST_MAIN(tst_Usb)
#include "tst_usb.moc"
