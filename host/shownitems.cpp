#include "host/shownitems.h"

#include <QDeclarativeItem>
#include <QDeclarativeListReference>
#include <QDeclarativeView>
#include <QVariant>

#include <functional>

namespace {
typedef std::function<bool(const QString &name)> NameTest;

class Walk
{
public:
    explicit Walk(const NameTest &isWanted)
        : m_isWanted(isWanted)
    {
    }

    void visit(QObject *item, const QPointF &origin)
    {
        if (!item->property("visible").toBool()) {
            return;
        }
        ShownItem here;
        here.object = item;
        here.place = QRectF(origin.x() + item->property("x").toReal(),
                            origin.y() + item->property("y").toReal(),
                            item->property("width").toReal(), item->property("height").toReal());
        if (m_isWanted(item->objectName())) {
            m_found << here;
        }
        const QDeclarativeListReference children(item, "children");
        for (int i = 0; i < children.count(); ++i) {
            if (QObject *child = children.at(i)) { // Qt 4.8 lists plain graphics items as nothing
                visit(child, here.place.topLeft());
            }
        }
    }

    QList<ShownItem> found() const
    {
        return m_found;
    }

private:
    NameTest m_isWanted;
    QList<ShownItem> m_found;
};

QList<ShownItem> search(const QDeclarativeView &view, const NameTest &isWanted)
{
    Walk walk(isWanted);
    if (QObject *root = view.rootObject()) {
        walk.visit(root, QPointF());
    }
    return walk.found();
}
} // namespace

ShownItem::ShownItem()
    : object(nullptr)
{
}

QList<ShownItem> shownItems(const QDeclarativeView &view, const QString &name)
{
    return search(view, [&name](const QString &candidate) { return candidate == name; });
}

QList<ShownItem> shownItemsLike(const QDeclarativeView &view, const QString &beginning)
{
    return search(
        view, [&beginning](const QString &candidate) { return candidate.startsWith(beginning); });
}

ShownItem shownItem(const QDeclarativeView &view, const QString &name)
{
    const QList<ShownItem> items = shownItems(view, name);
    return items.isEmpty() ? ShownItem() : items.last();
}
