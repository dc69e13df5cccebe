#include "pointerbridge.h"

#include "pointerevent.h"

#include <QApplication>
#include <QGraphicsItem>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QQuickWidget>
#include <QStyleHints>
#include <QWheelEvent>

namespace {
const QPointF outOfReach(-10000, -10000);

QQuickWidget *viewOf(const QQuickWindow *window)
{
    const QWidgetList widgets = window ? QApplication::allWidgets() : QWidgetList();
    for (QWidget *widget : widgets) {
        QQuickWidget *view = qobject_cast<QQuickWidget *>(widget);
        if (view && view->quickWindow() == window) {
            return view;
        }
    }
    return nullptr;
}
} // namespace

PointerBridge::PointerBridge(QGraphicsScene *scene)
    : m_scene(scene)
    , m_viewTakesDoubleClick(false)
    , m_tapTime(0)
{
}

void PointerBridge::setWindow(QQuickWindow *window)
{
    if (m_view) {
        m_view->removeEventFilter(this);
    }
    m_view = viewOf(window);
    if (m_view) {
        m_view->installEventFilter(this);
    }
}

void PointerBridge::press(QMouseEvent *event)
{
    if (beginsDoubleClick(*event)) {
        m_heldPress.reset(PointerEvent::copy(*event));
        event->accept();
        return;
    }
    event->setAccepted(send(QEvent::GraphicsSceneMousePress, *event));
}

void PointerBridge::doubleClick(QMouseEvent *event)
{
    m_heldPress.reset();
    event->setAccepted(send(QEvent::GraphicsSceneMouseDoubleClick, *event));
}

void PointerBridge::move(QMouseEvent *event)
{
    // Without a button it is the echo of a touch, at wherever the mouse was last.
    if (event->buttons()) {
        sendHeldPress();
        event->setAccepted(send(QEvent::GraphicsSceneMouseMove, *event));
    }
}

void PointerBridge::release(QMouseEvent *event)
{
    sendHeldPress();
    event->setAccepted(send(QEvent::GraphicsSceneMouseRelease, *event));
}

void PointerBridge::cancel()
{
    m_heldPress.reset();
    while (m_buttons) {
        const Qt::MouseButton button = Qt::MouseButton(int(m_buttons) & -int(m_buttons));
        const QMouseEvent event(QEvent::MouseButtonRelease, outOfReach, outOfReach, outOfReach,
                                button, m_buttons & ~button, Qt::NoModifier);
        send(QEvent::GraphicsSceneMouseRelease, event);
    }
}

void PointerBridge::wheel(QWheelEvent *event)
{
    const QPoint delta = event->angleDelta();
    const bool isHorizontal = qAbs(delta.x()) > qAbs(delta.y());
    QGraphicsSceneWheelEvent sceneEvent(QEvent::GraphicsSceneWheel);
    sceneEvent.setScenePos(event->position());
    sceneEvent.setScreenPos(event->globalPosition().toPoint());
    sceneEvent.setButtons(event->buttons());
    sceneEvent.setModifiers(event->modifiers());
    sceneEvent.setDelta(isHorizontal ? delta.x() : delta.y());
    sceneEvent.setOrientation(isHorizontal ? Qt::Horizontal : Qt::Vertical);
    sceneEvent.ignore();
    QCoreApplication::sendEvent(m_scene, &sceneEvent);
    event->setAccepted(sceneEvent.isAccepted());
}

void PointerBridge::hover(const QPointF &position, const QPoint &screenPosition)
{
    if (!m_buttons) {
        const QMouseEvent move(QEvent::MouseMove, position, position, screenPosition, Qt::NoButton,
                               Qt::NoButton, Qt::NoModifier);
        send(QEvent::GraphicsSceneMouseMove, move);
    }
}

void PointerBridge::leave()
{
    // A leave event would do, but a scene without views crashes on it.
    hover(outOfReach, outOfReach.toPoint());
}

bool PointerBridge::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        m_viewTakesDoubleClick = event->type() == QEvent::MouseButtonDblClick;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool PointerBridge::beginsDoubleClick(const QMouseEvent &press)
{
    const bool isAnnounced =
        m_viewTakesDoubleClick || press.flags().testFlag(Qt::MouseEventCreatedDoubleClick);
    if (!isSecondTap(press) && !isAnnounced) {
        return false;
    }
    const QGraphicsItem *target = m_scene->itemAt(PointerEvent::position(press), QTransform());
    return target && target->parentItem();
}

/** The rule by which Qt Quick makes a double click of two touches. */
bool PointerBridge::isSecondTap(const QMouseEvent &press)
{
    if (press.source() != Qt::MouseEventSynthesizedByQt) {
        return false;
    }
    const QStyleHints *hints = QGuiApplication::styleHints();
    const QPoint way = PointerEvent::screenPosition(press) - m_tapPosition;
    const bool isSecond = m_tapTime && qAbs(way.x()) <= hints->touchDoubleTapDistance() &&
                          qAbs(way.y()) <= hints->touchDoubleTapDistance() &&
                          press.timestamp() - m_tapTime < ulong(hints->mouseDoubleClickInterval());
    m_tapTime = isSecond ? 0 : press.timestamp();
    m_tapPosition = PointerEvent::screenPosition(press);
    return isSecond;
}

void PointerBridge::sendHeldPress()
{
    if (m_heldPress) {
        send(QEvent::GraphicsSceneMousePress, *m_heldPress);
        m_heldPress.reset();
    }
}

bool PointerBridge::send(QEvent::Type type, const QMouseEvent &event)
{
    QGraphicsSceneMouseEvent sceneEvent(type);
    sceneEvent.setScenePos(PointerEvent::position(event));
    sceneEvent.setScreenPos(PointerEvent::screenPosition(event));
    sceneEvent.setLastScenePos(m_lastScenePosition);
    sceneEvent.setLastScreenPos(m_lastScreenPosition);
    sceneEvent.setButton(event.button());
    sceneEvent.setButtons(event.buttons());
    sceneEvent.setModifiers(event.modifiers());
    sceneEvent.setSource(event.source());
    sceneEvent.setFlags(event.flags());
    sceneEvent.ignore();
    m_buttons = event.buttons();
    m_lastScenePosition = PointerEvent::position(event);
    m_lastScreenPosition = PointerEvent::screenPosition(event);
    const PointerEvent::KeptPoint kept(event);
    QCoreApplication::sendEvent(m_scene, &sceneEvent);
    return sceneEvent.isAccepted();
}
