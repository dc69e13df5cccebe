#include "host/finger.h"

#include <QApplication>
#include <QDeclarativeView>
#include <QElapsedTimer>
#include <QMouseEvent>

namespace {
const int dragSteps = 12;
const int stepMs = 16;  // one frame
const int restMs = 150; // long enough that the list takes it for no flick

// Items measure how fast a finger moves, so that the time between the events counts.
void letTimePass(int ms)
{
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < ms) {
        QApplication::processEvents(QEventLoop::AllEvents, ms);
    }
}
} // namespace

Finger::Finger(QDeclarativeView &view)
    : m_surface(*view.viewport())
{
}

void Finger::tap(const QPoint &place)
{
    send(QEvent::MouseButtonPress, place);
    send(QEvent::MouseButtonRelease, place);
}

void Finger::drag(const QPoint &from, const QPoint &to)
{
    send(QEvent::MouseButtonPress, from);
    for (int step = 1; step <= dragSteps; ++step) {
        letTimePass(stepMs);
        send(QEvent::MouseMove, from + (to - from) * step / dragSteps);
    }
    letTimePass(restMs);
    send(QEvent::MouseButtonRelease, to);
}

void Finger::send(QEvent::Type type, const QPoint &place)
{
    const bool isDown = type != QEvent::MouseButtonRelease;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, m_surface.mapToGlobal(place), button,
                      isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&m_surface, &event);
}
