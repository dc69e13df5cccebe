// Copying to another folder, beside the command that one would type, and beside QFile::copy alone.

#include "common/privilegedropguard.h"
#include "directory/directory.h"
#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QFile>

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

    void emptyTarget() const;
    void selectAll();
    void copyWithPlugin();

    /** As the account, like the plugin; with the plugin's debug line or without. */
    void copyWithQFile(bool writesLines) const;

    void copyWithCommand() const;

    /** What is wrong with the copies; with their times only if they are said to be kept. */
    QString mistake(bool keepsTimes) const;

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
}

void CopyJob::emptyTarget() const
{
    QDir().mkpath(target);
    need(chmod(target.latin1(), 0777) == 0, target.latin1());
    for (const QString &name : m_names)
        unlink(QFile::encodeName(target + QLatin1Char('/') + name).constData());
}

void CopyJob::selectAll()
{
    m_directory.clearAll();
    m_directory.selectAll();
}

void CopyJob::copyWithPlugin()
{
    m_failed = m_directory.copySelectedTo(target);
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

QString CopyJob::mistake(bool keepsTimes) const
{
    if (!m_failed.isEmpty())
        return QLatin1String("says that some were not copied");
    for (const QString &name : m_names) {
        QFile original(m_source + QLatin1Char('/') + name);
        QFile copy(target + QLatin1Char('/') + name);
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
    return runBenchmarks(argc, argv);
}
