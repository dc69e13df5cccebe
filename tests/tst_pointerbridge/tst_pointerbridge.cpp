#include "support/probescreen.h"
#include "support/waiting.h"

#include <QQuickView>
#include <QStyleHints>
#include <QtTest>

namespace {
// The probe's own (10, 10) in the view.
const QPoint spot(30, 20);

typedef decltype(QTest::createTouchDevice()) TouchDevice;

/** A finger on a view's screen. */
class Finger
{
public:
    explicit Finger(QWidget *view)
        : m_view(view)
    {
    }

    void press(const QPoint &at)
    {
        QTest::touchEvent(m_view, device()).press(0, at, m_view);
    }

    void move(const QPoint &to)
    {
        QTest::touchEvent(m_view, device()).move(0, to, m_view);
    }

    void release(const QPoint &at)
    {
        QTest::touchEvent(m_view, device()).release(0, at, m_view);
    }

    void tap(const QPoint &at)
    {
        press(at);
        release(at);
    }

private:
    static TouchDevice device()
    {
        static const TouchDevice theDevice = QTest::createTouchDevice();
        return theDevice;
    }

    QWidget *m_view;
};

/** Turns the mouse wheel by @p angle, in eighths of a degree. */
void turnWheel(QWidget *view, const QPoint &at, const QPoint &angle)
{
    QWheelEvent event(at, view->mapToGlobal(at), QPoint(), angle, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view, &event);
}
} // namespace

class tst_PointerBridge : public QObject
{
    Q_OBJECT

private slots:
    void aClickArrivesInItsPlace();
    void aDragArrivesAlsoFromOutside();
    void everyButtonArrives();
    void aDoubleClickIsNoPress();
    void aDoubleClickOfAWindowIsNoPress();
    void twoSlowClicksAreTwo();
    void tenClicksInARowAllArrive();
    void tenTapsInARowAllArrive_data();
    void tenTapsInARowAllArrive();
    void aTapArrivesAsAClick_data();
    void aTapArrivesAsAClick();
    void aFingersWayArrivesAsADrag_data();
    void aFingersWayArrivesAsADrag();
    void twoQuickTapsAreADoubleClick_data();
    void twoQuickTapsAreADoubleClick();
    void twoQuickTapsApartAreTwo_data();
    void twoQuickTapsApartAreTwo();
    void twoSlowTapsAreTwo();
    void aTapElsewhereComesBetweenTwo();
    void tapsGoOnAfterADoubleClickThatNobodyTakes();
    void aTapDoesNotMoveToTheMouse();
    void aSecondFingerIsNobodysClick();
    void theWheelArrives();
    void theMouseWithoutAButtonArrivesWhereItIsTracked();
    void whatNobodyTakesGoesToTheItemBelow();
    void anEmptyItemTakesNothing();
    void aStolenDragEndsOutside();
    void aDisabledItemTakesNothing();
};

void tst_PointerBridge::aClickArrivesInItsPlace()
{
    ProbeScreen screen;

    QTest::mousePress(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10"));
    QTest::mouseRelease(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.item->probe()->take(), QString("release 10,10"));
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, QPoint(119, 89));
    QCOMPARE(screen.item->probe()->take(), QString("press 99,79; release 99,79"));
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, QPoint(120, 90));
    QCOMPARE(screen.item->probe()->take(), QString());

    screen.item->setX(0);
    screen.item->setScale(0.5); // around the middle, now at (50, 50)
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, QPoint(60, 60));
    QCOMPARE(screen.item->probe()->take(), QString("press 70,60; release 70,60"));
}

void tst_PointerBridge::aDragArrivesAlsoFromOutside()
{
    ProbeScreen screen;
    QWindow *window = screen.view.quickWindow();

    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseMove(window, QPoint(40, 40));
    QTest::mouseMove(window, QPoint(150, 40));
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(150, 40));

    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; drag 20,30; drag 130,30; release outside"));
}

void tst_PointerBridge::everyButtonArrives()
{
    ProbeScreen screen;

    QTest::mouseClick(&screen.view, Qt::RightButton, Qt::NoModifier, spot);
    QTest::mouseClick(&screen.view, Qt::MiddleButton, Qt::NoModifier, spot);

    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; press 10,10; release 10,10"));
}

void tst_PointerBridge::aDoubleClickIsNoPress()
{
    ProbeScreen screen;

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseDClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseRelease(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; double click 10,10; release 10,10"));

    // A third click is a click again.
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10; release 10,10"));
}

void tst_PointerBridge::aDoubleClickOfAWindowIsNoPress()
{
    ProbeScreen other("Item {}"); // for the type's registration
    QQuickView window;
    window.resize(200, 120);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    ProbeItem item;
    item.setSize(QSizeF(100, 80));
    item.setParentItem(window.contentItem());

    QTest::mouseDClick(&window, Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));

    QCOMPARE(item.probe()->take(),
             QString("press 30,20; release 30,20; double click 30,20; release 30,20"));
}

void tst_PointerBridge::twoSlowClicksAreTwo()
{
    ProbeScreen screen;

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);

    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; press 10,10; release 10,10"));
}

void tst_PointerBridge::tenClicksInARowAllArrive()
{
    ProbeScreen screen;
    screen.item->probe()->setMouseTracking(true);

    for (int i = 0; i < 10; ++i) {
        QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
        QStringList events = screen.item->probe()->take().split("; ");
        events.removeAll("hover 10,10");
        QCOMPARE(events.join("; "), QString("press 10,10; release 10,10"));
    }
}

void tst_PointerBridge::tenTapsInARowAllArrive_data()
{
    aTapArrivesAsAClick_data();
}

void tst_PointerBridge::tenTapsInARowAllArrive()
{
    QFETCH(bool, viewTakesTouches);
    ProbeScreen screen;
    screen.item->probe()->setMouseTracking(true);
    screen.view.setAttribute(Qt::WA_AcceptTouchEvents, viewTakesTouches);
    Finger finger(&screen.view);

    for (int i = 0; i < 10; ++i) {
        finger.tap(spot);
        QStringList events = screen.item->probe()->take().split("; ");
        events.removeAll("hover 10,10");
        events.replaceInStrings("double click", "press");
        QCOMPARE(events.join("; "), QString("press 10,10; release 10,10"));
    }
}

void tst_PointerBridge::aTapArrivesAsAClick_data()
{
    // Qt 5's own view widget doesn't take touches, so that the window makes mouse events of them.
    QTest::addColumn<bool>("viewTakesTouches");
    QTest::newRow("as a touch") << true;
    QTest::newRow("as a mouse") << false;
}

void tst_PointerBridge::aTapArrivesAsAClick()
{
    QFETCH(bool, viewTakesTouches);
    ProbeScreen screen;
    screen.view.setAttribute(Qt::WA_AcceptTouchEvents, viewTakesTouches);
    Finger finger(&screen.view);

    finger.press(spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10"));
    finger.release(spot);
    QCOMPARE(screen.item->probe()->take(), QString("release 10,10"));
}

void tst_PointerBridge::aFingersWayArrivesAsADrag_data()
{
    aTapArrivesAsAClick_data();
}

void tst_PointerBridge::aFingersWayArrivesAsADrag()
{
    QFETCH(bool, viewTakesTouches);
    // For a window Qt 6.8 makes a double click of two touches wherever they are.
    letTimePass(viewTakesTouches ? 0 : QApplication::doubleClickInterval() + 50);
    ProbeScreen screen;
    screen.view.setAttribute(Qt::WA_AcceptTouchEvents, viewTakesTouches);
    Finger finger(&screen.view);

    finger.press(QPoint(60, 80));
    QCOMPARE(screen.item->probe()->take(), QString("press 40,70"));
    for (int y = 50; y >= 20; y -= 30) {
        // Qt Quick drops all ways but the last of a frame.
        finger.move(QPoint(60, y));
        QString drag;
        QVERIFY(waitUntil([&] {
            drag += screen.item->probe()->take();
            return !drag.isEmpty();
        }));
        QCOMPARE(drag, QString("drag 40,%1").arg(y - 10));
    }
    finger.release(QPoint(60, 20));
    QCOMPARE(screen.item->probe()->take(), QString("release 40,10"));
}

void tst_PointerBridge::twoQuickTapsAreADoubleClick_data()
{
    aTapArrivesAsAClick_data();
}

void tst_PointerBridge::twoQuickTapsAreADoubleClick()
{
    QFETCH(bool, viewTakesTouches);
    ProbeScreen screen;
    screen.view.setAttribute(Qt::WA_AcceptTouchEvents, viewTakesTouches);
    Finger finger(&screen.view);

    finger.tap(spot);
    finger.tap(spot);
    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; double click 10,10; release 10,10"));

    finger.tap(spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10; release 10,10"));
}

void tst_PointerBridge::twoQuickTapsApartAreTwo_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<QString>("second");

    QTest::newRow("beside") << QPoint(40, 0) << "press 50,10; release 50,10";
    QTest::newRow("below") << QPoint(0, 40) << "press 10,50; release 10,50";
}

void tst_PointerBridge::twoQuickTapsApartAreTwo()
{
    QFETCH(QPoint, way);
    QFETCH(QString, second);
    ProbeScreen screen;
    Finger finger(&screen.view);

    finger.tap(spot);
    finger.tap(spot + way);

    QCOMPARE(screen.item->probe()->take(), "press 10,10; release 10,10; " + second);
}

void tst_PointerBridge::twoSlowTapsAreTwo()
{
    ProbeScreen screen;
    Finger finger(&screen.view);

    QGuiApplication::styleHints()->setMouseDoubleClickInterval(0); // nobody is as quick as that
    finger.tap(spot);
    finger.tap(spot);
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(-1); // the platform's again

    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; press 10,10; release 10,10"));
}

void tst_PointerBridge::aTapElsewhereComesBetweenTwo()
{
    ProbeScreen screen("ProbeItem { x: 20; y: 10; width: 100; height: 80 }\n"
                       "MouseArea { x: 140; width: 60; height: 120 }");
    Finger finger(&screen.view);

    finger.tap(spot);
    finger.tap(QPoint(170, 60));
    finger.tap(spot);

    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; press 10,10; release 10,10"));
}

void tst_PointerBridge::tapsGoOnAfterADoubleClickThatNobodyTakes()
{
    ProbeScreen screen;
    screen.item->probe()->ignoresDoubleClicks = true;
    Finger finger(&screen.view);

    finger.tap(spot);
    finger.tap(spot);
    QCOMPARE(screen.item->probe()->take(),
             QString("press 10,10; release 10,10; double click 10,10"));
    QVERIFY(!screen.view.quickWindow()->mouseGrabberItem());

    finger.tap(spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10; release 10,10"));
}

void tst_PointerBridge::aTapDoesNotMoveToTheMouse()
{
    ProbeScreen screen;
    Finger finger(&screen.view);
    QTest::mouseMove(screen.view.quickWindow(), QPoint(110, 80));
    screen.item->probe()->setMouseTracking(true);
    screen.item->probe()->take();

    finger.press(spot);
    QTest::mouseMove(screen.view.quickWindow(), QPoint(100, 70));
    finger.release(spot);

    QCOMPARE(screen.item->probe()->take(),
             QString("hover 10,10; press 10,10; release 10,10; hover 10,10"));
}

void tst_PointerBridge::aSecondFingerIsNobodysClick()
{
    ProbeScreen screen;
    const TouchDevice device = QTest::createTouchDevice();
    const QPoint elsewhere(80, 60);

    QTest::touchEvent(&screen.view, device).press(0, spot, &screen.view);
    QTest::touchEvent(&screen.view, device).stationary(0).press(1, elsewhere, &screen.view);
    QTest::touchEvent(&screen.view, device).stationary(0).release(1, elsewhere, &screen.view);
    QTest::touchEvent(&screen.view, device).release(0, spot, &screen.view);

    QCOMPARE(screen.item->probe()->take(), QString("press 10,10; release 10,10"));
}

void tst_PointerBridge::theWheelArrives()
{
    ProbeScreen screen;

    turnWheel(&screen.view, spot, QPoint(0, -120));
    turnWheel(&screen.view, spot, QPoint(240, 0));
    turnWheel(&screen.view, QPoint(150, 100), QPoint(0, -120));

    QCOMPARE(screen.item->probe()->take(), QString("wheel 10,10 by 0,-120; wheel 10,10 by 240,0"));
}

void tst_PointerBridge::theMouseWithoutAButtonArrivesWhereItIsTracked()
{
    ProbeScreen screen;
    QWindow *window = screen.view.quickWindow();

    QTest::mouseMove(window, spot);
    QTest::mouseMove(window, QPoint(35, 20));
    QTest::mouseMove(window, QPoint(150, 100));
    QCOMPARE(screen.item->probe()->take(), QString());

    screen.item->probe()->setMouseTracking(true);
    QTest::mouseMove(window, spot);
    QTest::mouseMove(window, QPoint(150, 100));
    QCOMPARE(screen.item->probe()->take(), QString("hover 10,10; leave"));
}

void tst_PointerBridge::whatNobodyTakesGoesToTheItemBelow()
{
    ProbeScreen screen("property int clicks: 0\n"
                       "MouseArea { anchors.fill: parent; onClicked: ++parent.clicks }\n"
                       "ProbeItem { x: 20; y: 10; width: 100; height: 80 }");
    Probe *probe = screen.item->probe();

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.view.rootObject()->property("clicks").toInt(), 0);
    QCOMPARE(probe->take(), QString("press 10,10; release 10,10"));

    probe->ignoresPresses = true;
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.view.rootObject()->property("clicks").toInt(), 1);
    QCOMPARE(probe->take(), QString("press 10,10"));
}

void tst_PointerBridge::anEmptyItemTakesNothing()
{
    ProbeScreen screen("property int clicks: 0\n"
                       "property int doubleClicks: 0\n"
                       "MouseArea { anchors.fill: parent\n"
                       "  onClicked: ++parent.clicks; onDoubleClicked: ++parent.doubleClicks }");
    QQuickItem *root = screen.view.rootObject();
    QDeclarativeItem cover;
    cover.setSize(QSizeF(200, 120));
    cover.setParentItem(root);

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(root->property("clicks").toInt(), 1);
    QTest::mouseDClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(root->property("doubleClicks").toInt(), 1);
}

void tst_PointerBridge::aStolenDragEndsOutside()
{
    ProbeScreen screen("Flickable { anchors.fill: parent; contentHeight: 500\n"
                       "  ProbeItem { x: 20; y: 10; width: 100; height: 80 } }");
    QWindow *window = screen.view.quickWindow();

    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(60, 80));
    for (int y = 78; y > 20; y -= 2) {
        QTest::mouseMove(window, QPoint(60, y));
    }
    const QString events = screen.item->probe()->take();
    QVERIFY2(events.startsWith("press 40,70; "), qPrintable(events));
    QVERIFY2(events.endsWith("; release outside"), qPrintable(events));
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(60, 20));
    QCOMPARE(screen.item->probe()->take(), QString());
}

void tst_PointerBridge::aDisabledItemTakesNothing()
{
    ProbeScreen screen;

    screen.item->setEnabled(false);
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    turnWheel(&screen.view, spot, QPoint(0, -120));
    Finger(&screen.view).tap(spot);

    QCOMPARE(screen.item->probe()->take(), QString());
}

QTEST_MAIN(tst_PointerBridge)
#include "tst_pointerbridge.moc"
