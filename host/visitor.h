#ifndef VISITOR_H
#define VISITOR_H

#include "host/finger.h"
#include "host/viewer.h"

#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVariant>

/**
 * Somebody in front of the screens: looks for items by their objectName, waits for them as long as
 * patience lasts, and touches them.
 */
class Visitor
{
public:
    explicit Visitor(Viewer &viewer);

    /**
     * Waits until an item @p name is shown and its text, if it has one, begins with @p text.
     *
     * @return whether it came
     */
    bool sees(const QString &name, const QString &text = QString());

    /** Waits until no item @p name is shown any more, and returns whether that came. */
    bool misses(const QString &name);

    /** Waits until the item @p name is enabled and in sight, touches its middle, and returns
     * whether there was one. */
    bool taps(const QString &name);

    /** Touches the item @p name at @p place, in its own pixels, without waiting. */
    bool taps(const QString &name, const QPoint &place);

    /** Waits as taps() does, and moves a finger that lies on the middle of the item @p name by @p
     * way. */
    bool drags(const QString &name, const QPoint &way);

    /** Types @p text on the keyboard of the screen: characters that have a key without shift. */
    bool types(const QString &text);

    /** Waits until the tree that is shown has rows: it reads its folder in the background. Returns
     * whether they came. */
    bool seesRows();

    /** The property @p property of the front item @p name, invalid when none is shown. */
    QVariant property(const QString &name, const char *property) const;

    /** Sets the property @p property of the item @p name, which need not be in sight. Returns
     * whether there is one. */
    bool sets(const QString &name, const char *property, const QVariant &value);

    /** Names of the items in sight that begin with @p beginning, without it, from top to bottom. */
    QStringList names(const QString &beginning) const;

    /** Lets @p ms pass as the user does who looks. */
    static void rests(int ms);

private:
    QRectF placeInReach(const QString &name);

    Viewer &m_viewer;
    Finger m_finger;
};

#endif // VISITOR_H
