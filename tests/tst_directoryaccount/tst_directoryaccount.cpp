// The operations of a Directory as far as user ids, the mutex and failures of the switch go.

#include "directory/directory.h"

#include "support/account.h"
#include "support/debuglog.h"
#include "support/listing.h"
#include "support/reaction.h"
#include "support/testdir.h"

#include <QFile>
#include <QScopedPointer>
#include <QTest>
#include <QThread>

#include <stdexcept>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
typedef void (*Operation)(Directory *);

const char noAccount[] = "root:x:0:0:root:/root:/bin/sh\n";
const gid_t someGroup = 4713;
const int deadlockSeconds = 60;
const int whileMs = 50;

void makeFile(Directory *directory)
{
    directory->newFile(directory->currentPath() + "/new.log");
}

void makeFileThatExists(Directory *directory)
{
    directory->newFile(directory->currentPath() + "/a.log");
}

void makeFolder(Directory *directory)
{
    directory->newDirectory("new");
}

void makeFolderThatExists(Directory *directory)
{
    directory->newDirectory("folder");
}

void rename(Directory *directory)
{
    directory->renameFile(0, "renamed.log");
}

void renameOntoAnother(Directory *directory)
{
    directory->renameFile(0, "b.log");
}

void renameBadIndex(Directory *directory)
{
    directory->renameFile(-1, "renamed.log");
}

void remove(Directory *directory)
{
    directory->deleteFile(0);
}

void copy(Directory *directory)
{
    directory->copySelectedTo(directory->currentPath() + "/folder");
}

void copyToNowhere(Directory *directory)
{
    directory->copySelectedTo("/missing");
}

/** Adds the test data "operation": all that switch to the account, done and refused. */
void addOperations()
{
    QTest::addColumn<Operation>("operation");
    QTest::newRow("newFile") << Operation(makeFile);
    QTest::newRow("newFile, name taken") << Operation(makeFileThatExists);
    QTest::newRow("newDirectory") << Operation(makeFolder);
    QTest::newRow("newDirectory, name taken") << Operation(makeFolderThatExists);
    QTest::newRow("renameFile") << Operation(rename);
    QTest::newRow("renameFile, name taken") << Operation(renameOntoAnother);
    QTest::newRow("renameFile, bad index") << Operation(renameBadIndex);
    QTest::newRow("deleteFile") << Operation(remove);
    QTest::newRow("copySelectedTo") << Operation(copy);
    QTest::newRow("copySelectedTo, failing") << Operation(copyToNowhere);
}

QByteArray failureOf(Operation operation, Directory *directory)
{
    try {
        operation(directory);
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return "no failure";
}

gid_t groupOf(const QString &path)
{
    struct stat status = {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status.st_gid;
}

/** Another thread, which is waited for at the end of the scope. */
class Background : public QThread
{
public:
    explicit Background(const std::function<void()> &work)
        : m_work(work)
    {
        start();
    }

    ~Background() override
    {
        wait();
    }

protected:
    void run() override
    {
        m_work();
    }

private:
    const std::function<void()> m_work;
};
} // namespace

Q_DECLARE_METATYPE(Operation)

class tst_DirectoryAccount : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anUnknownAccountLeavesEverythingAsItIs_data();
    void anUnknownAccountLeavesEverythingAsItIs();
    void aRefusedSwitchLeavesEverythingAsItIs_data();
    void aRefusedSwitchLeavesEverythingAsItIs();
    void copyingNothingNeedsTheAccountToo();
    void deletingABadIndexNeedsNoAccount();
    void anOperationWorksWhenTheAccountIsBack();

    void theIdIsSetBack_data();
    void theIdIsSetBack();
    void theAccountItselfMaySwitchToItself();
    void whatIsMadeBelongsToTheAccountAndTheProcessesGroup();
    void theRightsAreTheAccounts();
    void theMutexIsFreeOnlyWhenTheIdIsSetBack();
    void theMutexIsTakenBeforeTheSwitch_data();
    void theMutexIsTakenBeforeTheSwitch();

private:
    void failingLeavesEverythingAsItIs(const std::function<QByteArray()> &failing,
                                       const QByteArray &message);

    TestDir *m_folder;
    Directory *m_directory;
};

// A mutex that is not free must end the program and not hold it up for ever.
void tst_DirectoryAccount::init()
{
    alarm(deadlockSeconds);
    m_folder = new TestDir;
    m_folder->file("a.log", QByteArray("contents of a"));
    m_folder->file("b.log", QByteArray("contents of b"));
    m_folder->folder("folder");
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
    m_directory->setCurrentPath(m_folder->path());
    m_directory->selectAll();
}

void tst_DirectoryAccount::cleanup()
{
    delete m_directory;
    delete m_folder;
    alarm(0);
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryAccount::failingLeavesEverythingAsItIs(const std::function<QByteArray()> &failing,
                                                         const QByteArray &message)
{
    const QStringList before = treeOf(m_folder->path());
    QByteArray failure;
    const DebugLog debug;

    QCOMPARE(emittedBy(m_directory, [&] { failure = failing(); }), nothing());

    QCOMPARE(failure, message);
    QCOMPARE(debug.lines(), QStringList());
    QCOMPARE(treeOf(m_folder->path()), before);
    QCOMPARE(m_directory->selectedFiles(), QString("a.log b.log"));
    m_directory->getIndex("a.log"); // takes the mutex
}

void tst_DirectoryAccount::anUnknownAccountLeavesEverythingAsItIs_data()
{
    addOperations();
}

void tst_DirectoryAccount::anUnknownAccountLeavesEverythingAsItIs()
{
    QFETCH(Operation, operation);
    const auto failing = [&] {
        const AccountDatabase nobody(noAccount);
        const QByteArray failure = failureOf(operation, m_directory);
        return geteuid() == 0 ? failure : QByteArray("id not set back");
    };
    failingLeavesEverythingAsItIs(failing,
                                  "Unable to drop priviledges: Username 'ostan' not found");
}

void tst_DirectoryAccount::aRefusedSwitchLeavesEverythingAsItIs_data()
{
    addOperations();
}

void tst_DirectoryAccount::aRefusedSwitchLeavesEverythingAsItIs()
{
    QFETCH(Operation, operation);
    const auto failing = [&] {
        const EffectiveUser stranger(strangerUid);
        const QByteArray failure = failureOf(operation, m_directory);
        return geteuid() == strangerUid ? failure : QByteArray("id not set back");
    };
    failingLeavesEverythingAsItIs(failing, "Unable to drop priviledges: Operation not permitted");
}

void tst_DirectoryAccount::copyingNothingNeedsTheAccountToo()
{
    Directory directory;
    const AccountDatabase nobody(noAccount);
    QCOMPARE(failureOf(copy, &directory),
             QByteArray("Unable to drop priviledges: Username 'ostan' not found"));
}

void tst_DirectoryAccount::deletingABadIndexNeedsNoAccount()
{
    const AccountDatabase nobody(noAccount);
    QVERIFY(!m_directory->deleteFile(-1));
    QVERIFY(!m_directory->deleteFile(3));
    m_directory->getIndex("a.log"); // takes the mutex
}

void tst_DirectoryAccount::anOperationWorksWhenTheAccountIsBack()
{
    {
        const AccountDatabase nobody(noAccount);
        QVERIFY(failureOf(makeFolder, m_directory) != "no failure");
    }
    QVERIFY(m_directory->newDirectory("new"));
    QCOMPARE(ownerOf(QFile::encodeName(m_folder->path("new"))), ostanUid);
}

void tst_DirectoryAccount::theIdIsSetBack_data()
{
    addOperations();
}

void tst_DirectoryAccount::theIdIsSetBack()
{
    QFETCH(Operation, operation);
    operation(m_directory);
    QCOMPARE(geteuid(), uid_t(0));
    m_directory->getIndex("a.log"); // takes the mutex
}

void tst_DirectoryAccount::theAccountItselfMaySwitchToItself()
{
    const EffectiveUser account(ostanUid);
    QVERIFY(m_directory->newDirectory("new"));
    QCOMPARE(geteuid(), ostanUid);
}

void tst_DirectoryAccount::whatIsMadeBelongsToTheAccountAndTheProcessesGroup()
{
    QCOMPARE(setegid(someGroup), 0);
    m_directory->newFile(m_folder->path("new.log"));
    m_directory->newDirectory("new");
    m_directory->copySelectedTo(m_folder->path("folder"));
    QCOMPARE(setegid(0), 0);

    for (const char *name : {"new.log", "new", "folder/a.log", "folder/b.log"}) {
        QCOMPARE(ownerOf(QFile::encodeName(m_folder->path(name))), ostanUid);
        QCOMPARE(groupOf(m_folder->path(name)), someGroup);
    }
}

// The process could, the account may not: the folder is root's.
void tst_DirectoryAccount::theRightsAreTheAccounts()
{
    chmod(QFile::encodeName(m_folder->path()).constData(), 0755);
    const QStringList before = treeOf(m_folder->path());
    QVERIFY(!m_directory->newFile(m_folder->path("new.log")));
    QVERIFY(!m_directory->newDirectory("new"));
    QVERIFY(!m_directory->renameFile(0, "renamed.log"));
    QVERIFY(!m_directory->deleteFile(0));
    QVERIFY(!m_directory->deleteFile(2));
    QCOMPARE(m_directory->copySelectedTo(m_folder->path()), QString("a.log b.log"));
    QCOMPARE(treeOf(m_folder->path()), before);
}

void tst_DirectoryAccount::theMutexIsFreeOnlyWhenTheIdIsSetBack()
{
    // A pipe in the place of a source holds the copy up until somebody opens it for writing.
    const QByteArray pipe = QFile::encodeName(m_folder->path("a.log"));
    QVERIFY(unlink(pipe.constData()) == 0 && mkfifo(pipe.constData(), 0) == 0);
    QVERIFY(chmod(pipe.constData(), 0666) == 0);
    bool freeMeanwhile = true;
    uid_t idWhenFree = ostanUid;
    {
        const Background other([&] {
            while (geteuid() != ostanUid)
                usleep(100);
            Background waiting([&] {
                m_directory->getIndex("a.log");
                idWhenFree = geteuid();
            });
            freeMeanwhile = waiting.wait(whileMs);
            close(open(pipe.constData(), O_WRONLY));
        });
        m_directory->copySelectedTo(m_folder->path("folder"));
    }
    QVERIFY(!freeMeanwhile);
    QCOMPARE(idWhenFree, uid_t(0));
}

void tst_DirectoryAccount::theMutexIsTakenBeforeTheSwitch_data()
{
    addOperations();
}

// Listing and switching would meet otherwise, and the listing run with the account's rights.
void tst_DirectoryAccount::theMutexIsTakenBeforeTheSwitch()
{
    QFETCH(Operation, operation);
    QScopedPointer<Background> other;
    bool doneMeanwhile = true;
    uid_t idMeanwhile = ostanUid;
    const Reaction underTheMutex(m_directory, SIGNAL(filesChanged()), [&] {
        other.reset(new Background([&] { operation(m_directory); }));
        doneMeanwhile = other->wait(whileMs);
        idMeanwhile = geteuid();
    });
    m_folder->file("c.log");
    m_directory->refresh();
    other.reset();
    QVERIFY(!doneMeanwhile);
    QCOMPARE(idMeanwhile, uid_t(0));
}

QTEST_MAIN(tst_DirectoryAccount)
#include "tst_directoryaccount.moc"
