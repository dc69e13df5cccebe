#ifndef PROBE_H
#define PROBE_H

#include <QDeclarativeItem>

#include <QPointer>
#include <QStringList>
#include <QWidget>

class QGraphicsProxyWidget;

/** A widget that shows four colours - red, green, blue and black from left to right and top to
 * bottom - and remembers what it is told. */
class Probe : public QWidget
{
public:
    Probe();
    ~Probe() override;

    /** Mouse events so far, as "press 10,20; release 10,20" and the like, and starts again from
     * nothing. Without a button only where the mouse is tracked. */
    QString take();

    /** How often it has been asked to draw itself. */
    int paints() const
    {
        return m_paints;
    }

    /** How many there are. */
    static int count();

    bool ignoresPresses;
    bool ignoresDoubleClicks;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void note(const char *what, const QPoint &position);

    int m_paints;
    QStringList m_events;
};

/** An item with a probe that always has its size, written as for Qt 4.8. */
class ProbeItem : public QDeclarativeItem
{
    Q_OBJECT

public:
    explicit ProbeItem(QDeclarativeItem *parent = nullptr);
    ~ProbeItem() override;

    Probe *probe() const
    {
        return m_probe;
    }

    QGraphicsProxyWidget *proxy() const
    {
        return m_proxy;
    }

private slots:
    void fit();

private:
    QGraphicsProxyWidget *m_proxy;
    QPointer<Probe> m_probe;
};

#endif // PROBE_H
