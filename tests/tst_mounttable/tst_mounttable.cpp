#include "usb/mounttable.h"

#include "support/debuglog.h"

#include <QBuffer>
#include <QTest>

namespace {
MountedSticks read(const QByteArray &table)
{
    QBuffer buffer;
    buffer.setData(table);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    return readMountTable(&buffer);
}

QByteArray otherMounts(int count)
{
    QByteArray lines;
    for (int i = 0; i < count; ++i)
        lines += "tmpfs /run/user/" + QByteArray::number(i) + " tmpfs rw,nosuid,nodev 0 0\n";
    return lines;
}
} // namespace

class tst_MountTable : public QObject
{
    Q_OBJECT

private slots:
    void aStickIsTheFirstLineOfItsDevice_data();
    void aStickIsTheFirstLineOfItsDevice();
    void aMountPointIsTheSecondField_data();
    void aMountPointIsTheSecondField();
    void theSticksAreToldInTheOrderOfTheTable();
    void aMissingStickHasAnEmptyPathThatIsNotNull();
    void theTableIsInTheEncodingOfTheLocale();
    void aLineMayBeOfAnyLength();
    void aStickIsFoundAtTheEndOfALongTable();
};

void tst_MountTable::aStickIsTheFirstLineOfItsDevice_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<bool>("hasA");
    QTest::addColumn<QString>("pathA");
    QTest::addColumn<bool>("hasB");
    QTest::addColumn<QString>("pathB");

    const QString none;
    QTest::newRow("empty table") << QByteArray() << false << none << false << none;
    QTest::newRow("no stick") << QByteArray("/dev/root / ext4 rw 0 0\nproc /proc proc rw 0 0\n")
                              << false << none << false << none;
    QTest::newRow("a partition")
        << QByteArray("proc /proc proc rw 0 0\n/dev/sda1 /media/one vfat rw 0 0\n") << true
        << "/media/one" << false << none;
    QTest::newRow("only the second stick") << QByteArray("/dev/sdb1 /media/two vfat rw 0 0\n")
                                           << false << none << true << "/media/two";
    QTest::newRow("both")
        << QByteArray("/dev/sda1 /media/one vfat rw 0 0\n/dev/sdb1 /media/two vfat rw 0 0\n")
        << true << "/media/one" << true << "/media/two";
    QTest::newRow("both, the second first")
        << QByteArray("/dev/sdb1 /media/two vfat rw 0 0\n/dev/sda1 /media/one vfat rw 0 0\n")
        << true << "/media/one" << true << "/media/two";
    QTest::newRow("bare devices")
        << QByteArray("/dev/sda /media/one vfat rw 0 0\n/dev/sdb /media/two vfat rw 0 0\n") << true
        << "/media/one" << true << "/media/two";
    QTest::newRow("two partitions")
        << QByteArray("/dev/sda1 /media/one vfat rw 0 0\n/dev/sda2 /media/two vfat rw 0 0\n")
        << true << "/media/one" << false << none;
    QTest::newRow("the table's order counts, not the partitions' numbers")
        << QByteArray("/dev/sda2 /media/two vfat rw 0 0\n/dev/sda1 /media/one vfat rw 0 0\n")
        << true << "/media/two" << false << none;
    QTest::newRow("one partition mounted twice")
        << QByteArray("/dev/sda1 /media/one vfat rw 0 0\n/dev/sda1 /media/two vfat rw 0 0\n")
        << true << "/media/one" << false << none;
    QTest::newRow("a third stick")
        << QByteArray("/dev/sdc1 /media/three vfat rw 0 0\n") << false << none << false << none;
    QTest::newRow("a name that merely begins alike")
        << QByteArray("/dev/sdaa1 /media/x vfat rw 0 0\n") << true << "/media/x" << false << none;
    QTest::newRow("upper case") << QByteArray("/dev/SDA1 /media/x vfat rw 0 0\n") << false << none
                                << false << none;
    QTest::newRow("a blank in front")
        << QByteArray(" /dev/sda1 /media/x vfat rw 0 0\n") << false << none << false << none;
    QTest::newRow("the device as mount point")
        << QByteArray("tmpfs /dev/sda1 tmpfs rw 0 0\n") << false << none << false << none;
}

void tst_MountTable::aStickIsTheFirstLineOfItsDevice()
{
    QFETCH(QByteArray, table);
    const MountedSticks sticks = read(table);
    QTEST(sticks.a.found, "hasA");
    QTEST(sticks.a.path, "pathA");
    QTEST(sticks.b.found, "hasB");
    QTEST(sticks.b.path, "pathB");
}

void tst_MountTable::aMountPointIsTheSecondField_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("path");

    QTest::newRow("a blank") << QByteArray("/dev/sda1 /media/My\\040Stick vfat rw 0 0\n") << true
                             << "/media/My Stick";
    QTest::newRow("blanks everywhere")
        << QByteArray("/dev/sda1 \\040/\\040\\040x\\040 vfat rw 0 0\n") << true << " /  x ";
    QTest::newRow("a tab stays escaped")
        << QByteArray("/dev/sda1 /media/My\\011Stick vfat rw 0 0\n") << true
        << "/media/My\\011Stick";
    QTest::newRow("a newline stays escaped")
        << QByteArray("/dev/sda1 /media/My\\012Stick vfat rw 0 0\n") << true
        << "/media/My\\012Stick";
    QTest::newRow("a backslash stays escaped")
        << QByteArray("/dev/sda1 /media/My\\134Stick vfat rw 0 0\n") << true
        << "/media/My\\134Stick";
    QTest::newRow("a name that looks like an escape")
        << QByteArray("/dev/sda1 /media/My\\134040Stick vfat rw 0 0\n") << true
        << "/media/My\\134040Stick";
    QTest::newRow("a digit behind a blank")
        << QByteArray("/dev/sda1 /media/\\0400 vfat rw 0 0\n") << true << "/media/ 0";
    QTest::newRow("half an escape")
        << QByteArray("/dev/sda1 /media/\\04 vfat rw 0 0\n") << true << "/media/\\04";
    QTest::newRow("two fields are enough")
        << QByteArray("/dev/sda1 /media/x\n") << true << "/media/x";
    QTest::newRow("one field is not") << QByteArray("/dev/sda1\n") << false << "";
    QTest::newRow("a later line serves")
        << QByteArray("/dev/sda1\n/dev/sda2 /media/two vfat rw 0 0\n") << true << "/media/two";
    QTest::newRow("two blanks have an empty field between them")
        << QByteArray("/dev/sda1  /media/x vfat rw 0 0\n/dev/sda2 /media/two vfat rw 0 0\n") << true
        << "";
    QTest::newRow("a blank at the end has one behind it")
        << QByteArray("/dev/sda1 \n") << true << "";
    QTest::newRow("a tab does not part fields")
        << QByteArray("/dev/sda1\t/media/x vfat rw 0 0\n") << true << "vfat";
    QTest::newRow("no newline at the end")
        << QByteArray("/dev/sda1 /media/x") << true << "/media/x";
    QTest::newRow("empty lines") << QByteArray("\n\n/dev/sda1 /media/x vfat rw 0 0\n\n") << true
                                 << "/media/x";
    QTest::newRow("carriage returns")
        << QByteArray("x\r\n/dev/sda1 /media/x\r\n") << true << "/media/x";
    QTest::newRow("a carriage return at the end")
        << QByteArray("/dev/sda1 /media/x\r") << true << "/media/x";
}

void tst_MountTable::aMountPointIsTheSecondField()
{
    QFETCH(QByteArray, table);
    const MountedSticks sticks = read(table);
    QTEST(sticks.a.found, "found");
    QTEST(sticks.a.path, "path");
    QVERIFY(!sticks.b.found);
}

void tst_MountTable::theSticksAreToldInTheOrderOfTheTable()
{
    const DebugLog log;
    read("/dev/sdb1 /media/Second\\040Stick vfat rw 0 0\n"
         "/dev/sdb2 /media/more vfat rw 0 0\n"
         "/dev/sda\n"
         "/dev/sda1 /media/one vfat rw 0 0\n"
         "/dev/sda2 /media/more vfat rw 0 0\n");
    QCOMPARE(log.lines(), QStringList() << "pathB = \"/media/Second Stick\""
                                        << "pathA = \"/media/one\"");
}

void tst_MountTable::aMissingStickHasAnEmptyPathThatIsNotNull()
{
    const MountedSticks sticks = read("proc /proc proc rw 0 0\n");
    QVERIFY(sticks.a.path.isEmpty() && !sticks.a.path.isNull());
    QVERIFY(sticks.b.path.isEmpty() && !sticks.b.path.isNull());
}

void tst_MountTable::theTableIsInTheEncodingOfTheLocale()
{
    QCOMPARE(read("/dev/sda1 /media/Gr\xc3\xbcn vfat rw 0 0\n").a.path,
             QString::fromUtf8("/media/Gr\xc3\xbcn"));
}

void tst_MountTable::aLineMayBeOfAnyLength()
{
    const QByteArray options(1000000, 'o');
    const MountedSticks sticks =
        read("tmpfs /x tmpfs " + options + " 0 0\n/dev/sda1 /media/one vfat " + options +
             " 0 0\n/dev/sdb1 /media/two\n");
    QCOMPARE(sticks.a.path, QString("/media/one"));
    QCOMPARE(sticks.b.path, QString("/media/two"));
}

void tst_MountTable::aStickIsFoundAtTheEndOfALongTable()
{
    const MountedSticks sticks = read(otherMounts(10000) + "/dev/sdb1 /media/two vfat rw 0 0\n");
    QVERIFY(!sticks.a.found);
    QCOMPARE(sticks.b.path, QString("/media/two"));
}

QTEST_MAIN(tst_MountTable)
#include "tst_mounttable.moc"
