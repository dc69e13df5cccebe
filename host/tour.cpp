#include "host/tour.h"

#include <QImage>
#include <QProcess>
#include <QStringList>

namespace {
const int drawingMs = 300; // for what changes with time: flick, file-system watcher, repaint
} // namespace

struct Tour::Step
{
    enum Kind { See, Gone, Tap, TapTree, Type, Run, Picture };

    Kind kind;
    const char *subject; ///< objectName, "x,y" in the tree, characters, command or picture
    const char *text;    ///< what the item's text begins with
};

// A typical request: two logs to a stick, and everything that can be asked for on the way.
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
    {Step::See, "summary", "2 selected"},
    {Step::Picture, "two-selected", nullptr},
    {Step::Run, "stick plug A 64M", nullptr},
    {Step::See, "copy:A", nullptr},
    {Step::Picture, "stick-found", nullptr},
    {Step::Tap, "copy:A", nullptr},
    {Step::See, "noticeText", "2 entries copied"},
    {Step::See, "summary", "Nothing selected"},
    {Step::Picture, "copied", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Tap, "mark:run_2013-06-14_morning.csv", nullptr},
    {Step::Tap, "mark:soil", nullptr},
    {Step::Tap, "copy:A", nullptr},
    {Step::See, "noticeText", "Not copied"},
    {Step::Picture, "not-copied", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Run, "stick busy A", nullptr},
    {Step::Tap, "eject:A", nullptr},
    {Step::See, "stickState", "Wait"},
    {Step::Picture, "eject-wait", nullptr},
    {Step::See, "stickState", "Still in use"},
    {Step::Picture, "eject-still-in-use", nullptr},
    {Step::Run, "stick release A", nullptr},
    {Step::Tap, "eject:A", nullptr},
    {Step::See, "stickState", "Safe to remove"},
    {Step::Picture, "eject-safe", nullptr},
    {Step::Tap, "tab:Configs", nullptr},
    {Step::Tap, "button:New folder", nullptr},
    {Step::Type, "spring 2014", nullptr},
    {Step::Picture, "name-typed", nullptr},
    {Step::Tap, "nameOk", nullptr},
    {Step::Tap, "mark:spring 2014", nullptr},
    {Step::Tap, "button:Delete", nullptr},
    {Step::See, "question", "Delete \"spring 2014\"?"},
    {Step::Picture, "delete-question", nullptr},
    {Step::Tap, "answer:yes", nullptr},
    {Step::Gone, "row:spring 2014", nullptr},
    {Step::Tap, "tab:Programs", nullptr},
    {Step::Picture, "programs", nullptr},
    {Step::Tap, "tab:Tree", nullptr},
    {Step::See, "currentFolder", "Folder /home/ostan/logs"},
    {Step::Picture, "tree", nullptr},
    {Step::TapTree, "150,158", nullptr}, // the folder in the third row
    {Step::See, "currentFolder", "Folder /home/ostan/logs/soil"},
    {Step::TapTree, "71,248", nullptr}, // the box of its first file
    {Step::See, "summary", "Checked: 2 KB"},
    {Step::TapTree, "150,248", nullptr}, // that file
    {Step::See, "touchedPath", "/home/ostan/logs/soil/flux"},
    {Step::Picture, "tree-checked", nullptr},
    {Step::Run, "stick plug B 32M \"/media/Field Data\"", nullptr},
    {Step::Tap, "copy:B", nullptr},
    {Step::See, "noticeText", "Checked files copied to Field Data"},
    {Step::Picture, "tree-copied", nullptr},
    {Step::Tap, "noticeOk", nullptr},
    {Step::Tap, "button:Words", nullptr},
    {Step::Type, "week", nullptr},
    {Step::Tap, "nameOk", nullptr},
    {Step::Tap, "toggle:Filter", nullptr},
    {Step::Picture, "tree-filtered", nullptr},
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
        return m_visitor.sees(subject, step.text);
    case Step::Gone:
        return m_visitor.misses(subject);
    case Step::Tap:
        return m_visitor.taps(subject);
    case Step::TapTree: // its rows are no items of the scene
        return m_visitor.taps(
            "tree", QPoint(subject.section(',', 0, 0).toInt(), subject.section(',', 1).toInt()));
    case Step::Type:
        return m_visitor.types(subject);
    case Step::Run:
        return QProcess::execute("sh", QStringList() << "-c" << subject) == 0;
    case Step::Picture:
        return savePicture(subject);
    }
    return false;
}

bool Tour::savePicture(const QString &name)
{
    Visitor::rests(drawingMs);
    return m_viewer.picture().save(
        QString("%1/%2-%3.png").arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name));
}
