#include "host/visitor.h"

#include "host/shownitems.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMap>
#include <QTimer>
#include <QTreeView>
#include <QVariant>

#include <functional>

namespace {
const int patienceMs = 20000; // only who looks for what never comes waits so long
const int frameMs = 20;

bool waitUntil(const std::function<bool()> &condition, int ms)
{
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.elapsed() > ms) {
            return false;
        }
        Visitor::rests(frameMs);
    }
    return true;
}
} // namespace

Visitor::Visitor(Viewer &viewer)
    : m_viewer(viewer)
    , m_finger(viewer)
{
}

bool Visitor::sees(const QString &name, const QString &text)
{
    return waitUntil(
        [&] {
            const QList<ShownItem> items = shownItems(m_viewer, name);
            for (const ShownItem &item : items) {
                if (item.object->property("text").toString().startsWith(text)) {
                    return true;
                }
            }
            return false;
        },
        patienceMs);
}

// The tree's rows are no items of the scene.
bool Visitor::seesRows()
{
    return waitUntil(
        [] {
            const QWidgetList widgets = QApplication::allWidgets();
            for (QWidget *widget : widgets) {
                const QTreeView *view = qobject_cast<QTreeView *>(widget);
                if (view && view->isVisible() && view->model()->rowCount(view->rootIndex()) > 0) {
                    return true;
                }
            }
            return false;
        },
        patienceMs);
}

bool Visitor::misses(const QString &name)
{
    return waitUntil([&] { return shownItems(m_viewer, name).isEmpty(); }, patienceMs);
}

// Items get their places when the scene is drawn next: one that stands where it stood a frame ago
// has arrived. Before, all tabs lie on top of each other.
QRectF Visitor::placeInReach(const QString &name)
{
    QRectF lastPlace;
    const bool isInReach = waitUntil(
        [&] {
            const ShownItem item = shownItem(m_viewer, name);
            const bool isAtRest = !item.place.isEmpty() && item.place == lastPlace;
            lastPlace = item.place;
            return isAtRest && item.object->property("enabled").toBool() &&
                   QRectF(m_viewer.rect()).contains(item.place.center());
        },
        patienceMs);
    return isInReach ? lastPlace : QRectF();
}

bool Visitor::taps(const QString &name)
{
    const QRectF place = placeInReach(name);
    if (!place.isEmpty()) {
        m_finger.tap(place.center().toPoint());
    }
    return !place.isEmpty();
}

bool Visitor::taps(const QString &name, const QPoint &place)
{
    const ShownItem item = shownItem(m_viewer, name);
    if (item.object) {
        m_finger.tap(item.place.topLeft().toPoint() + place);
    }
    return item.object;
}

bool Visitor::drags(const QString &name, const QPoint &way)
{
    const QRectF place = placeInReach(name);
    if (!place.isEmpty()) {
        const QPoint from = place.center().toPoint();
        m_finger.drag(from, from + way);
    }
    return !place.isEmpty();
}

bool Visitor::types(const QString &text)
{
    for (const QChar character : text) {
        if (!taps(QString("key:") + character)) {
            return false;
        }
    }
    return true;
}

QVariant Visitor::property(const QString &name, const char *property) const
{
    const ShownItem item = shownItem(m_viewer, name);
    return item.object ? item.object->property(property) : QVariant();
}

bool Visitor::sets(const QString &name, const char *property, const QVariant &value)
{
    const ShownItem item = shownItem(m_viewer, name);
    return item.object && item.object->setProperty(property, value);
}

QStringList Visitor::names(const QString &beginning) const
{
    const QList<ShownItem> items = shownItemsLike(m_viewer, beginning);
    QMultiMap<qreal, QString> byHeight;
    for (const ShownItem &item : items) {
        byHeight.insert(item.place.top(), item.object->objectName().mid(beginning.size()));
    }
    return byHeight.values();
}

void Visitor::rests(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, SLOT(quit()));
    loop.exec();
}
