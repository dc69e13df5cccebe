// Performs one operation of the product between two marks that a tracer recognises, then looks
// whether everything that must hold still does. What fails in between is up to the tracer.
//
//   fault-subject <operation> perform [excuse...]   wait for a line on the standard input first
//   fault-subject <operation> inspect               look at the disk only, after a process that
//   died
//
// Complaints are lines on the standard output, and make the result 1.

#include "faults/operation.h"

#include "support/debuglog.h"
#include "support/waiting.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

#include <poll.h>
#include <unistd.h>

namespace {
const unsigned deadlineSeconds = 60;

void mark(const char *name)
{
    if (access(name, F_OK) == 0)
        qFatal("a mark exists");
}

int openDescriptors()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

/** The same, once the threads that Qt has started have opened their own. */
int settledDescriptors()
{
    const useconds_t aWhile = 20000;
    int before = -1;
    int now = openDescriptors();
    while (now != before && QDir("/proc/self/task").count() > 3) { // ".", ".." and this one
        usleep(aWhile);
        before = now;
        now = openDescriptors();
    }
    return now;
}

// Without a call that an operation makes too: how often it is made in here is a matter of chance.
void waitForTracer()
{
    printf("ready %d\n", int(getpid()));
    fflush(stdout);
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    while (poll(&input, 1, -1) != 1) {
    }
}

void perform(Operation *operation, const QStringList &excuses, Complaints *complaints)
{
    const std::function<bool(const char *)> isExcused = [&](const char *what) {
        return excuses.contains(QLatin1String(what));
    };
    const uid_t user = geteuid(); // first: preparing may lose it already
    operation->prepare();
    const int descriptors = settledDescriptors();
    waitForTracer();
    alarm(deadlineSeconds); // a mutex that is still locked ends this process

    mark("/mark/begin");
    operation->perform();
    mark("/mark/end");

    complaints->expect(geteuid() == user || isExcused("user"), "another user id is in force");
    if (!isExcused("descriptors")) {
        // What Qt's own threads open for a moment doesn't count.
        complaints->expect(waitUntil([&] { return openDescriptors() <= descriptors; }),
                           "a descriptor was left open");
    }
    operation->check(complaints, isExcused);
}
} // namespace

int main(int argc, char *argv[])
{
    const std::unique_ptr<Operation> operation =
        makeOperation(QString::fromLatin1(argc > 2 ? argv[1] : ""));
    if (!operation) {
        fputs("usage: fault-subject <operation> perform|inspect [excuse...]\n", stderr);
        return 2;
    }
    const QScopedPointer<QCoreApplication> application(operation->needsWidgets()
                                                           ? new QApplication(argc, argv)
                                                           : new QCoreApplication(argc, argv));
    const DebugLog silence;
    Complaints complaints;
    if (application->arguments().at(2) == "perform")
        perform(operation.get(), application->arguments().mid(3), &complaints);
    else
        operation->inspect(&complaints);
    for (const QString &text : complaints.texts())
        puts(text.toLocal8Bit().constData());
    fflush(stdout);
    // At once: destroying the objects is no part of the trial.
    _exit(complaints.texts().isEmpty() ? 0 : 1);
}
