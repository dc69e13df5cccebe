// Copying to another folder, beside the command that one would type, and beside QFile::copy alone;
// and in portions, as the list screen does it with a bar and a way to stop, beside one call.

#include "common/privilegedropguard.h"
#include "directory/directory.h"
#include "host/finger.h"
#include "host/shownitems.h"
#include "host/viewer.h"
#include "host/visitor.h"
#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcess>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace {
const QLatin1String target("/home/ostan/target");
const QLatin1String stick("/media/Stick A");
const int restMs = 300;

void need(bool done, const char *what)
{
    if (done)
        return;
    perror(what);
    exit(EXIT_FAILURE);
}

/** A folder of files that are alike in size, and an empty folder to copy them to. */
class CopyJob
{
public:
    CopyJob(const char *name, int files, qint64 bytes);

    void emptyTarget(const QString &folder = target) const;
    void selectAll();
    void copyWithPlugin(const QString &folder = target);

    /** As the account, like the plugin; with the plugin's debug line or without. */
    void copyWithQFile(bool writesLines) const;

    void copyWithCommand() const;

    int count() const;

    /** What is wrong with the copies; with their times only if they are said to be kept. */
    QString mistake(bool keepsTimes, const QString &folder = target) const;

private:
    const QString m_source;
    QStringList m_names;
    Directory m_directory;
    QString m_failed;
};

CopyJob::CopyJob(const char *name, int files, qint64 bytes)
    : m_source(QLatin1String("/home/ostan/") + QLatin1String(name))
{
    const int chunk = 1 << 20;
    QByteArray contents(static_cast<int>(qMin<qint64>(bytes, chunk)), 'x');
    QDir().mkpath(m_source);
    for (int i = 0; i < files; ++i) {
        m_names.append(QString::fromLatin1("log_%1.csv").arg(i, 6, 10, QLatin1Char('0')));
        const QByteArray path = QFile::encodeName(m_source + QLatin1Char('/') + m_names.last());
        QFile file(QFile::decodeName(path));
        need(file.open(QIODevice::WriteOnly), path.constData());
        for (qint64 written = 0; written < bytes; written += contents.size()) {
            contents[0] = static_cast<char>(written / chunk + i);
            need(file.write(contents) == contents.size(), path.constData());
        }
        file.close();
        const timespec times[] = {{1719792000 + i, 0}, {1719705600 + i, 0}};
        need(utimensat(AT_FDCWD, path.constData(), times, 0) == 0, path.constData());
    }
    m_directory.setCurrentPath(m_source);
    m_directory.refresh(); // it may be there already, and then nothing was listed
}

void CopyJob::emptyTarget(const QString &folder) const
{
    QDir().mkpath(folder);
    const QByteArray path = QFile::encodeName(folder);
    need(chmod(path.constData(), 0777) == 0, path.constData());
    for (const QString &name : m_names)
        unlink(QFile::encodeName(folder + QLatin1Char('/') + name).constData());
}

void CopyJob::selectAll()
{
    m_directory.clearAll();
    m_directory.selectAll();
}

void CopyJob::copyWithPlugin(const QString &folder)
{
    m_failed = m_directory.copySelectedTo(folder);
}

void CopyJob::copyWithQFile(bool writesLines) const
{
    const PrivilegeDropGuard guard;
    for (const QString &name : m_names) {
        const QString original = m_source + QLatin1Char('/') + name;
        const QString copy = target + QLatin1Char('/') + name;
        if (writesLines)
            qDebug() << "DEBUG: Directory::copySelectedTo() " << original << " to dest " << copy;
        QFile::copy(original, copy);
    }
}

void CopyJob::copyWithCommand() const
{
    std::vector<QByteArray> words = {"cp", "-p", "-t", QByteArray(target.latin1())};
    for (const QString &name : m_names)
        words.push_back(QFile::encodeName(m_source + QLatin1Char('/') + name));
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t child;
    int status = -1;
    need(posix_spawnp(&child, "cp", nullptr, nullptr, arguments.data(), environ) == 0, "cp");
    need(waitpid(child, &status, 0) == child && status == 0, "cp");
}

int CopyJob::count() const
{
    return m_names.size();
}

QString CopyJob::mistake(bool keepsTimes, const QString &folder) const
{
    if (!m_failed.isEmpty())
        return QLatin1String("says that some were not copied");
    for (const QString &name : m_names) {
        QFile original(m_source + QLatin1Char('/') + name);
        QFile copy(folder + QLatin1Char('/') + name);
        if (!original.open(QIODevice::ReadOnly) || !copy.open(QIODevice::ReadOnly))
            return QLatin1String("leaves a file out");
        if (copy.size() != original.size())
            return QLatin1String("makes files of another size");
        const size_t size = static_cast<size_t>(original.size());
        if (size > 0 && memcmp(original.map(0, original.size()), copy.map(0, copy.size()), size))
            return QLatin1String("makes files with other bytes");
        struct stat wanted;
        struct stat got;
        fstat(original.handle(), &wanted);
        fstat(copy.handle(), &got);
        if (keepsTimes && wanted.st_mtime != got.st_mtime)
            return QLatin1String("makes files with other times");
    }
    return QString();
}

/** The list screen, which shows the logs, and somebody who touches it. */
class ListScreen
{
public:
    ListScreen()
        : m_folder(QApplication::applicationDirPath() + QLatin1String("/.."))
        , m_viewer(m_folder + QLatin1String("/imports"))
        , m_visitor(m_viewer)
        , m_finger(m_viewer)
    {
        Viewer::chooseLocale(QLocale::c(), m_folder + QLatin1String("/screens/translations"));
        const QString problem = m_viewer.load(m_folder + QLatin1String("/screens/Main.qml"));
        need(problem.isEmpty(), qPrintable(problem));
        m_viewer.show();
    }

    void selectAll(int files)
    {
        need(!shown("noticeOk").object || m_visitor.taps("noticeOk"), "noticeOk");
        need(m_visitor.taps("button:Clear") && m_visitor.sees("summary", "Nothing"), "Clear");
        need(m_visitor.taps("button:Select all"), "Select all");
        need(m_visitor.sees("summary", QString::number(files)) && m_visitor.sees("copy:A"),
             "copy:A");
        m_copy = shown("copy:A").place.center().toPoint();
    }

    /** From the touch on "Copy" to the words that say how many were copied. */
    void copy()
    {
        m_finger.tap(m_copy);
        while (!shown("noticeText").object && !shown("outcomeText").object)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    ShownItem shown(const char *name) const
    {
        return shownItem(m_viewer, QLatin1String(name));
    }

    const QString m_folder;
    Viewer m_viewer;
    Visitor m_visitor;
    Finger m_finger;
    QPoint m_copy;
};

void addPortions(const std::string &task, const std::shared_ptr<CopyJob> &job)
{
    // What a finger starts begins after a rest, when the caches hold other things.
    const auto prepare = [job] {
        job->emptyTarget(stick);
        Visitor::rests(restMs);
    };
    const Step oneCall = {prepare, [job] {
                              job->selectAll();
                              job->copyWithPlugin(stick);
                          }};
    const auto screen = std::make_shared<std::unique_ptr<ListScreen>>();
    const Step portions = {[=] {
                               (*screen)->selectAll(job->count());
                               prepare();
                           },
                           [screen] { (*screen)->copy(); }};
    const auto mistake = [job] { return job->mistake(true, stick); };
    addBenchmark(task, "reference: one call", 0, aThird,
                 [=](benchmark::State &state) { measure(state, oneCall, oneCall, mistake); });
    addBenchmark(task, "in portions, as the list screen does", 1.1, allRounds,
                 [=](benchmark::State &state) {
                     screen->reset(new ListScreen);
                     measure(state, oneCall, portions, mistake);
                     screen->reset();
                 });
}

void add(const std::string &task, double goal, const std::shared_ptr<CopyJob> &job)
{
    const auto empty = [job] { job->emptyTarget(); };
    const Step command = {empty, [job] { job->copyWithCommand(); }};
    const Step ours = {[=] {
                           empty();
                           job->selectAll();
                       },
                       [job] { job->copyWithPlugin(); }};
    addBenchmark(task, "reference: cp -p", 0, aThird, [=](benchmark::State &state) {
        measure(state, command, command, [job] { return job->mistake(true); });
    });
    addBenchmark(task, plugin, goal, allRounds, [=](benchmark::State &state) {
        measure(state, command, ours, [job] { return job->mistake(true); });
    });
    for (bool writesLines : {false, true}) {
        const Step qfile = {empty, [=] { job->copyWithQFile(writesLines); }};
        const char *name = writesLines ? "QFile::copy and the debug line" : "QFile::copy alone";
        addBenchmark(task, name, 0, allRounds, [=](benchmark::State &state) {
            measure(state, command, qfile, [job] { return job->mistake(false); });
        });
    }
}
} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    add("copy 1 file of 1 GiB", 1.05, std::make_shared<CopyJob>("big", 1, 1 << 30));
    add("copy 1,000 files of 8 KiB", 1, std::make_shared<CopyJob>("small", 1000, 8192));
    add("copy 20,000 empty files", 1, std::make_shared<CopyJob>("empty", 20000, 0));
    need(QProcess::execute("stick", QStringList() << "plug"
                                                  << "A"
                                                  << "256M") == 0,
         "stick");
    addPortions("copy 10,000 files of 2 KiB to a stick",
                std::make_shared<CopyJob>("logs", 10000, 2048));
    return runBenchmarks(argc, argv);
}
