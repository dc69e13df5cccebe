#include "support/probescreen.h"
#include "support/waiting.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QPainter>
#include <QSGImageNode>
#include <QtTest>

class tst_DeclarativeItem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void theWidgetShowsInItsPlace();
    void theWidgetFollowsTheItemsSize();
    void aWidgetDrawsWithinItsOwnEdges();
    void anEmptyItemShowsNothing();
    void theWidgetIsDrawnOnceAndThenOnlyWhenSomethingChanged();
    void repaintDrawsInsideTheCallAndUpdateLater();
    void aWidgetThatRepaintsWhileItIsDrawnIsDrawnAgainLater();
    void whatAPointerRepaintsIsDrawnOnce();
    void thePictureIsUploadedOnlyWhenItChanged();
    void aHiddenItemIsDrawnWhenItIsShown();
    void theItemsOpacityFadesTheWidgetOnce();
    void whatCannotBeSeenTakesNoPress();
    void visibilityReachesTheWidget();
    void enablingReachesTheWidget();
    void aParentsStateReachesANewItem();
    void ownContentsAreDrawnBelowTheChildren();
    void itemsOfTheScreenAreChildrenAndParents();
    void theWidgetLooksActiveAndNeverHasTheFocus();
    void anotherViewCanTakeTheItemOver();

    void viewsTellWhatIsWrongWithTheirSource();
    void viewsHaveAContextAndSizeTheirRoot();
};

void tst_DeclarativeItem::initTestCase()
{
    // The widgets' own looks play no part, but their moments of drawing do.
    QApplication::setStyle("Fusion");
}

void tst_DeclarativeItem::theWidgetShowsInItsPlace()
{
    const ProbeScreen screen;

    const qreal pixel = screen.pixel();
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

void tst_DeclarativeItem::theWidgetFollowsTheItemsSize()
{
    const ProbeScreen screen;

    screen.item->setWidth(160);
    screen.item->setHeight(40);

    QCOMPARE(screen.item->probe()->size(), QSize(160, 40));
    QCOMPARE(screen.item->boundingRect(), QRectF(0, 0, 160, 40));
    const qreal pixel = screen.pixel();
    QCOMPARE(screen.colorAt(100 - pixel, 30 - pixel), QColor(Qt::red));
    QCOMPARE(screen.colorAt(100, 30), QColor(Qt::black));
    QCOMPARE(screen.colorAt(180 - pixel, 50 - pixel), QColor(Qt::black));
    QCOMPARE(screen.colorAt(180, 50 - pixel), QColor(Qt::white));
    QCOMPARE(screen.colorAt(180 - pixel, 50), QColor(Qt::white));
}

namespace {
/** A widget that draws without regard for its size. */
class Boundless : public QWidget
{
public:
    explicit Boundless(QWidget *parent)
        : QWidget(parent)
    {
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).fillRect(-1000, -1000, 2000, 2000, Qt::cyan);
    }
};
} // namespace

void tst_DeclarativeItem::aWidgetDrawsWithinItsOwnEdges()
{
    const ProbeScreen screen;

    QWidget *child = new Boundless(screen.item->probe());
    child->setGeometry(10, 10, 20, 10);
    child->show();
    screen.settle();

    const qreal pixel = screen.pixel();
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(50 - pixel, 30 - pixel), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(30 - pixel, 20), QColor(Qt::red));
    QCOMPARE(screen.colorAt(30, 20 - pixel), QColor(Qt::red));
    QCOMPARE(screen.colorAt(50, 20), QColor(Qt::red));
    QCOMPARE(screen.colorAt(30, 30), QColor(Qt::red));
    QCOMPARE(screen.colorAt(110, 80), QColor(Qt::black));
}

void tst_DeclarativeItem::anEmptyItemShowsNothing()
{
    const ProbeScreen screen;

    screen.item->setWidth(0);

    QCOMPARE(screen.colorAt(20, 10), QColor(Qt::white));
    QCOMPARE(screen.colorAt(70, 50), QColor(Qt::white));
    screen.item->setWidth(100);
    QCOMPARE(screen.colorAt(70, 50), QColor(Qt::black));
}

void tst_DeclarativeItem::theWidgetIsDrawnOnceAndThenOnlyWhenSomethingChanged()
{
    const ProbeScreen screen;
    Probe *probe = screen.item->probe();
    QCOMPARE(probe->paints(), 1);

    // What the item's own place in the scene changes, and what others change, is no matter of it.
    screen.item->setX(40);
    screen.item->setRotation(10);
    screen.item->setOpacity(0.5);
    screen.view.rootObject()->setProperty("color", QColor(Qt::yellow));
    screen.settle();
    QCOMPARE(probe->paints(), 1);

    probe->update();
    probe->update(0, 0, 10, 10);
    screen.settle();
    QCOMPARE(probe->paints(), 2);
}

void tst_DeclarativeItem::repaintDrawsInsideTheCallAndUpdateLater()
{
    const ProbeScreen screen;
    Probe *probe = screen.item->probe();
    QCOMPARE(probe->paints(), 1);

    probe->repaint();
    QCOMPARE(probe->paints(), 2);
    screen.settle();
    QCOMPARE(probe->paints(), 2);

    probe->update();
    QCOMPARE(probe->paints(), 2);
    QVERIFY(waitUntil([&] { return probe->paints() == 3; }));
    screen.settle();
    QCOMPARE(probe->paints(), 3);
}

namespace {
/** A widget that wants to be drawn again, twice, while it is drawn. */
class Restless : public QWidget
{
public:
    Restless()
        : paints(0)
        , isNested(false)
        , m_isPainting(false)
    {
    }

    int paints;
    bool isNested;

protected:
    void paintEvent(QPaintEvent *) override
    {
        isNested = isNested || m_isPainting;
        m_isPainting = true;
        if (++paints < 3) {
            repaint();
        }
        m_isPainting = false;
    }

private:
    bool m_isPainting;
};
} // namespace

void tst_DeclarativeItem::aWidgetThatRepaintsWhileItIsDrawnIsDrawnAgainLater()
{
    const ProbeScreen screen;
    Restless *restless = new Restless;
    (new QGraphicsProxyWidget(screen.item))->setWidget(restless);

    QVERIFY(waitUntil([&] { return restless->paints == 3; }));
    QVERIFY(!restless->isNested);
}

namespace {
/** A probe that repaints itself for whatever a pointer does, as a scroll bar does. */
class Blinker : public Probe
{
public:
    int repaints = 0;

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        ++repaints;
        repaint();
        update();
    }

    void mouseReleaseEvent(QMouseEvent *) override
    {
        ++repaints;
        repaint();
    }
};
} // namespace

void tst_DeclarativeItem::whatAPointerRepaintsIsDrawnOnce()
{
    ProbeScreen screen;
    Blinker *blinker = new Blinker;
    screen.item->proxy()->setWidget(blinker);
    screen.settle();
    const int before = blinker->paints();

    const QPointF point(30, 20);
    QMouseEvent press(QEvent::MouseButtonPress, point, point, point, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, point, point, point, Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&screen.view, &press);
    QCoreApplication::sendEvent(&screen.view, &release);
    QCOMPARE(blinker->repaints, 2);
    QCOMPARE(blinker->paints(), before);
    screen.settle();
    QCOMPARE(blinker->paints(), before + 1);

    blinker->repaint();
    QCOMPARE(blinker->paints(), before + 2);
}

namespace {
/** An item that notes the textures it gives to the scene graph. */
class TextureNoter : public ProbeItem
{
public:
    QList<QSGTexture *> textures;

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override
    {
        QSGNode *node = ProbeItem::updatePaintNode(oldNode, data);
        textures.append(static_cast<QSGImageNode *>(node)->texture());
        return node;
    }
};
} // namespace

void tst_DeclarativeItem::thePictureIsUploadedOnlyWhenItChanged()
{
    const ProbeScreen screen;
    TextureNoter item;
    item.setSize(QSizeF(60, 40));
    item.setParentItem(screen.view.rootObject());
    screen.view.grabFramebuffer();
    QCOMPARE(item.textures.count(), 1);

    item.setSmooth(false);
    screen.view.grabFramebuffer();
    QCOMPARE(item.textures.count(), 2);
    QCOMPARE(item.textures.at(1), item.textures.at(0));
}

void tst_DeclarativeItem::aHiddenItemIsDrawnWhenItIsShown()
{
    const ProbeScreen screen("ProbeItem { width: 100; height: 80; visible: false }");
    Probe *probe = screen.item->probe();
    QCOMPARE(probe->paints(), 0);

    probe->repaint();
    screen.settle();
    QCOMPARE(probe->paints(), 0);

    screen.item->setVisible(true);
    QCOMPARE(screen.colorAt(10, 10), QColor(Qt::red));
    QCOMPARE(probe->paints(), 1);
}

void tst_DeclarativeItem::theItemsOpacityFadesTheWidgetOnce()
{
    const ProbeScreen screen;

    screen.item->setOpacity(0.5);

    const QColor faded = screen.colorAt(70, 50); // black on white
    QVERIFY2(qAbs(faded.red() - 127) <= 2, qPrintable(faded.name()));
    QCOMPARE(faded.red(), faded.green());
}

void tst_DeclarativeItem::whatCannotBeSeenTakesNoPress()
{
    const ProbeScreen screen;

    screen.item->setOpacity(0);
    QTest::mouseClick(screen.view.quickWindow(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    QCOMPARE(screen.item->probe()->take(), QString());
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));

    screen.item->setOpacity(1);
    QTest::mouseClick(screen.view.quickWindow(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10; release 10,10"));
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::red));
}

void tst_DeclarativeItem::visibilityReachesTheWidget()
{
    const ProbeScreen screen;

    screen.item->setVisible(false);
    QVERIFY(!screen.item->probe()->isVisible());
    screen.item->setVisible(true);
    QVERIFY(screen.item->probe()->isVisible());

    screen.view.rootObject()->setVisible(false);
    QVERIFY(!screen.item->probe()->isVisible());
    screen.view.rootObject()->setVisible(true);
    QVERIFY(screen.item->probe()->isVisible());
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::red));
}

void tst_DeclarativeItem::enablingReachesTheWidget()
{
    const ProbeScreen screen;

    screen.item->setEnabled(false);
    QVERIFY(!screen.item->probe()->isEnabled());
    screen.item->setEnabled(true);
    QVERIFY(screen.item->probe()->isEnabled());

    screen.view.rootObject()->setEnabled(false);
    QVERIFY(!screen.item->probe()->isEnabled());
    screen.view.rootObject()->setEnabled(true);
    QVERIFY(screen.item->probe()->isEnabled());
}

void tst_DeclarativeItem::aParentsStateReachesANewItem()
{
    const ProbeScreen screen;
    QDeclarativeItem parent;
    parent.setParentItem(screen.view.rootObject()); // on Qt 6.8 nothing is visible on its own
    parent.setVisible(false);
    parent.setEnabled(false);

    const ProbeItem item(&parent);

    QCOMPARE(item.parentItem(), &parent);
    QCOMPARE(item.parent(), &parent);
    const QGraphicsItem &graphics = item;
    QVERIFY(!graphics.isVisible());
    QVERIFY(!graphics.isEnabled());
    parent.setVisible(true);
    parent.setEnabled(true);
    QVERIFY(graphics.isVisible());
    QVERIFY(graphics.isEnabled());
}

namespace {
/** An item that draws itself. */
class PaintedItem : public QDeclarativeItem
{
public:
    PaintedItem()
    {
        setFlag(QGraphicsItem::ItemHasNoContents, false);
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *) override
    {
        painter->fillRect(boundingRect(), Qt::cyan);
    }
};
} // namespace

void tst_DeclarativeItem::ownContentsAreDrawnBelowTheChildren()
{
    const ProbeScreen screen;
    PaintedItem item;
    item.setSize(QSizeF(60, 40));
    QGraphicsProxyWidget *proxy = new QGraphicsProxyWidget(&item);
    proxy->setWidget(new Probe);
    proxy->setGeometry(QRectF(30, 0, 30, 40));
    item.setParentItem(screen.view.rootObject());

    QCOMPARE(screen.colorAt(0, 0), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(29, 39), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(30, 0), QColor(Qt::red));
    QCOMPARE(screen.colorAt(59, 39), QColor(Qt::black));

    item.setFlag(QGraphicsItem::ItemHasNoContents);
    screen.settle();
    QCOMPARE(screen.colorAt(0, 0), QColor(Qt::white));
}

void tst_DeclarativeItem::itemsOfTheScreenAreChildrenAndParents()
{
    const ProbeScreen screen("Item { objectName: 'outer'; x: 20\n"
                             "  ProbeItem { width: 100; height: 80\n"
                             "    Rectangle { width: parent.width / 4; height: 8; color: 'cyan' }\n"
                             "  }\n"
                             "}");

    QCOMPARE(screen.item->parentItem()->objectName(), QString("outer"));
    QCOMPARE(screen.item->QQuickItem::childItems().count(), 1);
    QCOMPARE(screen.colorAt(20, 0), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(44, 7), QColor(Qt::cyan));
    QCOMPARE(screen.colorAt(45, 7), QColor(Qt::red));
    QCOMPARE(screen.colorAt(44, 8), QColor(Qt::red));
}

void tst_DeclarativeItem::theWidgetLooksActiveAndNeverHasTheFocus()
{
    const ProbeScreen screen;
    QVERIFY(screen.item->probe()->isActiveWindow());
    screen.item->probe()->setFocusPolicy(Qt::StrongFocus);

    QTest::mouseClick(screen.view.quickWindow(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    QVERIFY(!screen.item->proxy()->hasFocus());
    screen.item->proxy()->setFocus();
    QVERIFY(!screen.item->proxy()->hasFocus());
    screen.item->probe()->setFocus();
    QVERIFY(!screen.item->proxy()->hasFocus());

    QVERIFY(!screen.item->scene()->focusItem());
    QVERIFY(screen.item->probe()->isActiveWindow());
}

void tst_DeclarativeItem::anotherViewCanTakeTheItemOver()
{
    const ProbeScreen from;
    const ProbeScreen to("Item {}");

    from.item->setParentItem(to.view.rootObject());

    QCOMPARE(from.colorAt(30, 20), QColor(Qt::white));
    QCOMPARE(to.colorAt(30, 20), QColor(Qt::red));
    QTest::mouseClick(to.view.quickWindow(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    QCOMPARE(from.item->probe()->take(), QString("press 10,10; release 10,10"));
}

void tst_DeclarativeItem::viewsTellWhatIsWrongWithTheirSource()
{
    TestDir dir;
    dir.file("wrong.qml", "import QtQuick 2.0\nItem {\n  width: 1 +\n}");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("wrong.qml:4:1: "));
    QDeclarativeView view(QUrl::fromLocalFile(dir.path("wrong.qml")));

    QCOMPARE(view.status(), QDeclarativeView::Error);
    QVERIFY(!view.rootObject());
    const QList<QDeclarativeError> errors = view.errors();
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.first().line(), 4);
}

void tst_DeclarativeItem::viewsHaveAContextAndSizeTheirRoot()
{
    TestDir dir;
    dir.file("screen.qml", "import QtQuick 2.0\nItem { property int answer: given * 2 }");
    QDeclarativeView view;
    view.setResizeMode(QDeclarativeView::SizeRootObjectToView);
    view.resize(70, 50);
    view.rootContext()->setContextProperty("given", 21);
    view.setSource(QUrl::fromLocalFile(dir.path("screen.qml")));

    QCOMPARE(view.status(), QDeclarativeView::Ready);
    QVERIFY(view.engine());
    QCOMPARE(view.rootObject()->property("answer").toInt(), 42);
    QCOMPARE(view.rootObject()->property("width").toInt(), 70);
    QCOMPARE(view.rootObject()->property("height").toInt(), 50);
    QCOMPARE(view.viewport(), &view);
}

QTEST_MAIN(tst_DeclarativeItem)
#include "tst_declarativeitem.moc"
