#include "pointerbridge.h"

#include <QCoreApplication>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {
const QPointF outOfReach(-10000, -10000);
} // namespace

PointerBridge::PointerBridge(QGraphicsScene *scene)
    : m_scene(scene)
{
}

void PointerBridge::press(QMouseEvent *event)
{
    event->setAccepted(send(QEvent::GraphicsSceneMousePress, *event));
    if (event->isAccepted()) {
        m_buttons = event->buttons();
    }
}

void PointerBridge::doubleClick(QMouseEvent *event)
{
    event->setAccepted(send(QEvent::GraphicsSceneMouseDoubleClick, *event));
    if (event->isAccepted()) {
        m_buttons = event->buttons();
    }
}

void PointerBridge::move(QMouseEvent *event)
{
    // Without a button it is the echo of a touch, at wherever the mouse was last.
    if (event->buttons()) {
        event->setAccepted(send(QEvent::GraphicsSceneMouseMove, *event));
    }
}

void PointerBridge::release(QMouseEvent *event)
{
    m_buttons = event->buttons();
    event->setAccepted(send(QEvent::GraphicsSceneMouseRelease, *event));
}

void PointerBridge::cancel()
{
    while (m_buttons) {
        const Qt::MouseButton lowest = Qt::MouseButton(int(m_buttons) & -int(m_buttons));
        m_buttons &= ~Qt::MouseButtons(lowest);
        const QMouseEvent event(QEvent::MouseButtonRelease, outOfReach, outOfReach, outOfReach,
                                lowest, m_buttons, Qt::NoModifier);
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

void PointerBridge::hover(QHoverEvent *event, const QPoint &screenPosition)
{
    const QMouseEvent move(QEvent::MouseMove, event->posF(), event->posF(), screenPosition,
                           Qt::NoButton, Qt::NoButton, event->modifiers());
    event->setAccepted(send(QEvent::GraphicsSceneMouseMove, move));
}

void PointerBridge::leave()
{
    QEvent event(QEvent::Leave);
    QCoreApplication::sendEvent(m_scene, &event);
}

bool PointerBridge::send(QEvent::Type type, const QMouseEvent &event)
{
    QGraphicsSceneMouseEvent sceneEvent(type);
    sceneEvent.setScenePos(event.localPos());
    sceneEvent.setScreenPos(event.globalPos());
    sceneEvent.setLastScenePos(m_lastScenePosition);
    sceneEvent.setLastScreenPos(m_lastScreenPosition);
    sceneEvent.setButton(event.button());
    sceneEvent.setButtons(event.buttons());
    sceneEvent.setModifiers(event.modifiers());
    sceneEvent.setSource(event.source());
    sceneEvent.setFlags(event.flags());
    sceneEvent.ignore();
    m_lastScenePosition = event.localPos();
    m_lastScreenPosition = event.globalPos();
    QCoreApplication::sendEvent(m_scene, &sceneEvent);
    return sceneEvent.isAccepted();
}
