#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/listing.h"
#include "support/moment.h"
#include "support/oddnames.h"
#include "support/stick.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {
const time_t someDay = 1370000000;
const char copyOption[] = "--copy";
const char timesMissed[] = "WARNING: Directory::copySelectedTo() - Failed to copy date modified!";

/** What is written before each copy: two texts end in a blank and the stream adds one. */
QString copyLine(const QString &source, const QString &destination)
{
    return "DEBUG: Directory::copySelectedTo()  " + quoted(source) + "  to dest  " +
           quoted(destination);
}

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status;
}

qint64 freeBytes(const QString &path)
{
    struct statvfs space;
    if (statvfs(QFile::encodeName(path).constData(), &space) != 0)
        return -1;
    return qint64(space.f_bfree) * qint64(space.f_frsize);
}

bool isAscii(const QString &text)
{
    return QString::fromLatin1(text.toUtf8()) == text;
}

/** The other program in which a copy is killed. */
int copyEverything(const QString &folder, const QString &destination)
{
    Directory directory;
    directory.setCurrentPath(folder);
    directory.selectAll();
    return directory.copySelectedTo(destination).isEmpty() ? 0 : 1;
}
} // namespace

class tst_DirectoryCopy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void copiesAreMadeInTheOrderOfPathsAndWrittenDown();
    void theSelectionIsClearedLaterAndNothingListed();
    void copyingNothingClearsAsWell();
    void whatIsSelectedMeanwhileIsClearedToo();
    void filesOfOtherFoldersAreCopied();

    void aCopyHasTheTimesOfItsSource();
    void oddNamesAreCopiedAndLettersBeyondAsciiLoseTheirTimes_data();
    void oddNamesAreCopiedAndLettersBeyondAsciiLoseTheirTimes();
    void aDestinationBeyondAsciiLosesTheTimes();
    void aSeparatorAtTheEndIsDoubled();
    void aLinkIsCopiedAsTheFileItLeadsTo();
    void aThousandSmallFilesKeepTheirTimes();
    void aGigabyteIsCopied();

    void anExistingFileIsLeftUntouched();
    void aFolderInTheWayIsLeftUntouched();
    void severalFailuresAreNamedInTheOrderOfPaths();
    void theSecondOfTwoEqualNamesFails();
    void aFileIsNotCopiedOntoItself();
    void aFolderIsNotCopied();
    void aVanishedSourceFails();
    void aRenamedSourceFailsUnderItsOldName();
    void whatTheAccountMayNotReadFails();

    void aDestinationThatTakesNothingGetsNothing_data();
    void aDestinationThatTakesNothingGetsNothing();
    void noDestinationIsTheTopFolder();
    void aReadOnlyStickGetsNothing();
    void aFullStickKeepsNothingHalfWritten_data();
    void aFullStickKeepsNothingHalfWritten();
    void whatStillFitsIsCopied();
    void aKillLeavesTheSourcesUntouched();

private:
    void list();
    void select(const QString &name);

    TestDir *m_folder;
    Stick *m_stick;
    Directory *m_directory;
};

void tst_DirectoryCopy::init()
{
    m_folder = new TestDir;
    m_stick = new Stick("/dev/sda1", "/media/My Stick");
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
}

// Whatever happened, nothing lies about where Qt takes refuge when a stick refuses a file.
void tst_DirectoryCopy::cleanup()
{
    delete m_directory;
    delete m_stick;
    delete m_folder;
    QCOMPARE(QDir(QDir::tempPath()).entryList(QStringList("qt_temp*")), QStringList());
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryCopy::list()
{
    m_directory->setCurrentPath(m_folder->path());
}

void tst_DirectoryCopy::select(const QString &name)
{
    m_directory->setIsSelectedAt(m_directory->getIndex(name), true);
}

void tst_DirectoryCopy::copiesAreMadeInTheOrderOfPathsAndWrittenDown()
{
    m_folder->file("a.log", QByteArray("first"));
    m_folder->file("b.log", QByteArray("second"));
    m_folder->file("c.log", QByteArray("third"));
    list();
    select("c.log");
    select("a.log");
    const DebugLog debug;

    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());

    QCOMPARE(debug.lines(), QStringList()
                                << copyLine(m_folder->path("a.log"), m_stick->path("a.log"))
                                << copyLine(m_folder->path("c.log"), m_stick->path("c.log")));
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::Files), QStringList() << "a.log"
                                                                               << "c.log");
    QFile copy(m_stick->path("c.log"));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), QByteArray("third"));
}

void tst_DirectoryCopy::theSelectionIsClearedLaterAndNothingListed()
{
    m_folder->file("a.log", 3000);
    list();
    select("a.log");
    QString before;
    const Moment justBefore(195, [&] { before = m_directory->selectedFiles(); });
    DebugLog debug;

    QCOMPARE(emittedBy(m_directory, [&] { m_directory->copySelectedTo(m_stick->mountPoint()); }),
             spans("", "selectedFilesChanged", ""));

    QCOMPARE(before, QString("a.log"));
    QCOMPARE(debug.lines(), QStringList()
                                << copyLine(m_folder->path("a.log"), m_stick->path("a.log"))
                                << "Directory::clearSelectedFiles()"
                                << "Directory::updateSelectedFilesKB () - KB =  0");
    QCOMPARE(m_directory->selectedFiles(), QString());
    QCOMPARE(m_directory->selectedFilesKB(), qint64(0));
    QCOMPARE(markedNames(m_directory), QStringList());
}

void tst_DirectoryCopy::copyingNothingClearsAsWell()
{
    QString result("not called");
    DebugLog debug;
    QCOMPARE(emittedBy(m_directory,
                       [&] { result = m_directory->copySelectedTo(m_stick->mountPoint()); }),
             spans("", "selectedFilesChanged", ""));
    QCOMPARE(result, QString());
    QCOMPARE(debug.lines(), QStringList() << "Directory::clearSelectedFiles()"
                                          << "Directory::updateSelectedFilesKB () - KB =  0");
    QCOMPARE(treeOf(m_stick->mountPoint()), QStringList());
}

void tst_DirectoryCopy::whatIsSelectedMeanwhileIsClearedToo()
{
    m_folder->file("a.log");
    list();
    m_directory->copySelectedTo(m_stick->mountPoint());
    select("a.log");
    QVERIFY(waitUntil([&] { return m_directory->selectedFiles().isEmpty(); }));
    QCOMPARE(markedNames(m_directory), QStringList());
}

void tst_DirectoryCopy::filesOfOtherFoldersAreCopied()
{
    m_folder->folder("week");
    m_folder->file("week/a.log");
    m_folder->file("b.log");
    m_directory->setCurrentPath(m_folder->path("week"));
    select("a.log");
    list();
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());
    QVERIFY(QFile::exists(m_stick->path("a.log")));
    QVERIFY(!QFile::exists(m_stick->path("b.log"))); // listed, but not selected
}

// An access time in the future is not touched by the reading of the file.
void tst_DirectoryCopy::aCopyHasTheTimesOfItsSource()
{
    const time_t access = time(nullptr) + 3600;
    m_folder->file("a.log", QByteArray("contents"));
    m_folder->file("empty.log");
    for (const char *name : {"a.log", "empty.log"}) {
        setTimes(m_folder->path(name), access, someDay);
        chmod(QFile::encodeName(m_folder->path(name)).constData(), 0444);
    }
    list();
    m_directory->selectAll();
    const DebugLog debug;

    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());

    QCOMPARE(debug.lines().size(), 2); // no warning
    for (const char *name : {"a.log", "empty.log"}) {
        const struct stat copy = statusOf(m_stick->path(name));
        QCOMPARE(copy.st_mtime, someDay);
        QCOMPARE(copy.st_atime, access);
        QCOMPARE(copy.st_size, statusOf(m_folder->path(name)).st_size);
    }
}

void tst_DirectoryCopy::oddNamesAreCopiedAndLettersBeyondAsciiLoseTheirTimes_data()
{
    addOddNames();
}

void tst_DirectoryCopy::oddNamesAreCopiedAndLettersBeyondAsciiLoseTheirTimes()
{
    QFETCH(QString, name);
    m_folder->file(name, QByteArray("contents"), someDay);
    list();
    m_directory->selectAll();
    const DebugLog debug;

    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());

    QStringList lines(copyLine(m_folder->path(name), m_stick->path(name)));
    if (!isAscii(name))
        lines.append(timesMissed);
    QCOMPARE(debug.lines(), lines);
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::Files), QStringList(name));
    const struct stat copy = statusOf(m_stick->path(name));
    QCOMPARE(copy.st_size, off_t(8));
    QCOMPARE(copy.st_mtime == someDay, isAscii(name));
}

void tst_DirectoryCopy::aDestinationBeyondAsciiLosesTheTimes()
{
    m_folder->file("a.log", QByteArray("contents"), someDay);
    list();
    select("a.log");
    const Stick stick("/dev/sdb1", QString::fromUtf8("/media/gr\303\274n"));
    const DebugLog debug;
    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString());
    QCOMPARE(debug.lines(), QStringList() << copyLine(m_folder->path("a.log"), stick.path("a.log"))
                                          << timesMissed);
    QVERIFY(statusOf(stick.path("a.log")).st_mtime > someDay);
}

void tst_DirectoryCopy::aSeparatorAtTheEndIsDoubled()
{
    m_folder->file("a.log", QByteArray("contents"), someDay);
    list();
    select("a.log");
    const DebugLog debug;
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint() + '/'), QString());
    QCOMPARE(debug.lines(),
             QStringList(copyLine(m_folder->path("a.log"), m_stick->mountPoint() + "//a.log")));
    QCOMPARE(statusOf(m_stick->path("a.log")).st_mtime, someDay);
}

void tst_DirectoryCopy::aLinkIsCopiedAsTheFileItLeadsTo()
{
    m_folder->folder("elsewhere");
    m_folder->file("elsewhere/target", QByteArray("contents"), someDay);
    QVERIFY(QFile::link(m_folder->path("elsewhere/target"), m_folder->path("a.log")));
    list();
    select("a.log");
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());
    const struct stat copy = statusOf(m_stick->path("a.log"));
    QVERIFY(S_ISREG(copy.st_mode));
    QCOMPARE(copy.st_size, off_t(8));
    QCOMPARE(copy.st_mtime, someDay);
}

void tst_DirectoryCopy::aThousandSmallFilesKeepTheirTimes()
{
    const int count = 1000;
    for (int i = 0; i < count; ++i)
        m_folder->file(QString::number(i), QByteArray::number(i), someDay + i);
    list();
    m_directory->selectAll();
    const DebugLog debug;

    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString());

    QCOMPARE(debug.lines().size(), count);
    for (int i = 0; i < count; ++i) {
        QFile copy(m_stick->path(QString::number(i)));
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), QByteArray::number(i));
        QCOMPARE(statusOf(copy.fileName()).st_mtime, someDay + i);
    }
}

void tst_DirectoryCopy::aGigabyteIsCopied()
{
    const qint64 gigabyte = 1 << 30;
    const QByteArray mark("mark");
    m_folder->file("a.log", gigabyte);
    QFile source(m_folder->path("a.log"));
    QVERIFY(source.open(QIODevice::ReadWrite));
    QVERIFY(source.seek(gigabyte - mark.size()) && source.write(mark) == mark.size());
    source.close();
    setTimes(source.fileName(), someDay, someDay);
    const Stick stick("/dev/sdb1", "/media/big", Q_INT64_C(1100) * 1024);
    list();
    select("a.log");
    QCOMPARE(m_directory->selectedFilesKB(), qint64(1 << 20));

    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString());

    QFile copy(stick.path("a.log"));
    QCOMPARE(copy.size(), gigabyte);
    QVERIFY(copy.open(QIODevice::ReadOnly) && copy.seek(gigabyte - mark.size()));
    QCOMPARE(copy.readAll(), mark);
    QCOMPARE(statusOf(copy.fileName()).st_mtime, someDay);
}

void tst_DirectoryCopy::anExistingFileIsLeftUntouched()
{
    for (const char *name : {"a.log", "b.log", "c.log"})
        m_folder->file(name, QByteArray("new"), someDay);
    list();
    m_directory->selectAll();
    QFile existing(m_stick->path("b.log"));
    QVERIFY(existing.open(QIODevice::WriteOnly) && existing.write("old") == 3);
    existing.close();
    setTimes(existing.fileName(), someDay - 100, someDay - 100);
    const QStringList before = treeOf(m_stick->mountPoint());

    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("b.log"));

    QCOMPARE(statusOf(m_stick->path("a.log")).st_mtime, someDay);
    QCOMPARE(statusOf(m_stick->path("c.log")).st_mtime, someDay);
    const QStringList after = treeOf(m_stick->mountPoint());
    QCOMPARE(after.size(), 3);
    QCOMPARE(after.at(1), before.at(0));
}

void tst_DirectoryCopy::aFolderInTheWayIsLeftUntouched()
{
    m_folder->file("soil");
    list();
    select("soil");
    QVERIFY(QDir().mkdir(m_stick->path("soil")));
    const QStringList before = treeOf(m_stick->mountPoint());
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("soil"));
    QCOMPARE(treeOf(m_stick->mountPoint()), before);
}

void tst_DirectoryCopy::severalFailuresAreNamedInTheOrderOfPaths()
{
    for (const char *name : {"d.log", "b c.log", "a.log"})
        m_folder->file(name);
    list();
    select("d.log");
    select("a.log");
    select("b c.log");
    QVERIFY(QFile::remove(m_folder->path("d.log")));
    QVERIFY(QFile::remove(m_folder->path("b c.log")));
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("b c.log d.log"));
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::Files), QStringList("a.log"));
}

void tst_DirectoryCopy::theSecondOfTwoEqualNamesFails()
{
    for (const char *folder : {"one", "two"}) {
        m_folder->folder(folder);
        m_folder->file(QString(folder) + "/a.log", QByteArray(folder));
        m_directory->setCurrentPath(m_folder->path(folder));
        select("a.log");
    }
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("a.log"));
    QFile copy(m_stick->path("a.log"));
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), QByteArray("one"));
}

void tst_DirectoryCopy::aFileIsNotCopiedOntoItself()
{
    m_folder->file("a.log", QByteArray("contents"), someDay);
    list();
    select("a.log");
    const QStringList before = treeOf(m_folder->path());
    QCOMPARE(m_directory->copySelectedTo(m_folder->path()), QString("a.log"));
    QCOMPARE(treeOf(m_folder->path()), before);
}

void tst_DirectoryCopy::aFolderIsNotCopied()
{
    m_folder->folder("soil");
    m_folder->file("soil/a.log");
    m_folder->file("z.log");
    list();
    select("soil");
    select("z.log");
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("soil"));
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("z.log"));
}

void tst_DirectoryCopy::aVanishedSourceFails()
{
    m_folder->file("a.log");
    m_folder->file("b.log");
    list();
    m_directory->selectAll();
    QVERIFY(QFile::remove(m_folder->path("a.log")));
    const DebugLog debug;
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("a.log"));
    QCOMPARE(debug.lines(), QStringList()
                                << copyLine(m_folder->path("a.log"), m_stick->path("a.log"))
                                << copyLine(m_folder->path("b.log"), m_stick->path("b.log")));
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::Files), QStringList("b.log"));
}

void tst_DirectoryCopy::aRenamedSourceFailsUnderItsOldName()
{
    m_folder->file("a.log");
    list();
    select("a.log");
    QVERIFY(m_directory->renameFile(0, "b.log"));
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("a.log"));
    QCOMPARE(treeOf(m_stick->mountPoint()), QStringList());
}

void tst_DirectoryCopy::whatTheAccountMayNotReadFails()
{
    m_folder->file("a.log", QByteArray("root's own"));
    m_folder->file("b.log", QByteArray("everybody's"));
    chmod(QFile::encodeName(m_folder->path("a.log")).constData(), 0600);
    list();
    m_directory->selectAll();
    QCOMPARE(m_directory->copySelectedTo(m_stick->mountPoint()), QString("a.log"));
    QCOMPARE(QDir(m_stick->mountPoint()).entryList(QDir::Files), QStringList("b.log"));
}

void tst_DirectoryCopy::aDestinationThatTakesNothingGetsNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "/missing";
    QTest::newRow("a file") << "/file";
    QTest::newRow("not the account's") << "/closed";
    QTest::newRow("256 bytes") << '/' + QString(256, 'x');
}

void tst_DirectoryCopy::aDestinationThatTakesNothingGetsNothing()
{
    QFETCH(QString, name);
    const TestDir target;
    target.file("file", QByteArray("contents"));
    target.folder("closed");
    chmod(QFile::encodeName(target.path("closed")).constData(), 0755);
    m_folder->file("a.log", 20000);
    m_folder->file("b.log", 20000);
    list();
    m_directory->selectAll();
    const QStringList before = treeOf(target.path());

    QCOMPARE(m_directory->copySelectedTo(target.path() + name), QString("a.log b.log"));

    QCOMPARE(treeOf(target.path()), before);
}

void tst_DirectoryCopy::noDestinationIsTheTopFolder()
{
    m_folder->file("home");
    list();
    select("home");
    const DebugLog debug;
    QCOMPARE(m_directory->copySelectedTo(QString()), QString("home"));
    QCOMPARE(debug.lines(), QStringList(copyLine(m_folder->path("home"), "/home")));
}

void tst_DirectoryCopy::aReadOnlyStickGetsNothing()
{
    const Stick stick("/dev/sdb1", "/media/locked", 1024, Stick::ReadOnly);
    m_folder->file("a.log", 20000);
    m_folder->file("b.log");
    list();
    m_directory->selectAll();
    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString("a.log b.log"));
    QCOMPARE(treeOf(stick.mountPoint()), QStringList());
}

void tst_DirectoryCopy::aFullStickKeepsNothingHalfWritten_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("fits");
    QTest::newRow("just fits") << Q_INT64_C(65536) << true;
    QTest::newRow("a byte too many") << Q_INT64_C(65537) << false;
    QTest::newRow("a block too many") << Q_INT64_C(69632) << false;
    QTest::newRow("a write buffer too many") << Q_INT64_C(81921) << false;
    QTest::newRow("far too many") << Q_INT64_C(5000000) << false;
}

void tst_DirectoryCopy::aFullStickKeepsNothingHalfWritten()
{
    QFETCH(qint64, bytes);
    QFETCH(bool, fits);
    const Stick stick("/dev/sdb1", "/media/small", 64);
    m_folder->file("a b.log", bytes);
    list();
    select("a b.log");
    const qint64 before = freeBytes(stick.mountPoint());
    QCOMPARE(before, qint64(65536));

    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString(fits ? "" : "a b.log"));

    QCOMPARE(QFile::exists(stick.path("a b.log")), fits);
    QCOMPARE(treeOf(stick.mountPoint()).size(), fits ? 1 : 0);
    QCOMPARE(freeBytes(stick.mountPoint()), fits ? 0 : before);
}

void tst_DirectoryCopy::whatStillFitsIsCopied()
{
    const Stick stick("/dev/sdb1", "/media/small", 64);
    m_folder->file("a.log", 40000);
    m_folder->file("b.log", 40000);
    m_folder->file("c.log", 20000);
    list();
    m_directory->selectAll();
    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString("b.log"));
    QCOMPARE(QDir(stick.mountPoint()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList() << "a.log"
                           << "c.log");
    QCOMPARE(QFile(stick.path("a.log")).size(), qint64(40000));
    QCOMPARE(QFile(stick.path("c.log")).size(), qint64(20000));
}

void tst_DirectoryCopy::aKillLeavesTheSourcesUntouched()
{
    const qint64 endless = Q_INT64_C(1) << 40;
    const Stick stick("/dev/sdb1", "/media/big", Q_INT64_C(4) << 20);
    m_folder->file("a.log", endless, someDay);
    m_folder->file("b.log", QByteArray("contents"), someDay);
    const QStringList before = treeOf(m_folder->path());
    const qint64 room = freeBytes(stick.mountPoint());
    QProcess copy;
    copy.start(QCoreApplication::applicationFilePath(),
               QStringList() << copyOption << m_folder->path() << stick.mountPoint());

    QVERIFY(waitUntil([&] { return freeBytes(stick.mountPoint()) < room; }));
    copy.kill();
    QVERIFY(copy.waitForFinished());

    QCOMPARE(copy.exitStatus(), QProcess::CrashExit);
    QCOMPARE(treeOf(m_folder->path()), before);
    QVERIFY(!QFile::exists(stick.path("a.log")));
    QVERIFY(!QFile::exists(stick.path("b.log")));
    list();
    select("b.log");
    QCOMPARE(m_directory->copySelectedTo(stick.mountPoint()), QString());
}

int main(int argc, char *argv[])
{
    if (argc > 1 && qstrcmp(argv[1], copyOption) == 0) {
        const QCoreApplication application(argc, argv);
        const QStringList arguments = QCoreApplication::arguments();
        return copyEverything(arguments.value(2), arguments.value(3));
    }
    const QApplication application(argc, argv); // takes the options for its display out
    tst_DirectoryCopy test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_directorycopy.moc"
