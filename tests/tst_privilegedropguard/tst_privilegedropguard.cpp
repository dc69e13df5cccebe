#include "common/privilegedropguard.h"

#include "support/account.h"
#include "support/testdir.h"

#include <QFile>
#include <QTest>
#include <QThread>

#include <cerrno>
#include <cstring>
#include <functional>
#include <stdexcept>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
const char prefix[] = "Unable to drop priviledges: ";
const char nobodyThere[] = "root:x:0:0:root:/root:/bin/sh\n";

/** What entering the guard throws; "entered" when it throws nothing. */
QByteArray entry()
{
    try {
        const PrivilegeDropGuard guard;
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return "entered";
}

QByteArray refusal(int error)
{
    return prefix + QByteArray(strerror(error));
}

/** The effective user before, inside and after the guard. */
QByteArray effectiveIds()
{
    QByteArray ids = QByteArray::number(geteuid());
    {
        const PrivilegeDropGuard guard;
        ids += ' ' + QByteArray::number(geteuid());
    }
    return ids + ' ' + QByteArray::number(geteuid());
}

/**
 * What @p work returns in a process of its own with these user ids, which this process could never
 * get rid of again.
 */
QByteArray inProcessOf(uid_t real, uid_t effective, uid_t saved,
                       const std::function<QByteArray()> &work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        QByteArray result = "can't take the ids";
        if (setresuid(real, effective, saved) == 0)
            result = work();
        _exit(write(ends[1], result.constData(), result.size()) == result.size() ? 0 : 1);
    }
    close(ends[1]);
    QFile reader;
    reader.open(ends[0], QIODevice::ReadOnly);
    const QByteArray result = reader.readAll();
    reader.close();
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0 ? result : QByteArray("the process failed");
}

gid_t groupOf(const QString &path)
{
    struct stat info;
    return stat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_gid
                                                                 : static_cast<gid_t>(-1);
}

class Onlooker : public QThread
{
public:
    uid_t seen = 0;

private:
    void run() override
    {
        seen = geteuid();
    }
};
} // namespace

class tst_PrivilegeDropGuard : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rootIsTheAccountInsideOnly();
    void theAccountSwitchesToItself();
    void anybodyElseIsRefused_data();
    void anybodyElseIsRefused();
    void onlyTheEffectiveIdIsSwitched();
    void theIdComesFromTheDatabase();
    void aSecondGuardInsideChangesNothing();
    void anUnknownAccountIsNamed();
    void anErrorFromBeforeIsNotReported();
    void anUnreadableDatabaseIsReported();
    void aDatabaseThatCannotBeOpenedIsReported();
    void aFailedEntryLeavesTheId();
    void aFailedEntryComesBeforeAnyWork();
    void theIdIsSetBackWhenTheWorkThrows();
    void aFailedReturnIsSilent();
    void whatIsCreatedBelongsToTheAccountAndTheProcesssGroup();
    void otherThreadsAreSwitchedToo();
    void cleanup();
};

void tst_PrivilegeDropGuard::init()
{
    QCOMPARE(getuid(), static_cast<uid_t>(0));
}

void tst_PrivilegeDropGuard::cleanup()
{
    QCOMPARE(geteuid(), static_cast<uid_t>(0));
}

void tst_PrivilegeDropGuard::rootIsTheAccountInsideOnly()
{
    QCOMPARE(effectiveIds(), QByteArray("0 4711 0"));
}

void tst_PrivilegeDropGuard::theAccountSwitchesToItself()
{
    QCOMPARE(inProcessOf(ostanUid, ostanUid, ostanUid, effectiveIds), QByteArray("4711 4711 4711"));
}

void tst_PrivilegeDropGuard::anybodyElseIsRefused_data()
{
    QTest::addColumn<int>("real");
    QTest::addColumn<int>("saved");

    QTest::newRow("a third user") << int(strangerUid) << int(strangerUid);
    QTest::newRow("root in a third user's role") << 0 << 0;
}

void tst_PrivilegeDropGuard::anybodyElseIsRefused()
{
    QFETCH(int, real);
    QFETCH(int, saved);

    const auto entryAndId = [] { return entry() + ' ' + QByteArray::number(geteuid()); };
    QCOMPARE(inProcessOf(real, strangerUid, saved, entryAndId), refusal(EPERM) + " 4712");
    QCOMPARE(refusal(EPERM), QByteArray("Unable to drop priviledges: Operation not permitted"));
}

void tst_PrivilegeDropGuard::onlyTheEffectiveIdIsSwitched()
{
    const gid_t group = getegid();
    const int groups = getgroups(0, nullptr);
    const PrivilegeDropGuard guard;
    uid_t real = 1;
    uid_t effective = 1;
    uid_t saved = 1;
    QCOMPARE(getresuid(&real, &effective, &saved), 0);
    QCOMPARE(real, static_cast<uid_t>(0));
    QCOMPARE(effective, ostanUid);
    QCOMPARE(saved, static_cast<uid_t>(0));
    QCOMPARE(getegid(), group);
    QCOMPARE(getgroups(0, nullptr), groups);
}

void tst_PrivilegeDropGuard::theIdComesFromTheDatabase()
{
    const AccountDatabase moved("ostan:x:4799:4711::/home/ostan:/bin/sh\n");
    QCOMPARE(effectiveIds(), QByteArray("0 4799 0"));
}

void tst_PrivilegeDropGuard::aSecondGuardInsideChangesNothing()
{
    const PrivilegeDropGuard guard;
    QCOMPARE(effectiveIds(), QByteArray("4711 4711 4711"));
}

void tst_PrivilegeDropGuard::anUnknownAccountIsNamed()
{
    const AccountDatabase withoutTheAccount(nobodyThere);
    QCOMPARE(entry(), QByteArray("Unable to drop priviledges: Username 'ostan' not found"));
}

void tst_PrivilegeDropGuard::anErrorFromBeforeIsNotReported()
{
    const AccountDatabase withoutTheAccount(nobodyThere);
    errno = EIO;
    QCOMPARE(entry(), QByteArray("Unable to drop priviledges: Username 'ostan' not found"));
}

void tst_PrivilegeDropGuard::anUnreadableDatabaseIsReported()
{
    const AccountDatabase forRootOnly("ostan:x:4711:4711::/home/ostan:/bin/sh\n", 0600);
    QCOMPARE(inProcessOf(ostanUid, ostanUid, ostanUid, entry), refusal(EACCES));
    QCOMPARE(refusal(EACCES), QByteArray("Unable to drop priviledges: Permission denied"));
    QCOMPARE(entry(), QByteArray("entered"));
}

void tst_PrivilegeDropGuard::aDatabaseThatCannotBeOpenedIsReported()
{
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none = {0, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    const QByteArray result = entry();
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(result, refusal(EMFILE));
    QCOMPARE(refusal(EMFILE), QByteArray("Unable to drop priviledges: Too many open files"));
}

void tst_PrivilegeDropGuard::aFailedEntryLeavesTheId()
{
    const AccountDatabase withoutTheAccount(nobodyThere);
    entry();
    QCOMPARE(geteuid(), static_cast<uid_t>(0));
}

void tst_PrivilegeDropGuard::aFailedEntryComesBeforeAnyWork()
{
    const TestDir folder;
    const AccountDatabase withoutTheAccount(nobodyThere);
    bool thrown = false;
    try {
        const PrivilegeDropGuard guard;
        folder.file("made");
    } catch (const std::runtime_error &) {
        thrown = true;
    }
    QVERIFY(thrown);
    QCOMPARE(folder.names(), QStringList());
}

void tst_PrivilegeDropGuard::theIdIsSetBackWhenTheWorkThrows()
{
    QByteArray caught;
    uid_t inside = 0;
    try {
        const PrivilegeDropGuard guard;
        inside = geteuid();
        throw std::logic_error("the work failed");
    } catch (const std::logic_error &error) {
        caught = error.what();
    }
    QCOMPARE(inside, ostanUid);
    QCOMPARE(caught, QByteArray("the work failed"));
    QCOMPARE(geteuid(), static_cast<uid_t>(0));
}

// The account's own process in a third user's role may leave that role, but never take it up again.
void tst_PrivilegeDropGuard::aFailedReturnIsSilent()
{
    QCOMPARE(inProcessOf(ostanUid, strangerUid, ostanUid, effectiveIds),
             QByteArray("4712 4711 4711"));
}

void tst_PrivilegeDropGuard::whatIsCreatedBelongsToTheAccountAndTheProcesssGroup()
{
    const TestDir folder;
    {
        const PrivilegeDropGuard guard;
        folder.file("file");
        folder.folder("folder");
    }
    folder.file("later");

    QCOMPARE(ownerOf(folder.path("file").toLatin1()), ostanUid);
    QCOMPARE(groupOf(folder.path("file")), getegid());
    QCOMPARE(ownerOf(folder.path("folder").toLatin1()), ostanUid);
    QCOMPARE(groupOf(folder.path("folder")), getegid());
    QCOMPARE(ownerOf(folder.path("later").toLatin1()), static_cast<uid_t>(0));
}

void tst_PrivilegeDropGuard::otherThreadsAreSwitchedToo()
{
    Onlooker onlooker;
    const PrivilegeDropGuard guard;
    onlooker.start();
    onlooker.wait();
    QCOMPARE(onlooker.seen, ostanUid);
}

QTEST_MAIN(tst_PrivilegeDropGuard)
#include "tst_privilegedropguard.moc"
