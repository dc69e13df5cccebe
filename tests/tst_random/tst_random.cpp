// Everything that can happen to the types, in any order, against the plainest model of what must be
// so.
//
// ./test does some thousand steps, ./test --long a hundred thousand. A failure prints the shortest
// sequence of steps that fails, as {action, first number, second number}; RC_PARAMS=seed=... with
// the printed seed makes up the same sequences again.

#include "directory/directory.h"

#include "random/disorder.h"
#include "random/listtrial.h"
#include "random/steps.h"
#include "random/sticktrial.h"
#include "random/treetrial.h"
#include "support/debuglog.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QTest>

#include <algorithm>

#include <malloc.h>

namespace {
const qint64 mostGrowth = qint64(256) * 1024; // what Qt keeps for later, however many the steps

/** What the process holds of the system: descriptors, entries that are watched, threads. */
QString holdings()
{
    int descriptors = 0;
    int watches = 0;
    for (const QFileInfo &info :
         QDir("/proc/self/fdinfo").entryInfoList(QDir::Files | QDir::System)) {
        ++descriptors;
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            watches += file.readAll().count("inotify wd:");
    }
    const int threads = QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    return QString("%1 descriptors, %2 watches, %3 threads")
        .arg(descriptors)
        .arg(watches)
        .arg(threads);
}

qint64 bytesInUse()
{
    malloc_trim(0);
    return static_cast<qint64>(mallinfo2().uordblks);
}

/** Runs the steps on a fresh trial. */
template <typename Trial>
std::string run(const std::vector<Step> &steps)
{
    Trial trial;
    for (const Step &step : steps) {
        trial.act(step);
        if (!trial.complaint.empty())
            return trial.complaint;
    }
    return trial.complaint;
}
} // namespace

class tst_Random : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theBreadcrumbLosesItsItemsAndNoMore(); // first, while the memory has no holes
    void theListShowsWhatThePlainOneDoes();
    void theSticksAreThoseThatAreThere();
    void theTreeChecksLikeASetOfPersistentIndexes();

private:
    bool holdsLevel(int steps, int actions, const Property &property);

    QScopedPointer<DebugLog> m_log;
};

void tst_Random::init()
{
    m_log.reset(new DebugLog);
}

void tst_Random::cleanup()
{
    m_log.reset();
}

/**
 * Whether the property holds, and the process holds no more of the system's and no more memory
 * after many steps than after a few.
 */
bool tst_Random::holdsLevel(int steps, int actions, const Property &property)
{
    const Property quiet = [&](const std::vector<Step> &sequence) {
        m_log->take();
        return property(sequence);
    };
    const bool holds = holdsFor(steps / 8, actions, quiet);
    letTimersFire();
    const QString heldBefore = holdings();
    const qint64 bytesBefore = bytesInUse();
    const bool stillHolds = holds && holdsFor(steps, actions, quiet);
    letTimersFire();
    const qint64 growth = bytesInUse() - bytesBefore;
    if (growth > mostGrowth)
        qWarning("%lld bytes more in use than before", growth);
    return stillHolds && growth <= mostGrowth &&
           waitUntil([&] { return holdings() == heldBefore; });
}

void tst_Random::theBreadcrumbLosesItsItemsAndNoMore()
{
    if (qgetenv("GLIBC_TUNABLES").isEmpty())
        QSKIP("freed memory counts as used: run by ctest", SkipSingle);
    const TestDir dir("/home/ostan/logs");
    dir.folder("soil/2013");
    Directory directory;
    directory.setCurrentPath("/home/ostan/logs/soil/2013");
    QCOMPARE(directory.pathsCount(), 3);

    const int times = 1000;
    QVector<Path *> items;
    items.reserve(3 * times);
    qint64 left = 0;
    for (int round = 0; round < 2; ++round) { // the first makes room for the second
        items.resize(0);                      // keeps its memory
        directory.refresh();
        const qint64 before = bytesInUse();
        for (int i = 0; i < times; ++i) {
            directory.refresh();
            QDeclarativeListProperty<Path> paths = directory.paths();
            for (int step = 0; step < directory.pathsCount(); ++step)
                items.append(paths.at(&paths, step));
        }
        QCOMPARE(items.size(), 3 * times);
        std::sort(items.begin(), items.end());
        QVERIFY(std::unique(items.begin(), items.end()) == items.end());

        // All of them live, as a screen may show any. With them goes all that the refreshes took.
        qDeleteAll(items);
        left = bytesInUse() - before;
    }
    // Less than a byte for each: what the holes between them are good for.
    QVERIFY2(qAbs(left) < times, qPrintable(QString::number(left)));
}

void tst_Random::theListShowsWhatThePlainOneDoes()
{
    QVERIFY(holdsLevel(wantedSteps(), ListTrial::actions, run<ListTrial>));
}

void tst_Random::theSticksAreThoseThatAreThere()
{
    QVERIFY(holdsLevel(wantedSteps() / 4, StickTrial::actions, run<StickTrial>));
}

void tst_Random::theTreeChecksLikeASetOfPersistentIndexes()
{
    QVERIFY(holdsLevel(wantedSteps(), TreeTrial::actions, run<TreeTrial>));
}

QTEST_MAIN(tst_Random)
#include "tst_random.moc"
