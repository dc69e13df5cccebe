#include "host/tour.h"

#include <QApplication>
#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QStringList>

namespace {
const int drawingMs = 300; // for what changes with time: flick, file-system watcher, repaint

// Up to where something is filled in.
QString translated(const char *text)
{
    QString asWritten = QString::fromUtf8(text);
    if (!asWritten.contains('|')) {
        return asWritten;
    }
    const QByteArray context = asWritten.section('|', 0, 0).toUtf8();
    const QByteArray source = asWritten.section('|', 1).toUtf8();
    return QCoreApplication::translate(context.constData(), source.constData()).section('%', 0, 0);
}

// Names as people and other machines write them.
const char oddNames[] =
    "mkdir /home/ostan/graph_definitions/names && cd /home/ostan/graph_definitions/names && touch "
    "'\u05de\u05d3\u05d9\u05d3\u05d4 2013.csv' "
    "'\u0645\u062d\u0637\u0629 \u0627\u0644\u0634\u0645\u0627\u0644.csv' "
    "'\u041b\u0443\u0433 \u0441\u0435\u0432\u0435\u0440.csv' "
    "'\u039b\u03b5\u03b9\u03b2\u03ac\u03b4\u03b9.csv' "
    "\"$(printf 'two\\nlines.csv')\" '<b>bold & more.csv' "
    "'comparison of the shaded and the open sensor in the meadow, second repetition.csv'";
const char manyFiles[] = "mkdir /home/ostan/graph_definitions/many && cd "
                         "/home/ostan/graph_definitions/many && seq 4000 | split -l 1 -a 4 - run_";
} // namespace

struct Tour::Step
{
    enum Kind {
        See,
        SeeRows,
        Gone,
        Tap,
        TapTree,
        Type,
        Run,
        Linger,
        Reload,
        Picture,
        PictureAtOnce
    };

    Kind kind;
    const char *subject; ///< objectName, "x,y" in the tree, characters, command or picture
    const char *text;    ///< what the item's text begins with, or "context|text to be translated"
};

// A typical request: two logs to a stick, and everything that can be asked for, and go wrong, on
// the way.
const Tour::Step Tour::steps[] = {
    {Step::See, "row:week_until_2013-06-14.bin", nullptr},
    {Step::Picture, "logs", nullptr},
    {Step::Tap, "heading:Name", nullptr},
    {Step::See, "row:\"quick\" check.txt", nullptr},
    {Step::Picture, "sorted-by-name", nullptr},
    {Step::Tap, "heading:Date", nullptr},
    {Step::Tap, "row:soil", nullptr},
    {Step::See, "crumb:soil", nullptr},
    {Step::Picture, "folder-opened", nullptr},
    {Step::Tap, "crumb:logs", nullptr},
    {Step::Tap, "mark:run_2013-06-14_evening.csv", nullptr},
    {Step::Tap, "mark:run_2013-06-14_morning.csv", nullptr},
    {Step::See, "summary", "2 "},
    {Step::Run, "stick plug A 64M", nullptr},
    {Step::See, "copy:A", nullptr},
    {Step::Picture, "stick-found", nullptr},
    {Step::Tap, "copy:A", nullptr},
    {Step::See, "noticeText", "2 "},
    {Step::See, "summary", "ListScreen|Nothing selected"},
    {Step::Picture, "copied", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Tap, "mark:run_2013-06-14_morning.csv", nullptr},
    {Step::Tap, "mark:soil", nullptr},
    {Step::Tap, "copy:A", nullptr},
    {Step::See, "outcomeText", nullptr},
    {Step::Picture, "not-copied", nullptr},
    {Step::Tap, "outcomeOk", nullptr},

    // A stick without room, and one that refuses every change.
    {Step::Run, "stick plug B 2M \"/media/Field Data\"", nullptr},
    {Step::See, "copy:B", nullptr},
    {Step::Picture, "two-sticks", nullptr},
    {Step::Tap, "button:Clear", nullptr},
    {Step::Tap, "heading:Size", nullptr},
    {Step::Tap, "mark:spectrum full resolution.bin", nullptr},
    {Step::Tap, "copy:B", nullptr},
    {Step::See, "question", nullptr},
    {Step::Picture, "too-much", nullptr},
    {Step::Tap, "answer:yes", nullptr},
    {Step::See, "outcomeText", nullptr},
    {Step::Picture, "stick-full", nullptr},
    {Step::Tap, "outcomeOk", nullptr},
    {Step::Run, "stick read-only B", nullptr},
    {Step::Tap, "copy:B", nullptr},
    {Step::See, "noticeText", nullptr},
    {Step::Picture, "write-protected", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Run, "stick pull B", nullptr},
    {Step::Gone, "copy:B", nullptr},

    {Step::Run, "stick busy A", nullptr},
    {Step::Tap, "eject:A", nullptr},
    {Step::See, "stickState", "Sticks|Wait, do not remove"},
    {Step::Picture, "eject-wait", nullptr},
    {Step::See, "stickState", "Sticks|Still in use, try again"},
    {Step::Picture, "eject-still-in-use", nullptr},
    {Step::Run, "stick release A", nullptr},
    {Step::Tap, "eject:A", nullptr},
    {Step::See, "stickState", "Sticks|Safe to remove"},
    {Step::Picture, "eject-safe", nullptr},

    {Step::Tap, "button:Clear", nullptr},
    {Step::Tap, "tab:Configs", nullptr},
    {Step::Tap, "heading:Kind", nullptr},
    {Step::Tap, "button:New folder", nullptr},
    {Step::Type, "spring 2014", nullptr},
    {Step::Picture, "name-typed", nullptr},
    {Step::Tap, "key:#+=", nullptr},
    {Step::Picture, "symbol-keys", nullptr},
    {Step::Tap, "nameOk", nullptr},
    {Step::Tap, "row:spring 2014", nullptr},
    {Step::See, "emptyText", nullptr},
    {Step::Picture, "empty-folder", nullptr},
    {Step::Tap, "crumb:configs", nullptr},
    {Step::Tap, "mark:spring 2014", nullptr},
    {Step::Tap, "mark:backup", nullptr},
    {Step::Tap, "button:Delete", nullptr},
    {Step::Picture, "delete-question", nullptr},
    {Step::Tap, "answer:yes", nullptr},
    {Step::See, "outcomeText", nullptr},
    {Step::Picture, "not-deleted", nullptr},
    {Step::Tap, "outcomeOk", nullptr},
    {Step::Gone, "row:spring 2014", nullptr},
    {Step::Tap, "button:Clear", nullptr},
    {Step::Tap, "tab:Programs", nullptr},
    {Step::Picture, "programs", nullptr},

    {Step::Run, oddNames, nullptr},
    {Step::Tap, "tab:Graphs", nullptr},
    {Step::Tap, "row:names", nullptr},
    {Step::Tap, "heading:Name", nullptr},
    {Step::Tap, "heading:Name", nullptr},
    {Step::Picture, "odd-names", nullptr},

    // As many files as a copy needs to be looked at, and stopped.
    {Step::Run, manyFiles, nullptr},
    {Step::Run, "stick plug A 200M", nullptr},
    {Step::Tap, "crumb:graph_definitions", nullptr},
    {Step::Tap, "row:many", nullptr},
    {Step::Tap, "button:Select all", nullptr},
    {Step::Linger, "", nullptr},
    {Step::Tap, "copy:A", nullptr},
    {Step::See, "progressIsSeen", nullptr},
    {Step::PictureAtOnce, "copying", nullptr},
    {Step::Tap, "progressCancel", nullptr},
    {Step::See, "outcomeText", nullptr},
    {Step::Picture, "copy-stopped", nullptr},
    {Step::Tap, "outcomeOk", nullptr},
    {Step::Tap, "button:Clear", nullptr},
    {Step::Run, "rm -r /home/ostan/graph_definitions/many; stick pull A", nullptr},

    {Step::Tap, "tab:Tree", nullptr},
    {Step::See, "touchedPath", "/home/ostan/logs"},
    {Step::SeeRows, "", nullptr},
    {Step::Picture, "tree", nullptr},
    {Step::TapTree, "150,158", nullptr}, // the folder in the third row
    {Step::See, "touchedPath", "/home/ostan/logs/soil"},
    {Step::TapTree, "71,248", nullptr}, // the box of its first file
    {Step::See, "summary", "TreeScreen|Checked: %1"},
    {Step::TapTree, "150,248", nullptr}, // that file
    {Step::See, "touchedPath", "/home/ostan/logs/soil/flux"},
    {Step::Run, "stick plug B 32M \"/media/Field Data\"", nullptr},
    {Step::See, "copy:B", nullptr},
    {Step::Picture, "tree-checked", nullptr},
    {Step::Tap, "copy:B", nullptr},
    {Step::See, "noticeText", "1 "},
    {Step::Picture, "tree-copied", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Tap, "button:Search", nullptr},
    {Step::Type, "week", nullptr},
    {Step::Tap, "nameOk", nullptr},
    {Step::Picture, "tree-filtered", nullptr},

    {Step::Run, "cp /etc/passwd /var/tmp && grep -v ^ostan: /var/tmp/passwd >/etc/passwd", nullptr},
    {Step::Reload, "", nullptr},
    {Step::See, "refusedTitle", nullptr},
    {Step::Picture, "refused", nullptr},
    {Step::Run, "cat /var/tmp/passwd >/etc/passwd", nullptr},
    {Step::Tap, "button:Try again", nullptr},
    {Step::See, "row:week_until_2013-06-14.bin", nullptr},
};

Tour::Tour(Viewer &viewer, const QString &folder)
    : m_viewer(viewer)
    , m_visitor(viewer)
    , m_folder(folder)
    , m_pictures(0)
{
}

QString Tour::walk()
{
    for (const Step &step : steps) {
        if (!take(step)) {
            savePicture("failed");
            return QString("step %1 failed: %2 %3")
                .arg(&step - steps + 1)
                .arg(QString::fromUtf8(step.subject), QString::fromUtf8(step.text));
        }
    }
    return QString();
}

bool Tour::take(const Step &step)
{
    const QString subject = QString::fromUtf8(step.subject);
    switch (step.kind) {
    case Step::See:
        return m_visitor.sees(subject, translated(step.text));
    case Step::SeeRows:
        return m_visitor.seesRows();
    case Step::Gone:
        return m_visitor.misses(subject);
    case Step::Tap:
        return m_visitor.taps(subject);
    case Step::TapTree:
        return tapTree(QPoint(subject.section(',', 0, 0).toInt(), subject.section(',', 1).toInt()));
    case Step::Type:
        return m_visitor.types(subject);
    case Step::Run:
        return QProcess::execute("sh", QStringList() << "-c" << subject) == 0;
    case Step::Linger: // so that there is something to see of a copy within memory
        return m_visitor.sets("copier", "portionMs", 5);
    case Step::Reload:
        m_viewer.setSource(m_viewer.source());
        return true;
    case Step::Picture:
        Visitor::rests(drawingMs);
        return savePicture(subject);
    case Step::PictureAtOnce:
        return savePicture(subject);
    }
    return false;
}

// The tree's rows are no items of the scene.
bool Tour::tapTree(QPoint place)
{
    if (QApplication::isRightToLeft())
        place.setX(m_visitor.property("tree", "width").toInt() - place.x());
    return m_visitor.taps("tree", place);
}

bool Tour::savePicture(const QString &name)
{
    return m_viewer.picture().save(
        QString("%1/%2-%3.png").arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name));
}
