// What a finger feels: from a touch to the picture on the glass, through the screens of the viewer
// with the loaded module.
//
//   bench_frames <import path> [option of Google Benchmark...]
//   bench_frames <import path> start <file.qml>   shows it and ends with its first picture
//
// A picture counts when it has been handed to the window system. What opens, orders or marks is
// timed by the clock on the wall; of the pictures that follow a moving finger it is counted what
// the user-interface thread works for each, because Qt also waits 5 ms in a Qt Quick window for
// more to draw, and until the display's next turn.

#include "frames/listscreen.h"
#include "frames/treewindow.h"
#include "support/bigfolder.h"
#include "support/glass.h"
#include "support/program.h"

#include <QDeclarativeComponent>
#include <QDeclarativeEngine>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>

#include <unistd.h>

namespace {
const int few = 100;
const int many = 10000;
const int leastFrames = 60;
const int patienceMs = 60000;
const double opensGoal = 1.3;
const double listGoal = 1.05;
const double treeGoal = 1.3;
const char plainView[] = "reference: QTreeView in a window";
const QString logs("/home/ostan/logs");

/** What came of one measurement. */
struct Result
{
    double seconds;
    double slowest; // of a hundred pictures, but one; 0 for what is only one
    QString mistake;
};

typedef std::function<Result()> Trial;

Result wrong(const char *mistake)
{
    const Result result = {0, 0, QLatin1String(mistake)};
    return result;
}

/** The seconds since @p start, if that which was waited for came. */
Result since(const Moment &start, const Glass &glass, bool hasCome)
{
    if (!hasCome)
        return wrong("shows something else");
    const Result result = {glass.lastPicture().clock - start.clock, 0, QString()};
    return result;
}

Result medianOf(std::vector<double> frames)
{
    if (frames.size() < leastFrames)
        return wrong("shows too few pictures");
    std::sort(frames.begin(), frames.end());
    const Result result = {frames[frames.size() / 2], frames[frames.size() * 99 / 100], QString()};
    return result;
}

/** As measure(), for what times itself. */
void compare(benchmark::State &state, const Trial &reference, const Trial &work)
{
    for (auto round : state) {
        static_cast<void>(round);
        const Result before = reference();
        const Result taken = work();
        const Result after = reference();
        if (!taken.mistake.isEmpty()) {
            state.SkipWithError(taken.mistake.toLocal8Bit().constData());
            return;
        }
        state.SetIterationTime(taken.seconds);
        if (taken.slowest > 0)
            state.counters["slowest"] = taken.slowest;
        // A reference that was wrong has a row of its own to say so.
        if (before.mistake.isEmpty() && after.mistake.isEmpty()) {
            state.counters["reference"] = (before.seconds + after.seconds) / 2;
            state.counters["slowest_reference"] = (before.slowest + after.slowest) / 2;
            state.counters["noise"] =
                std::fabs(before.seconds - after.seconds) / (before.seconds + after.seconds);
        }
    }
}

void add(const std::string &task, const std::string &contender, double goal, Rounds rounds,
         const Trial &reference, const Trial &work)
{
    addBenchmark(task, contender, goal, rounds,
                 [=](benchmark::State &state) { compare(state, reference, work); });
}

/** A folder among the logs, and its names in the orders that are asked for. */
struct Folder
{
    explicit Folder(int count)
        : name(count == few ? "few" : "many")
    {
        const BigFolder folder(count);
        byDate = folder.names(QDir::Time);
        byName = folder.names(QDir::Name | QDir::IgnoreCase);
        inTree = folder.names(QDir::Name | QDir::DirsFirst);
        QDir().mkpath(logs);
        QFile::rename(folder.path(), logs + '/' + name);
    }

    QString name;
    QStringList byDate;
    QStringList byName;
    QStringList inTree;
};

/** The tasks. Screens are made when they are needed first, and stay. */
class Frames
{
public:
    Frames(Glass *glass, const QString &imports)
        : m_glass(glass)
        , m_imports(imports)
        , m_few(few)
        , m_many(many)
    {
    }

    void addBenchmarks();

private:
    void addLists();
    void addTrees();
    void addStart();

    Result openFolder(ListScreen *list, const Folder &folder)
    {
        list->showTop(logs);
        list->watch();
        const Moment start = Moment::now();
        list->touchFolder(folder.name);
        const Result result = since(start, *m_glass, list->waitForRows(folder.byDate));
        return list->isAtRest() ? result : wrong("shows a picture that does not stay");
    }

    Result flick(ListScreen *list, const Folder &folder)
    {
        if (!list->shows(folder.byDate.size()))
            openFolder(list, folder);
        return medianOf(list->flick());
    }

    Result order(ListScreen *list, const Folder &folder)
    {
        openFolder(list, folder);
        list->watch();
        const Moment start = Moment::now();
        list->touchOrder(ListScreen::byName);
        return since(start, *m_glass, list->waitForRows(folder.byName));
    }

    Result mark(ListScreen *list, const Folder &folder)
    {
        openFolder(list, folder);
        const QString name = folder.byDate.at(1);
        list->watch();
        const Moment start = Moment::now();
        list->touchMark(name);
        const Result result = since(start, *m_glass, list->waitForMark(name, true));
        list->touchMark(name);
        list->waitForMark(name, false);
        return result;
    }

    Result listing();

    /** The screen for a folder, so that each can stay where it is. It has shown that once: what
     * only the first time takes is not its subject. */
    template <typename Screen>
    Screen *screen(std::map<const Folder *, std::unique_ptr<Screen>> *screens, const Folder *folder)
    {
        std::unique_ptr<Screen> &screen = (*screens)[folder];
        if (!screen) {
            screen.reset(new Screen(m_glass, m_imports));
            openFolder(screen.get(), *folder);
        }
        return screen.get();
    }

    typedef Result (Frames::*ListTask)(ListScreen *, const Folder &);

    Trial inOurs(ListTask task, const Folder &folder)
    {
        const Folder *const shown = &folder;
        return [=] { return (this->*task)(screen(&m_ours, shown), *shown); };
    }

    Trial inPeers(ListTask task, const Folder &folder)
    {
        const Folder *const shown = &folder;
        return [=] { return (this->*task)(screen(&m_peers, shown), *shown); };
    }

    Result openBranch(TreeWindow *tree)
    {
        tree->watch();
        const Moment start = Moment::now();
        tree->touchBranch(m_many.name);
        const Result result = since(start, *m_glass, tree->waitForRows(m_many.name, many));
        return result.mistake.isEmpty() && !beginsRight(*tree) ? wrong("shows other rows") : result;
    }

    /** Whether the tree shows the two folders and the first rows of the opened one. */
    bool beginsRight(const TreeWindow &tree) const
    {
        const bool isPlain = &tree == m_plainTree.get(); // to which folders are names like others
        const QStringList expected = QStringList() << m_few.name << m_many.name
                                                   << (isPlain ? m_many.byName : m_many.inTree);
        const QStringList shown = tree.shownNames();
        return shown.size() > 2 && shown == expected.mid(0, shown.size());
    }

    typedef std::vector<double> (TreeWindow::*Scroll)();

    Result scroll(TreeWindow *tree, Scroll way) const
    {
        const Result result = medianOf((tree->*way)());
        return beginsRight(*tree) ? result : wrong("does not come back to its beginning");
    }

    Result openInOurs()
    {
        m_ourTree.reset();
        m_ourTree.reset(new OurTree(m_glass, m_imports));
        return openBranch(m_ourTree.get());
    }

    Result openInPlain()
    {
        if (!m_ourTree)
            openInOurs();
        m_plainTree.reset();
        m_plainTree.reset(new PlainTree(m_glass, logs, m_ourTree->view()));
        return openBranch(m_plainTree.get());
    }

    Result scrollOurs(Scroll way)
    {
        const Result opened = m_ourTree ? Result() : openInOurs();
        return opened.mistake.isEmpty() ? scroll(m_ourTree.get(), way) : opened;
    }

    Result scrollPlain(Scroll way)
    {
        const Result opened = m_plainTree ? Result() : openInPlain();
        return opened.mistake.isEmpty() ? scroll(m_plainTree.get(), way) : opened;
    }

    void addScroll(const std::string &task, Scroll way);

    Result start(const QString &screen);

    Glass *const m_glass;
    const QString m_imports;
    const Folder m_few;
    const Folder m_many;
    std::map<const Folder *, std::unique_ptr<OurList>> m_ours;
    std::map<const Folder *, std::unique_ptr<PeersList>> m_peers;
    std::unique_ptr<OurTree> m_ourTree; // with many rows, when there is one
    std::unique_ptr<PlainTree> m_plainTree;
    std::unique_ptr<QDeclarativeEngine> m_engine;
    std::unique_ptr<QObject> m_directory;
};

/** Lists a folder with the module, and shows nothing. */
Result Frames::listing()
{
    if (!m_directory) {
        m_engine.reset(new QDeclarativeEngine);
        m_engine->addImportPath(m_imports);
        QDeclarativeComponent component(m_engine.get());
        component.setData("import FileBrowser 1.0\nDirectory { }", QUrl());
        m_directory.reset(component.create());
    }
    m_directory->setProperty("currentPath", logs);
    const Moment start = Moment::now();
    m_directory->setProperty("currentPath", QString(logs + '/' + m_many.name));
    const Result result = {Moment::now().clock - start.clock, 0, QString()};
    return result;
}

void Frames::addLists()
{
    const std::string peer = "Qt.labs.folderlistmodel";
    const Trial peerOpensFew = inPeers(&Frames::openFolder, m_few);
    const Trial listingAndFew = [=] {
        Result result = peerOpensFew();
        result.seconds += listing().seconds;
        return result;
    };
    std::string task = "first picture: open 100";
    add(task, "reference: " + peer, 0, aFifth, peerOpensFew, peerOpensFew);
    add(task, plugin, 0, aThird, peerOpensFew, inOurs(&Frames::openFolder, m_few));
    task = "first picture: open 10,000";
    add(task, "reference: a listing, and the peer's 100", 0, aFifth, listingAndFew, listingAndFew);
    add(task, plugin, opensGoal, allRounds, listingAndFew, inOurs(&Frames::openFolder, m_many));
    add(task, peer, 0, aFifth, listingAndFew, inPeers(&Frames::openFolder, m_many));

    task = "a frame: flick through 10,000";
    const Trial oursFlickFew = inOurs(&Frames::flick, m_few);
    add(task, "reference: 100 in this plugin", 0, aFifth, oursFlickFew, oursFlickFew);
    add(task, plugin, listGoal, allRounds, oursFlickFew, inOurs(&Frames::flick, m_many));
    add(task, peer, 0, aFifth, oursFlickFew, inPeers(&Frames::flick, m_many));

    task = "first picture: change the order of 10,000";
    const Trial peerOrders = inPeers(&Frames::order, m_many);
    add(task, "reference: " + peer, 0, aFifth, peerOrders, peerOrders);
    add(task, plugin, 0, aThird, peerOrders, inOurs(&Frames::order, m_many));
    task = "first picture: mark one of 10,000";
    const Trial peerMarks = inPeers(&Frames::mark, m_many);
    add(task, "reference: " + peer, 0, aFifth, peerMarks, peerMarks);
    add(task, plugin, 0, aThird, peerMarks, inOurs(&Frames::mark, m_many));
}

void Frames::addTrees()
{
    const std::string task = "first picture: open 10,000 in the tree";
    const Trial plainOpens = [=] { return openInPlain(); };
    add(task, plainView, 0, aFifth, plainOpens, plainOpens);
    add(task, plugin, 0, aThird, plainOpens, [=] { return openInOurs(); });
    addScroll("a frame: pull the tree's scroll bar", &TreeWindow::pull);
    addScroll("a frame: step the tree by a row", &TreeWindow::step);
}

void Frames::addScroll(const std::string &task, Scroll way)
{
    const Trial plain = [=] { return scrollPlain(way); };
    add(task, plainView, 0, aFifth, plain, plain);
    add(task, plugin, treeGoal, allRounds, plain, [=] { return scrollOurs(way); });
}

Result Frames::start(const QString &screen)
{
    const Moment start = Moment::now();
    const int status = QProcess::execute(QApplication::applicationFilePath(),
                                         QStringList() << m_imports << "start" << screen);
    const Result result = {Moment::now().clock - start.clock, 0,
                           status == EXIT_SUCCESS ? QString() : QLatin1String("does not start")};
    return result;
}

void Frames::addStart()
{
    const std::string task = "first picture: start the viewer";
    const Trial nothing = [=] { return start(m_imports + "/../benchmarks/frames/Nothing.qml"); };
    const Trial screens = [=] { return start(m_imports + "/../screens/Main.qml"); };
    add(task, "reference: an empty rectangle", 0, aFifth, nothing, nothing);
    add(task, plugin, 0, aThird, nothing, screens);
}

void Frames::addBenchmarks()
{
    addLists();
    addTrees();
    addStart();
}

/** Shows the screen in the file @p path, as the viewer does, until its first picture. */
int startOnly(Glass *glass, const QString &imports, const QString &path)
{
    Viewer viewer(imports);
    if (!viewer.load(path).isEmpty())
        return EXIT_FAILURE;
    glass->watch(&viewer);
    viewer.show();
    const bool hasCome = glass->waitForPicture([] { return true; }, patienceMs);
    _exit(hasCome ? EXIT_SUCCESS : EXIT_FAILURE); // what ends later is not waited for
}
} // namespace

int main(int argc, char **argv)
{
    Glass glass(argc, argv);
    setTimeZone("Europe/Berlin"); // without one, Qt's own models read the zone file for every date
    const QStringList arguments = QApplication::arguments();
    const QString imports = QDir(arguments.value(1)).absolutePath();
    Viewer::chooseFonts();
    Viewer::chooseLocale(QLocale::c(), imports + "/../screens/translations");
    if (arguments.value(2) == "start")
        return startOnly(&glass, imports, arguments.value(3));
    Frames frames(&glass, imports);
    frames.addBenchmarks();
    argv[1] = argv[0];
    return runBenchmarks(argc - 1, argv + 1);
}
