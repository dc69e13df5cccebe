#ifndef FINGER_H
#define FINGER_H

#include <QEvent>
#include <QPoint>

class QDeclarativeView;
class QWidget;

/**
 * A finger on the screen: sends the mouse events that a touch becomes to the widget under it.
 */
class Finger
{
public:
    explicit Finger(QDeclarativeView &view);

    /** Touches @p place, in pixels of the view, and lets go. */
    void tap(const QPoint &place);

    /** Touches @p from, moves to @p to in small steps, rests, and lets go. */
    void drag(const QPoint &from, const QPoint &to);

private:
    void send(QEvent::Type type, const QPoint &place);

    QWidget &m_surface;
};

#endif // FINGER_H
