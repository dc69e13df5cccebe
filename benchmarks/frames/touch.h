#ifndef TOUCH_H
#define TOUCH_H

#include <QApplication>
#include <QDateTime>
#include <QMouseEvent>
#include <QWidget>

/** Sends the mouse event that a touch becomes to the widget at @p place of @p window: all of a
 * touch go to the widget where it began. */
class Touch
{
public:
    Touch(QWidget *window, const QPoint &place)
        : m_window(window)
        , m_widget(window->childAt(place))
    {
        if (!m_widget)
            m_widget = window;
        send(QEvent::MouseButtonPress, place);
    }

    void move(const QPoint &place)
    {
        send(QEvent::MouseMove, place);
    }

    void release(const QPoint &place)
    {
        send(QEvent::MouseButtonRelease, place);
    }

private:
    void send(QEvent::Type type, const QPoint &place)
    {
        const bool isDown = type != QEvent::MouseButtonRelease;
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, m_widget->mapFrom(m_window, place), m_window->mapToGlobal(place),
                          button, isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
#if QT_VERSION >= 0x060000
        // There a list that is let go rolls as fast as these say that it was pulled.
        event.setTimestamp(QDateTime::currentMSecsSinceEpoch());
#endif
        QApplication::sendEvent(m_widget, &event);
    }

    QWidget *m_window;
    QWidget *m_widget;
};

#endif // TOUCH_H
