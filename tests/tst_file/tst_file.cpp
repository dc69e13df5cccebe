#include "directory/file.h"

#include "support/signallog.h"
#include "support/surface.h"

#include <QTest>

#include <limits>

class tst_File : public QObject
{
    Q_OBJECT

private slots:
    void aNewFileIsEmpty();
    void everySetterEmitsOnceAndOnlyOnAChange();
    void sizeReadsAsAWholeNumberWithItsUnit_data();
    void sizeReadsAsAWholeNumberWithItsUnit();
    void unitsAreTruncatedTowardZero_data();
    void unitsAreTruncatedTowardZero();
    void propertiesAndSignalsStandInTheirOrder();
};

void tst_File::aNewFileIsEmpty()
{
    const File file;
    QCOMPARE(file.name(), QString());
    QCOMPARE(file.date(), QString());
    QCOMPARE(file.sizeBytes(), qint64(0));
    QCOMPARE(file.size(), QString("0 bytes"));
    QVERIFY(!file.isDir());
    QVERIFY(!file.isSelected());
}

void tst_File::everySetterEmitsOnceAndOnlyOnAChange()
{
    File file;
    SignalLog log(&file);

    for (int i = 0; i < 2; ++i) {
        file.setName("soil.csv");
        file.setDate("6/1/13");
        file.setSize(17);
        file.setIsDir(true);
        file.setIsSelected(true);
    }

    QCOMPARE(log.take(), QStringList() << "nameChanged"
                                       << "dateChanged"
                                       << "sizeChanged"
                                       << "isDirChanged"
                                       << "isSelectedChanged");
    QCOMPARE(file.name(), QString("soil.csv"));
    QCOMPARE(file.date(), QString("6/1/13"));
    QCOMPARE(file.sizeBytes(), qint64(17));
    QVERIFY(file.isDir());
    QVERIFY(file.isSelected());

    file.setName(QString());
    file.setSize(0);
    file.setIsDir(false);
    file.setIsSelected(false);
    QCOMPARE(log.take(), QStringList() << "nameChanged"
                                       << "sizeChanged"
                                       << "isDirChanged"
                                       << "isSelectedChanged");
}

void tst_File::sizeReadsAsAWholeNumberWithItsUnit_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("text");
    const qint64 one = 1;
    QTest::newRow("nothing") << qint64(0) << "0 bytes";
    QTest::newRow("one byte") << qint64(1) << "1 bytes";
    QTest::newRow("below the first step") << qint64(1023) << "1023 bytes";
    QTest::newRow("the first step") << qint64(1024) << "1 KB";
    QTest::newRow("rounds to the nearest") << qint64(1536) << "2 KB";
    QTest::newRow("unit chosen before rounding") << qint64(1048575) << "1024 KB";
    QTest::newRow("1 MB") << qint64(1048576) << "1 MB";
    QTest::newRow("1 GB") << (one << 30) << "1 GB";
    QTest::newRow("1 TB") << (one << 40) << "1 TB";
    QTest::newRow("stays in TB") << (one << 50) << "1024 TB";
    QTest::newRow("2048 TB") << (one << 51) << "2048 TB";
    QTest::newRow("single precision rounds up into the next unit") << ((one << 30) - 1) << "1 GB";
    QTest::newRow("negative") << qint64(-5) << "-5 bytes";
    QTest::newRow("negative thousands") << qint64(-4096) << "-4096 bytes";
    QTest::newRow("the largest") << std::numeric_limits<qint64>::max() << "8388608 TB";
}

void tst_File::sizeReadsAsAWholeNumberWithItsUnit()
{
    QFETCH(qint64, bytes);
    QFETCH(QString, text);
    File file;
    file.setSize(bytes);
    QCOMPARE(file.size(), text);
    QCOMPARE(file.property("size").toString(), text);
}

void tst_File::unitsAreTruncatedTowardZero_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<qint64>("kb");
    QTest::addColumn<qint64>("mb");
    QTest::addColumn<qint64>("gb");
    QTest::newRow("1023") << qint64(1023) << qint64(0) << qint64(0) << qint64(0);
    QTest::newRow("3000") << qint64(3000) << qint64(2) << qint64(0) << qint64(0);
    QTest::newRow("-1") << qint64(-1) << qint64(0) << qint64(0) << qint64(0);
    QTest::newRow("-3000") << qint64(-3000) << qint64(-2) << qint64(0) << qint64(0);
    QTest::newRow("5 GB - 1") << qint64(5368709119LL) << qint64(5242879) << qint64(5119)
                              << qint64(4);
}

void tst_File::unitsAreTruncatedTowardZero()
{
    QFETCH(qint64, bytes);
    File file;
    file.setSize(bytes);
    QTEST(file.sizeKB(), "kb");
    QTEST(file.sizeMB(), "mb");
    QTEST(file.sizeGB(), "gb");
}

void tst_File::propertiesAndSignalsStandInTheirOrder()
{
    QCOMPARE(surface(File::staticMetaObject), QStringList()
                                                  << "QString name rw nameChanged"
                                                  << "QString date rw dateChanged"
                                                  << "QString size r sizeChanged"
                                                  << "bool isDir rw isDirChanged"
                                                  << "bool isSelected rw isSelectedChanged"
                                                  << "signal void nameChanged()"
                                                  << "signal void dateChanged()"
                                                  << "signal void sizeChanged()"
                                                  << "signal void isDirChanged()"
                                                  << "signal void isSelectedChanged()");
}

QTEST_MAIN(tst_File)
#include "tst_file.moc"
