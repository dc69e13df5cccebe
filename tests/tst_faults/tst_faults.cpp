// Every system call of the product's operations fails once, with each error that it can give, and
// every operation is killed once at each of its calls. What must hold afterwards stands with the
// operations in tests/faults; this program finds the calls and makes them fail, both with strace.
//
// That is a matter of minutes. Unless FILEBROWSER_FAULTS is "all" - scripts/faults sets it - only
// calls that matter fail, with one error each: the first of a kind in every folder, where others
// that must go on come after it, and the last of the kind, which kills, too.

#include <QFile>
#include <QHash>
#include <QProcess>
#include <QTemporaryFile>
#include <QTest>

#include <csignal>

namespace {
const int deadlineMs = 120000;
const char marks[] = "?access,?faccessat,?faccessat2";

const int attempts = 3;

// Made by the C library to wait for another thread, and to have it switch its user id too: how
// often is a matter of chance, and who fails them waits for ever.
const char *const ofThreads[] = {"futex", "tgkill"};

// Calls that don't fail on any system.
const char *const neverFailing[] = {
    "geteuid",        "getuid",       "getpid",          "gettid",       "sched_yield",
    "rt_sigprocmask", "rt_sigreturn", "clock_gettime",   "gettimeofday", "time",
    "sync",           "munmap",       "restart_syscall", "exit_group",   "sigreturn"};

// In which a process without memory may end: what it leaves on the disk is looked at then.
const char *const ofMemory[] = {"brk", "mmap", "mmap2", "mremap", "mprotect", "madvise"};

// For the sample: they change something, or what they tell decides what is changed.
const char *const mattering[] = {
    "access",   "faccessat",  "faccessat2",      "openat",     "open",       "write",
    "sendfile", "sendfile64", "copy_file_range", "close",      "rename",     "renameat2",
    "link",     "linkat",     "unlink",          "mkdir",      "rmdir",      "fchmod",
    "chmod",    "ftruncate",  "fdatasync",       "utime",      "utimensat",  "setresuid",
    "umount",   "umount2",    "statfs",          "getdents64", "setresuid32"};

template <size_t count>
bool isAmong(const char *const (&names)[count], const QString &name)
{
    for (const char *candidate : names) {
        if (name == QLatin1String(candidate))
            return true;
    }
    return false;
}

/** The errors that a call can give. */
QStringList errorsOf(const QString &call)
{
    static QHash<QString, QString> errors;
    if (errors.isEmpty()) {
        const QString ofPaths = "EACCES ENOENT EIO ENOMEM";
        for (const char *name :
             {"stat", "lstat", "statx", "newfstatat", "fstatat64", "stat64", "lstat64", "access",
              "faccessat", "faccessat2", "readlink", "inotify_add_watch", "statfs", "statfs64"})
            errors.insert(name, ofPaths);
        for (const char *name :
             {"mkdir", "rmdir", "unlink", "link", "linkat", "symlink", "rename", "renameat",
              "renameat2", "chmod", "utime", "utimensat", "ftruncate", "fchmod", "creat"})
            errors.insert(name, ofPaths + " ENOSPC EDQUOT EROFS");
        for (const char *name : {"open", "openat"})
            errors.insert(name, ofPaths + " ENOSPC EDQUOT EROFS EMFILE EINTR");
        for (const char *name : {"read", "pread64", "readv", "getdents64", "getdents"})
            errors.insert(name, "EIO EINTR ENOMEM");
        for (const char *name : {"write", "writev", "sendfile", "sendfile64", "copy_file_range"})
            errors.insert(name, "ENOSPC EIO EINTR EFBIG EDQUOT");
        for (const char *name : {"close", "fsync", "fdatasync"})
            errors.insert(name, "EIO ENOSPC EDQUOT EINTR");
        for (const char *name : {"setresuid", "setresuid32", "setreuid"})
            errors.insert(name, "EAGAIN EPERM ENOMEM");
        for (const char *name : {"umount", "umount2"})
            errors.insert(name, "EBUSY EPERM EIO ENOMEM EACCES");
        for (const char *name : {"socket", "dup", "fcntl", "inotify_init1", "eventfd2"})
            errors.insert(name, "EMFILE ENOMEM");
        for (const char *name : ofMemory)
            errors.insert(name, "ENOMEM");
    }
    return errors.value(call, "EIO ENOMEM").split(' ');
}

/** Name of the call that the line of a trace is about; empty for anything else. */
QString callOf(const QString &line)
{
    int start = 0;
    while (start < line.size() && (line.at(start).isDigit() || line.at(start) == ' '))
        ++start; // the id of the thread
    QString name = line.mid(start, line.indexOf('(') - start);
    for (const QChar &character : name) {
        if (!character.isLetterOrNumber() && character != '_')
            return QString();
    }
    return name;
}

/** Folder of the path that the line of a trace names; empty for a call that is given a descriptor.
 */
QString folderIn(const QString &line)
{
    return line.section('"', 1, 1).section('/', 0, -2);
}

struct Call
{
    QString name;
    QString folder;
    int number;   ///< among those of its name, as the tracer counts
    bool isFirst; ///< of its name and folder between the marks
    bool isLast;  ///< of its name
};

/** The calls between the marks of @p trace. */
QList<Call> callsBetweenMarks(const QStringList &trace)
{
    QList<Call> calls;
    QHash<QString, int> counts;
    bool isBetween = false;
    for (const QString &line : trace) {
        const QString name = callOf(line);
        if (name.isEmpty())
            continue;
        const int number = ++counts[name];
        if (line.contains("/mark/")) {
            isBetween = line.contains("/mark/begin");
            continue;
        }
        if (!isBetween || isAmong(ofThreads, name))
            continue;
        const QString folder = folderIn(line);
        bool isFirst = true;
        for (Call &earlier : calls) {
            isFirst = isFirst && (earlier.name != name || earlier.folder != folder);
            earlier.isLast = earlier.isLast && earlier.name != name;
        }
        const Call call = {name, folder, number, isFirst, true};
        calls.append(call);
    }
    return calls;
}

/** What @p error in @p call has as its own consequence. */
QStringList excusesFor(const Call &call)
{
    const QString &name = call.name;
    QStringList excuses;
    if (name == "close")
        excuses << "descriptors"; // the call is not made, so it stays open
    if (name.startsWith("setresuid") && call.isLast)
        excuses << "user"; // the way back itself
    if (name == "unlink")
        excuses << "leftovers";
    if (name.startsWith("utim") || name.contains("stat"))
        excuses << "figures"; // times and sizes that could not be learned
    return excuses;
}

/** One run of an operation under the tracer. */
class Run
{
public:
    Run(const QString &operation, const QStringList &excuses)
    {
        if (!m_trace.open())
            qFatal("no file for a trace");
        m_subject.start(subject(), QStringList() << operation << "perform" << excuses);
    }

    /** @return whether subject and tracer came to an end */
    bool trace(const QStringList &options)
    {
        const QByteArray id = lineOf(&m_subject, "ready ").mid(6).trimmed();
        if (id.isEmpty())
            return false;
        m_tracer.setReadChannel(QProcess::StandardError);
        m_tracer.start("strace", QStringList() << "-p" << QString(id) << "-o" << m_trace.fileName()
                                               << options);
        if (lineOf(&m_tracer, "attached").isEmpty())
            return false;
        m_subject.write("\n");
        const bool ended = m_subject.waitForFinished(deadlineMs);
        return m_tracer.waitForFinished(deadlineMs) && ended;
    }

    bool died() const
    {
        return m_subject.exitStatus() == QProcess::CrashExit;
    }

    /** What the subject complained about. */
    QString complaints()
    {
        return QString::fromLocal8Bit(m_subject.readAllStandardOutput()).trimmed();
    }

    bool isContent() const
    {
        return !died() && m_subject.exitCode() == 0;
    }

    /** The lines of the trace so far. */
    QStringList lines()
    {
        m_trace.seek(0);
        return QString::fromLocal8Bit(m_trace.readAll()).split('\n');
    }

    QString problem()
    {
        return complaints() + m_subject.readAllStandardError() + m_tracer.readAll();
    }

    static QString subject()
    {
        return QFile::decodeName(qgetenv("FILEBROWSER_FAULT_SUBJECT"));
    }

private:
    /** Waits for a line with @p word in it. */
    static QByteArray lineOf(QProcess *process, const char *word)
    {
        do {
            while (process->canReadLine()) {
                QByteArray line = process->readLine();
                if (line.contains(word))
                    return line;
            }
        } while (process->waitForReadyRead(deadlineMs));
        return QByteArray();
    }

    QTemporaryFile m_trace;
    QProcess m_subject;
    QProcess m_tracer;
};

/** What is wrong after @p run; empty when nothing is. */
QString verdict(const QString &operation, Run *run, bool mayDie)
{
    if (!run->died())
        return run->isContent() ? QString() : run->complaints();
    if (!mayDie)
        return "died: " + run->problem();
    QProcess inspection;
    inspection.start(Run::subject(), QStringList() << operation << "inspect");
    if (!inspection.waitForFinished(deadlineMs))
        return "inspecting takes for ever";
    return QString::fromLocal8Bit(inspection.readAllStandardOutput()).trimmed();
}

/** Makes @p call fail or kill, as @p how says. @return whether it was made this time */
bool tryOut(const QString &operation, const Call &call, const QString &how, QString *complaint)
{
    const bool kills = how.startsWith("signal=");
    // All threads switch the user id, and it fails for all of them or for none.
    const bool inAllThreads = call.name.startsWith("setresuid") && !kills;
    const QString injection = QString("inject=%1:%2:when=%3").arg(call.name, how).arg(call.number);
    QStringList options = QStringList() << "-e"
                                        << "trace=" + call.name + ',' + marks << "-e" << injection;
    if (inAllThreads)
        options << "-f";
    Run run(operation, excusesFor(call));
    if (!run.trace(options)) {
        *complaint = "never ended: " + run.problem();
        return true;
    }
    const QString trace = run.lines().join("\n");
    const int begin = trace.indexOf("/mark/begin");
    const int hit = kills ? trace.indexOf("+++ killed by") : trace.indexOf("(INJECTED)");
    const int end = trace.indexOf("/mark/end");
    if (begin == -1 || hit < begin || (end != -1 && hit > end))
        return false;
    *complaint = verdict(operation, &run, kills || isAmong(ofMemory, call.name));
    return true;
}
} // namespace

class tst_Faults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyCallFailsOnce_data();
    void everyCallFailsOnce();
};

void tst_Faults::initTestCase()
{
    QProcess strace;
    strace.start("strace", QStringList() << "-V");
    if (!strace.waitForStarted() || !strace.waitForFinished())
        QSKIP("strace is not installed", SkipAll);
}

void tst_Faults::everyCallFailsOnce_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *name :
         {"copySelectedTo", "copySelectedTo a simple file system", "copyCheckedFilesTo", "newFile",
          "newFile of a name in use", "newDirectory", "renameFile", "deleteFile", "setRoot",
          "listing", "relisting", "find", "eject"})
        QTest::newRow(name) << name;
}

void tst_Faults::everyCallFailsOnce()
{
    QFETCH(QString, operation);
    const bool all = qgetenv("FILEBROWSER_FAULTS") == "all";

    Run undisturbed(operation, QStringList());
    if (!undisturbed.trace(QStringList()))
        QFAIL(qPrintable(undisturbed.problem()));
    QVERIFY2(undisturbed.isContent(), qPrintable(undisturbed.complaints()));
    const QList<Call> calls = callsBetweenMarks(undisturbed.lines());
    QVERIFY(!calls.isEmpty());

    int trials = 0;
    QStringList wrong;
    for (const Call &call : calls) {
        if (!all && !((call.isFirst || call.isLast) && isAmong(mattering, call.name)))
            continue;
        QStringList hows;
        for (const QString &error : errorsOf(call.name))
            hows.append("error=" + error);
        if (isAmong(neverFailing, call.name))
            hows.clear();
        if (!all)
            hows = hows.mid(0, 1);
        if (all || call.isLast)
            hows.prepend("signal=SIGKILL");
        for (const QString &how : hows) {
            ++trials;
            QString complaint("the call was not made again");
            for (int i = 0; i < attempts && !tryOut(operation, call, how, &complaint); ++i) {
            }
            if (!complaint.isEmpty())
                wrong.append(
                    QString("%1 %2 %3: %4").arg(call.name).arg(call.number).arg(how, complaint));
        }
    }
    qDebug("%d calls, %d trials", int(calls.size()), trials);
    QVERIFY2(wrong.isEmpty(), qPrintable('\n' + wrong.join("\n")));
}

QTEST_MAIN(tst_Faults)
#include "tst_faults.moc"
