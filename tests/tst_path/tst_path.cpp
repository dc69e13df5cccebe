#include "directory/path.h"

#include "support/signallog.h"
#include "support/surface.h"

#include <QTest>

class tst_Path : public QObject
{
    Q_OBJECT

private slots:
    void aNewPathIsEmpty();
    void everySetterEmitsOnceAndOnlyOnAChange();
    void qmlCanOnlyRead();
    void propertiesAndSignalsStandInTheirOrder();
};

void tst_Path::aNewPathIsEmpty()
{
    const Path path;
    QCOMPARE(path.name(), QString());
    QCOMPARE(path.fullpath(), QString());
}

void tst_Path::everySetterEmitsOnceAndOnlyOnAChange()
{
    Path path;
    SignalLog log(&path);

    for (int i = 0; i < 2; ++i) {
        path.setName("logs");
        path.setFullpath("/home/ostan/logs");
    }

    QCOMPARE(log.names(), QStringList() << "nameChanged"
                                        << "fullpathChanged");
    QCOMPARE(path.name(), QString("logs"));
    QCOMPARE(path.fullpath(), QString("/home/ostan/logs"));
}

void tst_Path::qmlCanOnlyRead()
{
    Path path;
    path.setName("logs");
    QVERIFY(!path.setProperty("name", "other"));
    QVERIFY(!path.setProperty("fullpath", "/other"));
    QCOMPARE(path.property("name").toString(), QString("logs"));
}

void tst_Path::propertiesAndSignalsStandInTheirOrder()
{
    QCOMPARE(surface(Path::staticMetaObject), QStringList() << "QString name r nameChanged"
                                                            << "QString fullpath r fullpathChanged"
                                                            << "signal void nameChanged()"
                                                            << "signal void fullpathChanged()");
}

QTEST_MAIN(tst_Path)
#include "tst_path.moc"
