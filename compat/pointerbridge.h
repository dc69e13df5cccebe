#ifndef COMPAT_POINTERBRIDGE_H
#define COMPAT_POINTERBRIDGE_H

#include <QEvent>
#include <QGraphicsScene>
#include <QObject>
#include <QPoint>

class QHoverEvent;
class QMouseEvent;
class QWheelEvent;

/**
 * Hands the pointer events that Qt Quick sends to an item on to a graphics scene, whose coordinates
 * are those of the item. An event is accepted when something in the scene accepts it.
 */
class PointerBridge : public QObject
{
    Q_OBJECT

public:
    /** A bridge to @p scene, which must outlive it. */
    explicit PointerBridge(QGraphicsScene *scene);

    void press(QMouseEvent *event);
    void doubleClick(QMouseEvent *event);
    void move(QMouseEvent *event);
    void release(QMouseEvent *event);

    /** Somebody else took the mouse: buttons that are down in the scene are released, out of reach
     * of whatever they would have an effect on. */
    void cancel();

    void wheel(QWheelEvent *event);
    void hover(QHoverEvent *event, const QPoint &screenPosition);
    void leave();

private:
    Q_DISABLE_COPY(PointerBridge)

    bool send(QEvent::Type type, const QMouseEvent &event);

    QGraphicsScene *m_scene;
    Qt::MouseButtons m_buttons; // that are down in the scene
    QPointF m_lastScenePosition;
    QPoint m_lastScreenPosition;
};

#endif // COMPAT_POINTERBRIDGE_H
