#include "frames/listscreen.h"

#include "frames/touch.h"
#include "host/shownitems.h"

#include <QDeclarativeItem>
#include <QDir>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {
const int patienceMs = 20000;
const int frameMs = 40; // for a picture that need not come
const int pauseMs = 8;  // until a finger moves on
const int restMs = 250; // marks come 200 ms late

const int strokes = 6; // half of them forth, then as many back
const int steps = 8;
const int stepPixels = 30;
const int framesOfRolling = 10;

const QPoint edge(200, 30); // of the list, where a stroke begins or ends

bool anyPicture()
{
    return true;
}
} // namespace

ListScreen::ListScreen(Glass *glass, const QString &imports, const QString &screen)
    : m_glass(glass)
    , m_viewer(imports)
    , m_visitor(m_viewer)
{
    const QString problem = m_viewer.load(screen);
    if (!problem.isEmpty()) {
        fprintf(stderr, "%s\n", qPrintable(problem));
        exit(EXIT_FAILURE);
    }
    m_viewer.show();
    m_glass->rest();
}

ListScreen::~ListScreen() = default;

void ListScreen::watch()
{
    m_glass->watch(&m_viewer);
}

bool ListScreen::shows(int count) const
{
    return m_visitor.property("list", "count").toInt() == count;
}

void ListScreen::touchFolder(const QString &name)
{
    m_visitor.taps("row:" + name, QPoint(200, 20));
}

void ListScreen::touchMark(const QString &name)
{
    m_visitor.taps("mark:" + name, QPoint(20, 20));
}

bool ListScreen::waitForRows(const QStringList &names)
{
    return m_glass->waitForPicture(
        [&] {
            if (!shows(names.size()))
                return false;
            const QStringList shown = shownNames();
            return !shown.isEmpty() && shown == names.mid(0, shown.size());
        },
        patienceMs);
}

bool ListScreen::waitForMark(const QString &name, bool isMarked)
{
    return m_glass->waitForPicture(
        [&] { return m_visitor.property("row:" + name, "isMarked").toBool() == isMarked; },
        patienceMs);
}

std::vector<double> ListScreen::flick()
{
    m_visitor.sets("list", "contentY", 0);
    rest();
    const QRect list = shownItem(m_viewer, "list").place.toRect();
    watch();
    for (int stroke = 0; stroke < strokes; ++stroke) {
        const bool isForth = stroke < strokes / 2;
        QPoint place =
            isForth ? list.bottomLeft() + QPoint(edge.x(), -edge.y()) : list.topLeft() + edge;
        Touch touch(m_viewer.viewport(), place);
        for (int step = 0; step < steps; ++step) {
            place.ry() += isForth ? -stepPixels : stepPixels;
            touch.move(place);
            m_glass->waitForPicture(anyPicture, frameMs);
            Visitor::rests(pauseMs);
        }
        touch.release(place);
        for (int frame = 0; frame < framesOfRolling; ++frame)
            m_glass->waitForPicture(anyPicture, frameMs);
    }
    return m_glass->frames();
}

bool ListScreen::isAtRest()
{
    const QImage before = m_viewer.picture();
    rest();
    return m_viewer.picture() == before;
}

void ListScreen::rest()
{
    Visitor::rests(restMs);
}

QStringList ListScreen::shownNames() const
{
    return m_visitor.names("row:");
}

OurList::OurList(Glass *glass, const QString &imports)
    : ListScreen(glass, imports, imports + "/../screens/Main.qml")
{
}

void OurList::showTop(const QString &)
{
    m_visitor.taps("tab:Logs");
    if (!m_visitor.property("heading:Date", "isSorted").toBool())
        touchOrder(byDate);
    m_visitor.misses("crumb:logs");
    rest();
}

void OurList::touchOrder(Order order)
{
    m_visitor.taps(order == byName ? "heading:Name" : "heading:Date", QPoint(20, 20));
}

PeersList::PeersList(Glass *glass, const QString &imports)
    : ListScreen(glass, imports, imports + "/../benchmarks/frames/Peer.qml")
{
}

void PeersList::showTop(const QString &top)
{
    touchOrder(byDate);
    m_viewer.rootObject()->setProperty("folder", QUrl::fromLocalFile(top));
    const int entries = QDir(top).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
    while (!shows(entries))
        rest();
    rest();
}

void PeersList::touchOrder(Order order)
{
    const int byNameNumber = 1; // FolderListModel.Name
    const int byDateNumber = 2; // FolderListModel.Time
    m_viewer.rootObject()->setProperty("order", order == byName ? byNameNumber : byDateNumber);
}
