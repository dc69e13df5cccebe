#ifndef PROBESCREEN_H
#define PROBESCREEN_H

#include "support/probe.h"
#include "support/testdir.h"

#include <QDeclarativeView>

#include <QColor>

/** A shown view of 200 x 120 on a white scene with probes in it. */
class ProbeScreen
{
public:
    /** A scene with the QML @p contents: a probe of 100 x 80 at (20, 10) when nothing is said. */
    explicit ProbeScreen(const QByteArray &contents = QByteArray());

    /** Waits until all that is to be drawn is drawn. */
    void settle() const;

    /** Colour that the view shows at (@p x, @p y), in units of the scene. */
    QColor colorAt(qreal x, qreal y) const;

    /** Units of the scene per pixel. */
    qreal pixel() const;

    QDeclarativeView view;
    QPointer<ProbeItem> item; // the first

private:
    Q_DISABLE_COPY(ProbeScreen)

    TestDir m_dir;
};

#endif // PROBESCREEN_H
