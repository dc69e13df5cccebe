#include "support/debuglog.h"
#include "support/screens.h"
#include "support/stick.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtTest>

namespace {
const time_t noon = 1371117600; // 13 June 2013, 12:00 in Berlin
const time_t day = 86400;       // seconds
const QString stickPath = "/media/Field Data";
const int lingeringMs = 60000; // an emulated machine takes its time to draw after each file

QString numbered(int number)
{
    return QString("run_%1.csv").arg(number, 5, 10, QLatin1Char('0'));
}

void makeFiles(const DataFolder &folder, int count, qint64 bytes)
{
    for (int i = 0; i < count; ++i) {
        folder->file(numbered(i), bytes);
    }
}

int countFiles(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files).size();
}

// Copies one file at a time after the first 64, so that much can happen meanwhile, however fast the
// machine is.
void linger(Screens &screens)
{
    QVERIFY(screens->sets("copier", "portionMs", 0));
}

void put(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(contents);
}
} // namespace

/** Copies from the list screen: what is said before, while and after, and what is on the stick
 * then. */
class TestCopying : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void copiesToAStickAndSaysSo();
    void asksForASelectionFirst();
    void tellsApartWhyEachWasNotCopied();
    void namesWithBlanksAreToldApart();
    void thousandsOfNamesAreToldApartAtOnce();
    void namesAreListedFromTheFirstOneOn();
    void marksInOtherFoldersAreCopiedToo();

    void spaceIsComparedBefore();
    void filesThatAreThereNeedNoSpace();
    void whatFitsIsCopiedToAFullStick();
    void nothingIsTriedOnAStickThatRefusesIt();
    void aFileThatVanishedIsNamed_data();
    void aFileThatVanishedIsNamed();

    void showsHowFarItIs();
    void eachFileIsTriedOnce();
    void stopsBetweenFilesAndKeepsTheOtherMarks();
    void aStickThatIsPulledEndsIt();
    void anAccountThatIsLostEndsIt();
    void aFolderListedAnewMeanwhileHangsNothing();
    void aSecondCopyBeginsAnew();
};

void TestCopying::initTestCase()
{
    Viewer::chooseFonts();
}

void TestCopying::copiesToAStickAndSaysSo()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "first", noon);
    logs->file("b.csv", "second", noon - day);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->sees("stickName", "Field Data"));
    QVERIFY(screens->sees("stickState", "64 MB free"));
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("mark:b.csv"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "2 files copied to Field Data"));
    QVERIFY(screens->sees("summary", "Nothing selected"));
    QCOMPARE(QFileInfo(stick.path("a.csv")).lastModified(),
             QDateTime::fromMSecsSinceEpoch(noon * Q_INT64_C(1000)));
    QCOMPARE(QFileInfo(stick.path("b.csv")).size(), qint64(6));
}

void TestCopying::asksForASelectionFirst()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "Nothing is selected."));
}

void TestCopying::tellsApartWhyEachWasNotCopied()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("a.csv", "new", noon);
    logs->file("b.csv", "second", noon - day);
    const Stick stick("/dev/sdb1", stickPath);
    put(stick.path("a.csv"), "");
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("mark:b.csv"));
    QVERIFY(screens->taps("mark:soil"));
    QVERIFY(screens->sees("summary", "2 files and 1 folder, 9 bytes"));
    QVERIFY(screens->taps("copy:B"));
    QVERIFY(screens->sees("outcomeText", "1 of 2 files copied to Field Data"));
    const QStringList expected = QStringList() << "soil"
                                               << "a.csv";
    QCOMPARE(screens.namedOnce(expected), expected);
    QVERIFY(screens->sees("namedRemark", "A folder: only files are copied"));
    QVERIFY(screens->sees("namedRemark", "There already, left as it was"));
    QCOMPARE(QFileInfo(stick.path("a.csv")).size(), qint64(0));
    QVERIFY(screens->taps("outcomeOk"));
    QCOMPARE(screens.text("summary"), QString("1 file and 1 folder, 3 bytes"));
    QCOMPARE(screens->property("row:b.csv", "isMarked").toBool(), false);
    QCOMPARE(screens->property("row:a.csv", "isMarked").toBool(), true);
}

// The module tells them in one text with a blank between them.
void TestCopying::namesWithBlanksAreToldApart()
{
    const DataFolder logs("logs");
    logs->file("a b", "1", noon);
    logs->file("b", "1", noon - day);
    logs->file("c  d ", "1", noon - 2 * day);
    const Stick stick("/dev/sda1", stickPath);
    put(stick.path("a b"), "");
    put(stick.path("c  d "), "");
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "1 of 3 files copied to Field Data"));
    const QStringList expected = QStringList() << "a b"
                                               << "c  d ";
    QCOMPARE(screens.namedOnce(expected), expected);
    QCOMPARE(QFileInfo(stick.path("b")).size(), qint64(1));
}

void TestCopying::thousandsOfNamesAreToldApartAtOnce()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", stickPath);
    makeFiles(logs, 3000, 1);
    logs->file("a b", "1");
    for (int i = 0; i < 3000; ++i) {
        put(stick.path(numbered(i)), "");
    }
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "1 of 3001 files copied to Field Data"));
}

// Also after those of another copy were scrolled.
void TestCopying::namesAreListedFromTheFirstOneOn()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", stickPath);
    makeFiles(logs, 20, 1);
    for (int i = 0; i < 20; ++i) {
        put(stick.path(numbered(i)), "");
    }
    Screens screens;
    QVERIFY(screens->taps("heading:Name"));
    QVERIFY(screens->sees("row:" + numbered(0)));
    QVERIFY(screens->taps("button:Select all"));
    for (int copy = 0; copy < 2; ++copy) {
        QVERIFY(screens->taps("copy:A"));
        QVERIFY(screens->sees("outcomeText", "0 of 20 files copied to Field Data"));
        QVERIFY(
            waitUntil([&] { return screens.top("named:" + numbered(0)) == screens.top("names"); }));
        QVERIFY(screens->drags("names", QPoint(0, -100)));
        QVERIFY(waitUntil(
            [&] { return screens.top("named:" + numbered(3)) < screens.top("names") + 100; }));
        QVERIFY(screens->taps("outcomeOk"));
    }
}

void TestCopying::marksInOtherFoldersAreCopiedToo()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("soil/flux.csv", "1");
    logs->file("soil/there.csv", "1");
    logs->file("a.csv", "1");
    const Stick stick("/dev/sda1", stickPath);
    put(stick.path("there.csv"), "");
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("row:soil"));
    QVERIFY(screens->taps("mark:flux.csv"));
    QVERIFY(screens->taps("mark:there.csv"));
    QVERIFY(screens->taps("crumb:logs"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "2 of 3 files copied to Field Data"));
    QVERIFY(screens->taps("outcomeOk"));
    QVERIFY(screens->sees("row:a.csv"));
    QCOMPARE(screens.text("summary"), QString("1 file selected, 1 byte"));
    QCOMPARE(screens.text("detail"), QString("there.csv"));
    QVERIFY(screens->taps("row:soil"));
    QVERIFY(screens->sees("row:there.csv"));
    QVERIFY(waitUntil([&] { return screens->property("row:there.csv", "isMarked").toBool(); }));
    QCOMPARE(screens->property("row:flux.csv", "isMarked").toBool(), false);
    QVERIFY(screens->taps("mark:there.csv"));
    QVERIFY(screens->sees("summary", "Nothing selected"));
}

void TestCopying::spaceIsComparedBefore()
{
    const DataFolder logs("logs");
    logs->file("large.bin", qint64(3 * 1024 * 1024));
    const Stick stick("/dev/sda1", stickPath, 1024);
    Screens screens;
    QVERIFY(screens->taps("mark:large.bin"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("question", "Needs 3 MB, 1 MB are free on Field Data."));
    QVERIFY(screens->taps("answer:no"));
    QVERIFY(screens->misses("question"));
    QCOMPARE(countFiles(stickPath), 0);
    QCOMPARE(screens.text("summary"), QString("1 file selected, 3 MB"));
}

void TestCopying::filesThatAreThereNeedNoSpace()
{
    const DataFolder logs("logs");
    logs->file("large.bin", qint64(3 * 1024 * 1024));
    const Stick stick("/dev/sda1", stickPath, 1024);
    put(stick.path("large.bin"), "");
    Screens screens;
    QVERIFY(screens->taps("mark:large.bin"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "0 of 1 file copied to Field Data"));
    QVERIFY(screens->sees("namedRemark", "There already, left as it was"));
}

void TestCopying::whatFitsIsCopiedToAFullStick()
{
    const DataFolder logs("logs");
    logs->file("large.bin", qint64(3 * 1024 * 1024));
    logs->file("small.csv", qint64(1024));
    const Stick stick("/dev/sda1", stickPath, 1024);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("outcomeText", "1 of 2 files copied to Field Data"));
    QVERIFY(screens->sees("namedName", "large.bin"));
    QVERIFY(screens->sees("namedRemark", "The stick is full"));
    QCOMPARE(QDir(stickPath).entryList(QDir::Files), QStringList("small.csv"));
    QVERIFY(screens->taps("outcomeOk"));
    QCOMPARE(screens.text("detail"), QString("large.bin"));
}

void TestCopying::nothingIsTriedOnAStickThatRefusesIt()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "1");
    const Stick stick("/dev/sda1", stickPath, 1024, Stick::ReadOnly);
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "Nothing was copied to Field Data."));
    QCOMPARE(screens.text("noticeDetail"), QString("The stick is write-protected"));
    QCOMPARE(screens.text("summary"), QString("1 file selected, 1 byte"));
}

void TestCopying::aFileThatVanishedIsNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("any name") << "a.csv";
    QTest::newRow("a name that every object of a script knows") << "constructor";
}

void TestCopying::aFileThatVanishedIsNamed()
{
    QFETCH(QString, name);
    const DataFolder logs("logs");
    logs->file(name, "1");
    logs->file("b.csv", "1");
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(QFile::remove(logs->path(name)));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "1 of 2 files copied to Field Data"));
    QVERIFY(screens->sees("namedName", name));
    QVERIFY(screens->sees("namedRemark", "No longer in its folder"));
}

void TestCopying::showsHowFarItIs()
{
    const DataFolder logs("logs");
    makeFiles(logs, 128, 16384);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->sees("summary", "128 files selected, 2 MB"));
    linger(screens);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens.text("progressFile").startsWith("run_")); // the first one may take minutes
    QVERIFY(screens->sees("progressTitle", "Copying to Field Data"));
    QStringList steps;
    QVERIFY(waitUntil(
        [&] {
            const QString now = screens.text("progressText");
            if (!now.isEmpty() && (steps.isEmpty() || steps.last() != now)) {
                steps << now;
            }
            return screens->property("noticeText", "text").isValid();
        },
        lingeringMs));
    QVERIFY2(steps.size() >= 5, qPrintable(steps.join("; ")));
    int last = -1;
    for (const QString &step : steps) {
        QVERIFY2(step.endsWith(" of 2 MB") && step.contains(" of 128 files, "), qPrintable(step));
        const int files = step.section(' ', 0, 0).toInt();
        QVERIFY(files > last);
        last = files;
    }
    QCOMPARE(screens.text("noticeText"), QString("128 files copied to Field Data"));
    QCOMPARE(countFiles(stickPath), 128);
}

// By itself the module forgets what it has copied only a while later, and copies that again until
// then.
void TestCopying::eachFileIsTriedOnce()
{
    const DataFolder logs("logs");
    makeFiles(logs, 72, 1024);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    linger(screens);
    const DebugLog log;
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "72 files copied to Field Data"));
    const QStringList tries = log.lines().filter("Directory::copySelectedTo()");
    QCOMPARE(tries.size(), 72);
}

void TestCopying::stopsBetweenFilesAndKeepsTheOtherMarks()
{
    const DataFolder logs("logs");
    makeFiles(logs, 160, 1024);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    linger(screens);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->taps("progressCancel"));
    QVERIFY(screens->misses("progressTitle"));
    QVERIFY(screens->sees("outcomeText"));
    const int copied = countFiles(stickPath);
    QVERIFY(copied > 0);
    QVERIFY(copied < 160);
    QCOMPARE(screens.text("outcomeText"),
             QString("%1 of 160 files copied to Field Data").arg(copied));
    QCOMPARE(screens.text("outcomeDetail"),
             QString("Stopped. %1 files were not tried and stay marked.").arg(160 - copied));
    QVERIFY(screens->taps("outcomeOk"));
    QVERIFY(screens.text("summary").startsWith(QString("%1 files selected").arg(160 - copied)));

    // The rest goes as well, and the marks stay right beyond the module's own 200 ms.
    Visitor::rests(300);
    QVERIFY(screens.text("summary").startsWith(QString("%1 files selected").arg(160 - copied)));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", QString("%1 files copied").arg(160 - copied)));
    QCOMPARE(countFiles(stickPath), 160);
}

void TestCopying::aStickThatIsPulledEndsIt()
{
    const DataFolder logs("logs");
    makeFiles(logs, 160, 1024);
    Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    linger(screens);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(waitUntil([&] { return countFiles(stickPath) > 0; }));
    stick.pull();
    QVERIFY(screens->sees("outcomeText"));
    QVERIFY(screens.text("outcomeDetail").startsWith("The stick is gone. "));
    QVERIFY(screens.text("outcomeDetail").endsWith(" files were not tried and stay marked."));
    QCOMPARE(countFiles(stickPath), 0); // nothing in the folder that the stick was mounted on
    QVERIFY(screens->misses("copy:A"));
}

void TestCopying::anAccountThatIsLostEndsIt()
{
    const DataFolder logs("logs");
    makeFiles(logs, 160, 1024);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    linger(screens);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(waitUntil([&] { return countFiles(stickPath) > 0; }));
    const AccountDatabase database("root:x:0:0:root:/root:/bin/sh\n");
    QVERIFY(screens->sees("outcomeText"));
    QVERIFY(screens.text("outcomeDetail")
                .startsWith("Unable to drop priviledges: Username 'ostan' not found"));
}

// Qt 4.8 lets timers that are due fire inside the signals of a listing, while the object is locked.
void TestCopying::aFolderListedAnewMeanwhileHangsNothing()
{
    const DataFolder logs("logs");
    makeFiles(logs, 160, 1024);
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("button:Select all"));
    linger(screens);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(waitUntil(
        [&] {
            screens.listAnew();
            return screens->property("noticeText", "text").isValid();
        },
        lingeringMs));
    QCOMPARE(screens.text("noticeText"), QString("160 files copied to Field Data"));
    QCOMPARE(countFiles(stickPath), 160);
}

void TestCopying::aSecondCopyBeginsAnew()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "1");
    logs->file("b.csv", "1");
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->taps("noticeOk"));
    QVERIFY(screens->taps("mark:b.csv"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "1 file copied to Field Data"));
    QCOMPARE(countFiles(stickPath), 2);
}

QTEST_MAIN(TestCopying)
#include "tst_copying.moc"
