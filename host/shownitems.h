#ifndef SHOWNITEMS_H
#define SHOWNITEMS_H

#include <QList>
#include <QRectF>
#include <QString>

class QDeclarativeView;
class QObject;

/** An item of a scene and where it stands in the view, in pixels. */
struct ShownItem
{
    ShownItem();

    QObject *object; ///< none when nothing was found
    QRectF place;
};

/**
 * Finds the items that @p view shows by their objectName, also those that views and repeaters make
 * and that no QObject knows as its children. Items that are invisible, or inside invisible ones,
 * don't count; those scrolled out of sight do.
 *
 * Reads nothing but the properties that Qt Quick 1 and 2 both have; items must not be turned or
 * scaled.
 *
 * @return from back to front
 */
QList<ShownItem> shownItems(const QDeclarativeView &view, const QString &name);

/** The items whose objectName begins with @p beginning. */
QList<ShownItem> shownItemsLike(const QDeclarativeView &view, const QString &beginning);

/** The front one of shownItems(). */
ShownItem shownItem(const QDeclarativeView &view, const QString &name);

#endif // SHOWNITEMS_H
