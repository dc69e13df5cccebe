#include "support/probe.h"

#include <QGraphicsProxyWidget>
#include <QMouseEvent>
#include <QPainter>

namespace {
int probes = 0;
} // namespace

Probe::Probe()
    : ignoresPresses(false)
    , ignoresDoubleClicks(false)
    , m_paints(0)
{
    ++probes;
}

Probe::~Probe()
{
    --probes;
}

QString Probe::take()
{
    QString taken = m_events.join("; ");
    m_events.clear();
    return taken;
}

int Probe::count()
{
    return probes;
}

void Probe::paintEvent(QPaintEvent *)
{
    ++m_paints;
    const QPoint middle(width() / 2, height() / 2);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.fillRect(QRect(0, 0, middle.x(), middle.y()), Qt::red);
    painter.fillRect(QRect(middle.x(), 0, width() - middle.x(), middle.y()), Qt::green);
    painter.fillRect(QRect(0, middle.y(), middle.x(), height() - middle.y()), Qt::blue);
}

void Probe::mousePressEvent(QMouseEvent *event)
{
    note("press", event->pos());
    event->setAccepted(!ignoresPresses);
}

void Probe::mouseMoveEvent(QMouseEvent *event)
{
    note(event->buttons() ? "drag" : "hover", event->pos());
}

void Probe::mouseReleaseEvent(QMouseEvent *event)
{
    if (rect().contains(event->pos())) {
        note("release", event->pos());
    } else {
        m_events.append("release outside");
    }
}

void Probe::mouseDoubleClickEvent(QMouseEvent *event)
{
    note("double click", event->pos());
    event->setAccepted(!ignoresDoubleClicks);
}

void Probe::wheelEvent(QWheelEvent *event)
{
    const QPoint angle = event->angleDelta();
    note("wheel", event->position().toPoint());
    m_events.last() += QString(" by %1,%2").arg(angle.x()).arg(angle.y());
    event->accept();
}

void Probe::leaveEvent(QEvent *)
{
    if (hasMouseTracking()) {
        m_events.append("leave");
    }
}

void Probe::note(const char *what, const QPoint &position)
{
    m_events.append(QString("%1 %2,%3").arg(what).arg(position.x()).arg(position.y()));
}

ProbeItem::ProbeItem(QDeclarativeItem *parent)
    : QDeclarativeItem(parent)
    , m_proxy(new QGraphicsProxyWidget(this))
    , m_probe(new Probe)
{
    setFlag(QGraphicsItem::ItemHasNoContents, false);
    m_proxy->setWidget(m_probe);
    connect(this, SIGNAL(widthChanged()), this, SLOT(fit()));
    connect(this, SIGNAL(heightChanged()), this, SLOT(fit()));
}

ProbeItem::~ProbeItem()
{
    delete m_probe;
}

void ProbeItem::fit()
{
    if (width() > 0 && height() > 0) {
        m_proxy->setMinimumSize(width(), height());
        m_proxy->setMaximumSize(width(), height());
        m_probe->repaint();
    }
}
