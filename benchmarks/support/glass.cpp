#include "support/glass.h"

#include <QEventLoop>
#include <QTimer>
#include <QWidget>

#include <chrono>

#include <time.h>

Moment Moment::now()
{
    timespec work;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &work);
    const auto clock = std::chrono::steady_clock::now().time_since_epoch();
    const Moment moment = {std::chrono::duration<double>(clock).count(),
                           work.tv_sec + work.tv_nsec / 1e9};
    return moment;
}

namespace {
const int restMs = 300;
const double idleSeconds = 0.01; // of work in that time
} // namespace

Glass::Glass(int &argc, char **argv)
    : QApplication(argc, argv)
    , m_window(nullptr)
    , m_contents(nullptr)
    , m_depth(0)
    , m_isWindowDrawn(false)
    , m_areContentsDrawn(false)
    , m_lastPicture()
{
}

void Glass::watch(QWidget *window, QWidget *contents)
{
    m_window = window;
    m_contents = contents;
    m_isWindowDrawn = false;
    m_areContentsDrawn = false;
    m_frames.clear();
    m_lastPicture = Moment::now();
}

bool Glass::notify(QObject *receiver, QEvent *event)
{
    if (event->type() == QEvent::Paint && receiver->isWidgetType())
        noteDrawing(static_cast<QWidget *>(receiver));
    ++m_depth;
    const bool isHandled = QApplication::notify(receiver, event);
    --m_depth;
    if (m_depth == 0 && m_isWindowDrawn) {
        m_isWindowDrawn = false;
        if (m_areContentsDrawn || !m_contents)
            notePicture();
    }
    return isHandled;
}

void Glass::noteDrawing(const QWidget *widget)
{
    m_isWindowDrawn = m_isWindowDrawn || widget->window() == m_window;
    m_areContentsDrawn = m_areContentsDrawn || widget == m_contents;
}

void Glass::notePicture()
{
    const Moment now = Moment::now();
    m_areContentsDrawn = false;
    m_frames.push_back(now.work - m_lastPicture.work);
    m_lastPicture = now;
    if (m_looker)
        m_looker();
}

bool Glass::waitForPicture(const std::function<bool()> &isWanted, int patienceMs)
{
    QEventLoop loop;
    QTimer::singleShot(patienceMs, &loop, SLOT(quit()));
    bool isThere = false;
    m_looker = [&] {
        isThere = isThere || isWanted();
        if (isThere)
            loop.quit();
    };
    loop.exec();
    m_looker = nullptr;
    return isThere;
}

void Glass::rest()
{
    double before = 0;
    do {
        before = Moment::now().work;
        waitForPicture([] { return false; }, restMs);
    } while (Moment::now().work - before > idleSeconds);
}
