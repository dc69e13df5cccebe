#include "support/testdir.h"
#include "support/waiting.h"

#include <QDeclarativeItem>
#include <QDeclarativeView>

#include <QGraphicsProxyWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QProcess>
#include <QQuickWindow>
#include <QtTest>

namespace {
/** A widget that remembers what it is told. */
class Probe : public QWidget
{
public:
    Probe()
        : paints(0)
    {
        ++alive;
    }

    ~Probe() override
    {
        --alive;
    }

    /** Events so far, as "press 10,20" and the like, and starts again from nothing. */
    QStringList take()
    {
        const QStringList taken = m_events;
        m_events.clear();
        return taken;
    }

    int paints;
    static int alive;

protected:
    void paintEvent(QPaintEvent *) override
    {
        ++paints;
        QPainter painter(this);
        const int x = width() / 2;
        const int y = height() / 2;
        painter.fillRect(0, 0, x, y, Qt::red);
        painter.fillRect(x, 0, width() - x, y, Qt::green);
        painter.fillRect(0, y, x, height() - y, Qt::blue);
        painter.fillRect(x, y, width() - x, height() - y, Qt::black);
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        note("press", event->pos());
    }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        note(event->buttons() ? "drag" : "hover", event->pos());
    }

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        note(rect().contains(event->pos()) ? "release" : "release outside", event->pos());
    }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        note("double click", event->pos());
    }

    void wheelEvent(QWheelEvent *event) override
    {
        note("wheel", event->position().toPoint());
        m_events.last() +=
            QString(" by %1,%2").arg(event->angleDelta().x()).arg(event->angleDelta().y());
        event->accept();
    }

private:
    void note(const char *what, const QPoint &position)
    {
        m_events.append(QString("%1 %2,%3").arg(what).arg(position.x()).arg(position.y()));
    }

    QStringList m_events;
};

int Probe::alive = 0;

/** An item with a widget pinned to its size, written to the API of Qt 4.8. */
class ProbeItem : public QDeclarativeItem
{
    Q_OBJECT

public:
    explicit ProbeItem(QDeclarativeItem *parent = 0)
        : QDeclarativeItem(parent)
        , m_proxy(new QGraphicsProxyWidget(this))
        , m_probe(new Probe)
    {
        setFlag(QGraphicsItem::ItemHasNoContents, false);
        m_proxy->setWidget(m_probe);
        connect(this, SIGNAL(widthChanged()), this, SLOT(fit()));
        connect(this, SIGNAL(heightChanged()), this, SLOT(fit()));
    }

    ~ProbeItem() override
    {
        delete m_probe;
    }

    Probe *probe() const
    {
        return m_probe;
    }

    QGraphicsProxyWidget *proxy() const
    {
        return m_proxy;
    }

public slots:
    void fit()
    {
        if (width() > 0 && height() > 0) {
            m_proxy->setMinimumSize(width(), height());
            m_proxy->setMaximumSize(width(), height());
            m_probe->repaint();
        }
    }

private:
    QGraphicsProxyWidget *m_proxy;
    QPointer<Probe> m_probe;
};
/** A view of a scene of 200 x 120 with a probe of 100 x 80 at (20, 10). */
class Screen
{
public:
    explicit Screen(const QByteArray &inside = "ProbeItem { x: 20; y: 10; width: 100; height: 80 }")
    {
        m_dir.file("screen.qml", "import QtQuick 2.0\nimport Probe 1.0\n"
                                 "Rectangle { width: 200; height: 120; color: 'white'\n" +
                                     inside + "\n}");
        view.setResizeMode(QDeclarativeView::SizeRootObjectToView);
        view.setSource(QUrl::fromLocalFile(m_dir.path("screen.qml")));
        view.resize(200, 120);
        view.show();
        if (!QTest::qWaitForWindowExposed(&view) || !view.errors().isEmpty()) {
            qFatal("no screen");
        }
        item = view.rootObject()->findChild<ProbeItem *>();
        settle();
    }

    /** Waits until everything that was to be shown is shown. */
    void settle()
    {
        waitUntil([this] {
            QCoreApplication::sendPostedEvents();
            const int before = item ? item->probe()->paints : 0;
            letTimePass(50);
            return !item || item->probe()->paints == before;
        });
    }

    /** Colour of the device pixel at (@p x, @p y), in logical coordinates. */
    QColor colorAt(qreal x, qreal y)
    {
        const QImage image = view.grabFramebuffer();
        const qreal ratio = view.devicePixelRatioF();
        return image.pixelColor(int(x * ratio), int(y * ratio));
    }

    QDeclarativeView view;
    QPointer<ProbeItem> item;

private:
    TestDir m_dir;
};
} // namespace

class tst_DeclarativeItem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void theWidgetShowsInItsPlace();
};

void tst_DeclarativeItem::initTestCase()
{
    qmlRegisterType<ProbeItem>("Probe", 1, 0, "ProbeItem");
}

void tst_DeclarativeItem::theWidgetShowsInItsPlace()
{
    Screen screen;

    const qreal pixel = 1 / screen.view.devicePixelRatioF();
    QCOMPARE(screen.colorAt(20 - pixel, 10), QColor(Qt::white));
    QCOMPARE(screen.colorAt(20, 10 - pixel), QColor(Qt::white));
    QCOMPARE(screen.colorAt(20, 10), QColor(Qt::red));
    QCOMPARE(screen.colorAt(70 - pixel, 50 - pixel), QColor(Qt::red));
    QCOMPARE(screen.colorAt(70, 50 - pixel), QColor(Qt::green));
    QCOMPARE(screen.colorAt(70 - pixel, 50), QColor(Qt::blue));
    QCOMPARE(screen.colorAt(70, 50), QColor(Qt::black));
    QCOMPARE(screen.colorAt(120 - pixel, 90 - pixel), QColor(Qt::black));
    QCOMPARE(screen.colorAt(120, 90 - pixel), QColor(Qt::white));
    QCOMPARE(screen.colorAt(120 - pixel, 90), QColor(Qt::white));
}

QTEST_MAIN(tst_DeclarativeItem)
#include "tst_declarativeitem.moc"
