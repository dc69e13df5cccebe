// Selecting all of a folder, beside a plain loop that does the same to a QMap.

#include "directory/directory.h"
#include "support/bigfolder.h"
#include "support/measure.h"
#include "support/program.h"

#include <QApplication>
#include <QDebug>
#include <QMap>
#include <QVector>

#include <functional>
#include <memory>
#include <string>

namespace {
const int count = 10000;
const double goal = 2;

/** What the loop knows of a file; the same as a File. */
struct PlainFile
{
    QString name;
    qint64 kilobytes;
    bool isFolder;
    bool isSelected;
};

/** The selection as a screen's author would write it in a few lines, debug lines included. */
class PlainSelection
{
public:
    PlainSelection(const QString &folder, const QVector<PlainFile> &files)
        : m_folder(folder)
        , m_files(files)
        , m_kilobytes(0)
    {
    }

    void selectAll()
    {
        for (PlainFile &file : m_files) {
            if (file.isFolder || file.isSelected)
                continue;
            file.isSelected = true;
            m_names.insert(m_folder + QLatin1Char('/') + file.name, file.name);
            m_kilobytes += file.kilobytes;
            qDebug() << "Directory::updateSelectedFilesKB () - KB = " << m_kilobytes;
        }
    }

    void clear()
    {
        qDebug() << "Directory::clearSelectedFiles()";
        m_names.clear();
        m_kilobytes = 0;
        for (PlainFile &file : m_files)
            file.isSelected = false;
        qDebug() << "Directory::updateSelectedFilesKB () - KB = " << m_kilobytes;
    }

    QString text() const
    {
        QString text;
        for (const QString &name : m_names) {
            if (!text.isEmpty())
                text += QLatin1Char(' ');
            text += name;
        }
        return text;
    }

private:
    const QString m_folder;
    QVector<PlainFile> m_files;
    QMap<QString, QString> m_names;
    qint64 m_kilobytes;
};

QVector<PlainFile> filesOf(Directory *directory)
{
    QVector<PlainFile> files;
    QDeclarativeListProperty<File> list = directory->files();
    for (int i = 0; i < list.count(&list); ++i) {
        const File *file = list.at(&list, i);
        const PlainFile plain = {file->name(), file->sizeKB(), file->isDir(), false};
        files.append(plain);
    }
    return files;
}

#if QT_VERSION < 0x050000
void dropLine(QtMsgType, const char *)
{
}
#else
void dropLine(QtMsgType, const QMessageLogContext &, const QString &)
{
}
#define qInstallMsgHandler qInstallMessageHandler
#endif

/** Lets debug lines be made, but not written, for the length of a scope, if @p drop. */
class DebugLines
{
public:
    explicit DebugLines(bool drop)
    {
        qInstallMsgHandler(drop ? dropLine : nullptr);
    }

    ~DebugLines()
    {
        qInstallMsgHandler(nullptr);
    }

private:
    Q_DISABLE_COPY(DebugLines)
};

class Selecting
{
public:
    Selecting()
        : m_folder(count)
    {
        m_directory.setCurrentPath(m_folder.path());
        m_plain.reset(new PlainSelection(m_folder.path(), filesOf(&m_directory)));
        m_plain->selectAll();
        m_allNames = m_plain->text();
    }

    void addBenchmarks()
    {
        const Step selectPlain = {[this] { m_plain->clear(); }, [this] { m_plain->selectAll(); }};
        const Step select = {[this] { m_directory.clearAll(); },
                             [this] { m_directory.selectAll(); }};
        const auto allSelected = [this] { return unlessSelected(m_allNames); };
        add("select all of 10,000", selectPlain, select, allSelected);
        add("select all of 10,000, debug lines dropped", selectPlain, select, allSelected);

        const Step clearPlain = {[this] { m_plain->selectAll(); }, [this] { m_plain->clear(); }};
        const Step clear = {[this] { m_directory.selectAll(); },
                            [this] { m_directory.clearAll(); }};
        add("clear a selection of 10,000", clearPlain, clear,
            [this] { return unlessSelected(QString()); });

        const Step readPlain = {[this] { m_plain->selectAll(); },
                                [this] { benchmark::DoNotOptimize(m_plain->text()); }};
        const Step read = {[this] {
                               m_directory.clearAll();
                               m_directory.selectAll();
                           },
                           [this] { m_text = m_directory.selectedFiles(); }};
        add("read selectedFiles of 10,000", readPlain, read,
            [this] { return m_text == m_allNames ? QString() : wrong(); });
    }

private:
    static void add(const std::string &task, const Step &plain, const Step &ours,
                    const std::function<QString()> &check)
    {
        const bool dropsLines = task.find("dropped") != std::string::npos;
        addBenchmark(task, "floor: a loop over a QMap", 0, aThird, [=](benchmark::State &state) {
            const DebugLines lines(dropsLines);
            measure(state, plain, plain, [] { return QString(); });
        });
        addBenchmark(task, plugin, goal, allRounds, [=](benchmark::State &state) {
            const DebugLines lines(dropsLines);
            measure(state, plain, ours, check);
        });
    }

    static QString wrong()
    {
        return QLatin1String("other entries are selected");
    }

    QString unlessSelected(const QString &names) const
    {
        return m_directory.selectedFiles() == names ? QString() : wrong();
    }

    const BigFolder m_folder;
    Directory m_directory;
    std::unique_ptr<PlainSelection> m_plain;
    QString m_allNames;
    QString m_text;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Selecting selecting;
    selecting.addBenchmarks();
    return runBenchmarks(argc, argv);
}
