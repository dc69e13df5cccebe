#ifndef COMPAT_POINTERBRIDGE_H
#define COMPAT_POINTERBRIDGE_H

#include <QGraphicsScene>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedPointer>

class QQuickWidget;
class QQuickWindow;

/**
 * Hands the pointer events that Qt Quick sends to an item on to a graphics scene, whose coordinates
 * are those of the item. An event is accepted when something in the scene accepts it.
 *
 * Qt Quick sends the second of two quick clicks or taps as a press followed by a double click,
 * where widgets and graphics items know a double click alone. So this press is held back until what
 * follows tells what it was.
 */
class PointerBridge : public QObject
{
    Q_OBJECT

public:
    /** A bridge to @p scene, which must outlive it. */
    explicit PointerBridge(QGraphicsScene *scene);

    /** The item's window changed to @p window, or null: there come the events from. */
    void setWindow(QQuickWindow *window);

    void press(QMouseEvent *event);
    void doubleClick(QMouseEvent *event);
    void move(QMouseEvent *event);
    void release(QMouseEvent *event);

    /** Somebody else took the mouse: buttons that are down in the scene are released, out of reach
     * of whatever they would have an effect on. */
    void cancel();

    void wheel(QWheelEvent *event);

    /** The mouse is over the item without a button down. */
    void hover(const QPointF &position, const QPoint &screenPosition);

    /** The mouse is over the item no longer. */
    void leave();

    /** Notes whether the view around the scene, @p watched, takes a click or a double click. */
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(PointerBridge)

    bool beginsDoubleClick(const QMouseEvent &press);
    bool isSecondTap(const QMouseEvent &press);
    void sendHeldPress();
    bool send(QEvent::Type type, const QMouseEvent &event);

    QGraphicsScene *m_scene;
    QPointer<QQuickWidget> m_view; // that shows the item's window, if it is in one
    bool m_viewTakesDoubleClick;
    ulong m_tapTime; // of the last touch that was not a second tap, in ms; or 0
    QPoint m_tapPosition;
    QScopedPointer<QMouseEvent> m_heldPress;
    Qt::MouseButtons m_buttons; // that are down in the scene
    QPointF m_lastScenePosition;
    QPoint m_lastScreenPosition;
};

#endif // COMPAT_POINTERBRIDGE_H
