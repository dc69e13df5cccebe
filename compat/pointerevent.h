#ifndef COMPAT_POINTEREVENT_H
#define COMPAT_POINTEREVENT_H

#include <QHoverEvent>
#include <QMouseEvent>

#if QT_VERSION >= 0x060000
#include <QPointingDevice>
#endif

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

struct KeptPoint
{
    explicit KeptPoint(const QMouseEvent &)
    {
    }
};
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

/**
 * Keeps what the mouse knows of an event while others are sent on the way.
 *
 * In Qt 6 all events of a device share one point, and a new event writes its state and place into
 * that point before it parts from the others. A press that became several, in other coordinates,
 * would be a move to whoever delivers it, and no first half of a double click.
 */
class KeptPoint
{
public:
    explicit KeptPoint(const QMouseEvent &event)
        : m_event(event)
    {
        write();
    }

    ~KeptPoint()
    {
        write();
    }

private:
    Q_DISABLE_COPY(KeptPoint)

    void write() const
    {
        // A touch has points of its own, which nobody else writes to.
        if (m_event.pointingDevice() != QPointingDevice::primaryPointingDevice()) {
            return;
        }
        QMouseEvent same(m_event.type(), m_event.position(), m_event.scenePosition(),
                         m_event.globalPosition(), m_event.button(), m_event.buttons(),
                         m_event.modifiers(), m_event.source(), m_event.pointingDevice());
        same.setTimestamp(m_event.timestamp());
    }

    const QMouseEvent &m_event;
};
#endif
} // namespace PointerEvent

#endif // COMPAT_POINTEREVENT_H
