#ifndef COMPAT_POINTEREVENT_H
#define COMPAT_POINTEREVENT_H

#include <QHoverEvent>
#include <QMouseEvent>

/** What Qt 5 and Qt 6 call differently in the events of mouse, touch and hover. */
namespace PointerEvent {
#if QT_VERSION < 0x060000
inline QPointF position(const QMouseEvent &event)
{
    return event.localPos();
}

inline QPointF position(const QHoverEvent &event)
{
    return event.posF();
}

inline QPoint screenPosition(const QMouseEvent &event)
{
    return event.globalPos();
}

inline QMouseEvent *copy(const QMouseEvent &event)
{
    return new QMouseEvent(event);
}
#else
inline QPointF position(const QSinglePointEvent &event)
{
    return event.position();
}

inline QPoint screenPosition(const QMouseEvent &event)
{
    return event.globalPosition().toPoint();
}

inline QMouseEvent *copy(const QMouseEvent &event)
{
    return event.clone();
}
#endif
} // namespace PointerEvent

#endif // COMPAT_POINTEREVENT_H
