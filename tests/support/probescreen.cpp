#include "support/probescreen.h"

#include "support/waiting.h"

#include <QtTest>

namespace {
const int quietMs = 60; // several frames
} // namespace

ProbeScreen::ProbeScreen(const QByteArray &contents)
{
    qmlRegisterType<ProbeItem>("Probes", 1, 0, "ProbeItem");
    const QByteArray aProbe = "ProbeItem { x: 20; y: 10; width: 100; height: 80 }";
    m_dir.file("screen.qml", "import QtQuick 2.0\nimport Probes 1.0\nRectangle { color: 'white'\n" +
                                 (contents.isEmpty() ? aProbe : contents) + "}\n");
    view.setResizeMode(QDeclarativeView::SizeRootObjectToView);
    view.resize(200, 120);
    view.setSource(QUrl::fromLocalFile(m_dir.path("screen.qml")));
    if (view.status() != QDeclarativeView::Ready) {
        qFatal("%s", qPrintable(view.errors().value(0).toString()));
    }
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        qFatal("The view does not show");
    }
    item = view.rootObject()->findChild<ProbeItem *>();
    settle();
}

void ProbeScreen::settle() const
{
    int before = -1;
    while (item && item->probe()->paints() != before) {
        before = item->probe()->paints();
        letTimePass(quietMs);
    }
}

QColor ProbeScreen::colorAt(qreal x, qreal y) const
{
    const QImage image = view.grabFramebuffer();
    return image.pixelColor(qRound(x / pixel()), qRound(y / pixel()));
}

qreal ProbeScreen::pixel() const
{
    return 1 / view.devicePixelRatioF();
}
