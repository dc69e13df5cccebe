// Sticks that are gone, or as good as gone, before one is done with them: no call hangs, what is
// missing is named, and the next scan tells the truth.

#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include "support/debuglog.h"
#include "support/ondisksticks.h"
#include "support/reaction.h"
#include "support/treeparts.h"

#include <QElapsedTimer>

#include <functional>

#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
const int deadlineMs = 20000;
const unsigned hangSeconds = 120;
const int attempts = 8;
const qint64 large = 48 << 20;

/** Stops the process @p id and waits until it stands still. */
void stop(pid_t id)
{
    const QByteArray path = "/proc/" + QByteArray::number(id) + "/stat";
    kill(id, SIGSTOP);
    char state = 0;
    while (state != 'T') {
        char text[256] = "";
        const int file = open(path.constData(), O_RDONLY);
        if (read(file, text, sizeof text - 1) > 0)
            state = strrchr(text, ')')[2];
        close(file);
    }
}

/**
 * Somebody who does something to @p stick when a part of what needs so many kilobytes has been
 * written to it. In a process of its own, which has the rights for it while this one has switched
 * its user id, and which holds this one so that the part stays a part meanwhile.
 */
class Hand
{
public:
    Hand(const DiskStick &stick, qint64 kilobytes, const std::function<void()> &action)
    {
        int ready[2];
        if (pipe(ready) != 0)
            qFatal("no pipe");
        m_process = fork();
        if (m_process == 0)
            act(stick, kilobytes, action, ready[1]);
        char byte;
        if (read(ready[0], &byte, 1) != 1)
            qFatal("nobody is there to touch the stick");
        close(ready[0]);
        close(ready[1]);
    }

    /** Whether that was when only a part was written. */
    bool wasInTime()
    {
        int status = -1;
        return waitpid(m_process, &status, 0) == m_process && status == 0;
    }

private:
    // A file that is being written has no name everywhere: what is free tells.
    static void act(const DiskStick &stick, qint64 kilobytes, const std::function<void()> &action,
                    int ready)
    {
        alarm(hangSeconds);
        const pid_t copier = getppid();
        const qint64 before = stick.freeKilobytes();
        if (write(ready, "", 1) != 1)
            _exit(1);
        while (before - stick.freeKilobytes() < kilobytes / 16) {
        }
        stop(copier);
        const bool isInTime = before - stick.freeKilobytes() < kilobytes;
        action();
        kill(copier, SIGCONT);
        _exit(isInTime ? 0 : 1);
    }

    pid_t m_process;
};

/** Runs @p action. @return whether it returned in time; if it never does the test ends */
bool returns(const std::function<void()> &action)
{
    QElapsedTimer timer;
    timer.start();
    alarm(hangSeconds);
    action();
    alarm(0);
    return timer.elapsed() < deadlineMs;
}
} // namespace

class tst_PulledSticks : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_log.reset(new DebugLog);
    }
    void cleanup()
    {
        m_log.reset();
    }
    void whileCopying_data();
    void whileCopying();
    void whileTheTreeCopies_data();
    void whileTheTreeCopies();
    void failingWhileCopying_data();
    void failingWhileCopying();
    void beforeEjecting_data();
    void beforeEjecting();
    void whileEjecting_data();
    void whileEjecting();
    void whileScanning_data();
    void whileScanning();

private:
    QScopedPointer<DebugLog> m_log;
};

void tst_PulledSticks::whileCopying_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("isCut");
    QTest::newRow("ext4") << int(DiskStick::Ext4) << true;
    QTest::newRow("exFAT") << int(DiskStick::ExFat) << true;
    QTest::newRow("FAT") << int(DiskStick::Fat) << true;
    QTest::newRow("NTFS") << int(DiskStick::Ntfs) << true;
    QTest::newRow("ext4, unmounted only") << int(DiskStick::Ext4) << false;
    QTest::newRow("exFAT, unmounted only") << int(DiskStick::ExFat) << false;
}

void tst_PulledSticks::whileCopying()
{
    NEED_FORMAT;
    QFETCH(bool, isCut);
    const TestDir dir;
    dir.file("a large.csv", large);
    dir.file("b.csv", pattern(100));
    bool wasInTime = false;
    for (int i = 0; i < attempts && !wasInTime; ++i) {
        const DiskStick stick(device, place, 65536, type, DiskStick::Account);
        Selection selection(dir);
        USB usb;
        usb.find();
        QVERIFY(usb.usbA());
        Hand hand(stick, large / 1024, [&] {
            if (isCut)
                stick.cut();
            stick.unmount();
        });
        QString failed;
        QVERIFY(returns([&] { failed = selection.copyToStick(); }));
        wasInTime = hand.wasInTime();
        if (wasInTime)
            QCOMPARE(failed, QString("a large.csv b.csv"));
        QCOMPARE(geteuid(), uid_t(0));
        QVERIFY(returns([&] { usb.find(); }));
        QVERIFY(!usb.usbA());
        QCOMPARE(usb.usbAPath(), QString());
        QCOMPARE(usb.usbASpace(), qint64(0));
        selection.directory.refresh();
        QCOMPARE(selection.directory.filesCount(), 2);
    }
    QVERIFY2(wasInTime, "the copy was always done before");
}

void tst_PulledSticks::whileTheTreeCopies_data()
{
    addFormats();
}

void tst_PulledSticks::whileTheTreeCopies()
{
    NEED_FORMAT;
    const TestDir dir;
    dir.file("large.csv", large);
    bool wasInTime = false;
    for (int i = 0; i < attempts && !wasInTime; ++i) {
        const DiskStick stick(device, place, 65536, type, DiskStick::Account);
        FileTreeViewerItem tree;
        tree.setIsSelectable(true);
        tree.setRoot(dir.path());
        QVERIFY(TreeParts(&tree).waitFor(dir.path(), "large.csv"));
        tree.selectAll();
        Hand hand(stick, large / 1024, [&] { stick.pull(); });
        QString failed;
        QVERIFY(returns([&] { failed = tree.copyCheckedFilesTo(place); }));
        wasInTime = hand.wasInTime();
        if (wasInTime)
            QCOMPARE(failed, QString("large.csv"));
        QCOMPARE(tree.checkedFilesKB(), quint64(0));
    }
    QVERIFY2(wasInTime, "the copy was always done before");
}

void tst_PulledSticks::failingWhileCopying_data()
{
    addFormats();
}

// What is written goes to memory first, so that either may be told of a file. But told is
// something, and soon.
void tst_PulledSticks::failingWhileCopying()
{
    NEED_FORMAT;
    const TestDir dir;
    dir.file("a large.csv", large);
    dir.file("b.csv", pattern(100));
    bool wasInTime = false;
    for (int i = 0; i < attempts && !wasInTime; ++i) {
        const DiskStick stick(device, place, 65536, type, DiskStick::Account);
        Selection selection(dir);
        USB usb;
        Hand hand(stick, large / 1024, [&] { stick.cut(); });
        QVERIFY(returns([&] { selection.copyToStick(); }));
        wasInTime = hand.wasInTime();
        QCOMPARE(geteuid(), uid_t(0));
        QVERIFY(returns([&] { usb.find(); }));
        QCOMPARE(usb.usbAPath(), QString(place)); // so the mount table says
        QVERIFY(returns([&] { usb.ejectA(); }));
        QVERIFY(returns([&] { usb.find(); }));
        QVERIFY(!usb.usbA());
        QVERIFY(!stick.isMounted());
    }
    QVERIFY2(wasInTime, "the copy was always done before");
}

void tst_PulledSticks::beforeEjecting_data()
{
    addFormats();
}

// What was copied is lost, and no call says so: nothing was asked to wait for the disk.
void tst_PulledSticks::beforeEjecting()
{
    NEED_FORMAT;
    const TestDir dir;
    dir.file("a.csv", pattern(100000));
    const DiskStick stick(device, place, 16384, type, DiskStick::Account);
    USB usb;
    usb.find();
    QVERIFY(usb.usbA());
    Selection selection(dir);
    QCOMPARE(selection.copyToStick(), QString());
    stick.cut();

    QVERIFY(returns([&] { usb.ejectA(); }));
    QVERIFY(returns([&] { usb.find(); }));
    QVERIFY(!usb.usbA());
    QVERIFY(!stick.isMounted());
    QCOMPARE(usb.usbAFreeSpace(), QString("0.0 bytes"));
}

void tst_PulledSticks::whileEjecting_data()
{
    addFormats();
}

void tst_PulledSticks::whileEjecting()
{
    NEED_FORMAT;
    const TestDir dir;
    dir.file("a.csv", pattern(100000));
    const char *const steps[] = {"sync()", "umount"};
    for (const char *step : steps) {
        const DiskStick stick(device, place, 16384, type, DiskStick::Account);
        USB usb;
        usb.find();
        Selection selection(dir);
        QCOMPARE(selection.copyToStick(), QString());
        bool isCut = false;
        m_log->atLine(step, [&] {
            stick.cut();
            isCut = true;
        });
        QVERIFY(returns([&] { usb.ejectA(); }));
        QVERIFY(isCut);
        QVERIFY(returns([&] { usb.find(); }));
        QVERIFY(!usb.usbA());
        QCOMPARE(usb.usbASpace(), qint64(0));
        QVERIFY(!stick.isMounted());
    }
}

void tst_PulledSticks::whileScanning_data()
{
    addFormats();
}

void tst_PulledSticks::whileScanning()
{
    NEED_FORMAT;
    const DiskStick stick(device, place, 16384, type, DiskStick::Account);
    USB usb;
    const Reaction pulling(&usb, SIGNAL(usbAPathChanged()), [&] { stick.pull(); });
    QVERIFY(returns([&] { usb.find(); }));
    QVERIFY(usb.usbA()); // so the mount table said
    QCOMPARE(usb.usbASpace(), qint64(0));
    QVERIFY(returns([&] { usb.find(); }));
    QVERIFY(!usb.usbA());
}

QTEST_MAIN(tst_PulledSticks)
#include "tst_pulledsticks.moc"
