#include "support/probescreen.h"
#include "support/waiting.h"

#include <QGraphicsProxyWidget>
#include <QProcess>
#include <QStandardItemModel>
#include <QTreeView>
#include <QtTest>

#include <cstdlib>

namespace {
const QPoint spot(30, 20);

/** A probe that goes with its item as soon as it is pressed. */
class Leaver : public Probe
{
public:
    explicit Leaver(QDeclarativeItem *item)
        : m_item(item)
    {
    }

protected:
    void mousePressEvent(QMouseEvent *) override
    {
        m_item->deleteLater();
    }

private:
    QDeclarativeItem *m_item;
};

void pressWithFinger(QWidget *view)
{
    static auto *const device = QTest::createTouchDevice();
    QTest::touchEvent(view, device).press(0, spot, view);
}
} // namespace

/** The end of an item, in every order and at every moment: meant for the address sanitizer. */
class tst_ItemLife : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void theItemGoesWhileItIsShown();
    void theItemGoesWhileItIsPressed();
    void theItemGoesWhileAFingerIsOnIt();
    void theItemGoesWhileTheMouseIsOverIt();
    void theItemGoesWithAnUpdatePending();
    void theItemGoesBecauseItIsPressed();
    void theItemGoesWithATouchedTree();
    void theItemGoesWithoutAView();
    void theItemLeavesItsViewBeforeItGoes();
    void theWidgetGoesFirst();
    void theProxyGoesFirst();
    void theParentGoes();
    void theViewGoes();
    void theViewGoesWhilePressed();
    void screensComeAndGo();
    void theProcessEnds_data();
    void theProcessEnds();
};

void tst_ItemLife::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCOMPARE(Probe::count(), 0);
}

void tst_ItemLife::theItemGoesWhileItIsShown()
{
    const ProbeScreen screen;

    delete screen.item;

    QCOMPARE(Probe::count(), 0);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theItemGoesWhileItIsPressed()
{
    ProbeScreen screen("property int clicks: 0\n"
                       "MouseArea { anchors.fill: parent; onClicked: ++parent.clicks }\n"
                       "ProbeItem { width: 100; height: 80 }");
    QTest::mousePress(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.item->probe()->take(), QString("press 30,20"));

    delete screen.item;
    QTest::mouseMove(screen.view.quickWindow(), spot + QPoint(5, 5));
    QTest::mouseRelease(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.view.rootObject()->property("clicks").toInt(), 0);

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(screen.view.rootObject()->property("clicks").toInt(), 1);
}

void tst_ItemLife::theItemGoesWhileAFingerIsOnIt()
{
    ProbeScreen screen;
    pressWithFinger(&screen.view);
    QCOMPARE(screen.item->probe()->take(), QString("press 10,10"));

    delete screen.item;

    letTimePass(50);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theItemGoesWhileTheMouseIsOverIt()
{
    const ProbeScreen screen;
    QTest::mouseMove(screen.view.quickWindow(), spot);

    delete screen.item;

    QTest::mouseMove(screen.view.quickWindow(), spot + QPoint(5, 5));
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theItemGoesWithAnUpdatePending()
{
    const ProbeScreen screen;
    screen.item->probe()->update();
    screen.item->update();
    screen.item->setWidth(50);

    delete screen.item;

    letTimePass(50);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theItemGoesBecauseItIsPressed()
{
    ProbeScreen screen;
    QGraphicsProxyWidget *proxy = new QGraphicsProxyWidget(screen.item);
    proxy->setWidget(new Leaver(screen.item));
    screen.settle();

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);

    QVERIFY(waitUntil([] { return Probe::count() == 0; }));
    QVERIFY(!screen.item);
}

void tst_ItemLife::theItemGoesWithATouchedTree()
{
    // The viewport of a tree hands its focus on to the tree, also while that is being destroyed.
    ProbeScreen screen;
    QTreeView *tree = new QTreeView;
    tree->setFocusPolicy(Qt::NoFocus);
    (new QGraphicsProxyWidget(screen.item))->setWidget(tree);
    screen.settle();
    QSignalSpy presses(tree, SIGNAL(pressed(QModelIndex)));
    QStandardItemModel model(10, 1);
    tree->setModel(&model);
    tree->setHeaderHidden(true);

    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QCOMPARE(presses.count(), 1);

    delete tree;
    delete screen.item;
}

void tst_ItemLife::theItemGoesWithoutAView()
{
    ProbeItem item;
    item.setSize(QSizeF(100, 80));
    QCoreApplication::processEvents();
    QCOMPARE(Probe::count(), 1);
}

void tst_ItemLife::theItemLeavesItsViewBeforeItGoes()
{
    const ProbeScreen screen;
    screen.item->setParent(nullptr);

    screen.item->setParentItem(nullptr);
    screen.item->probe()->repaint();
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
    QCOMPARE(Probe::count(), 1);

    delete screen.item;
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theWidgetGoesFirst()
{
    ProbeScreen screen;
    QTest::mousePress(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);

    delete screen.item->probe();

    QTest::mouseRelease(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseClick(&screen.view, Qt::LeftButton, Qt::NoModifier, spot);
    QTest::mouseMove(screen.view.quickWindow(), spot + QPoint(5, 5));
    letTimePass(50);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
    delete screen.item;
}

void tst_ItemLife::theProxyGoesFirst()
{
    const ProbeScreen screen;

    delete screen.item->proxy();

    QCOMPARE(Probe::count(), 0);
    letTimePass(50);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
    delete screen.item;
}

void tst_ItemLife::theParentGoes()
{
    const ProbeScreen screen("Item { anchors.fill: parent\n"
                             "  ProbeItem { width: 100; height: 80\n"
                             "    ProbeItem { x: 60; width: 20; height: 20 } } }");
    QCOMPARE(Probe::count(), 2);

    delete screen.view.rootObject()->childItems().first();

    QCOMPARE(Probe::count(), 0);
    QCOMPARE(screen.colorAt(30, 20), QColor(Qt::white));
}

void tst_ItemLife::theViewGoes()
{
    QScopedPointer<ProbeScreen> screen(new ProbeScreen);
    QCOMPARE(Probe::count(), 1);

    screen.reset();

    QCOMPARE(Probe::count(), 0);
}

void tst_ItemLife::theViewGoesWhilePressed()
{
    QScopedPointer<ProbeScreen> screen(new ProbeScreen);
    QTest::mousePress(&screen->view, Qt::LeftButton, Qt::NoModifier, spot);
    screen->item->probe()->update();

    screen.reset();

    QCOMPARE(Probe::count(), 0);
}

void tst_ItemLife::screensComeAndGo()
{
    const ProbeScreen screen("Loader { objectName: 'loader'; active: false; anchors.fill: parent\n"
                             "  sourceComponent: Component { Item {\n"
                             "    ProbeItem { x: 20; y: 10; width: 100; height: 80 } } } }");
    QObject *loader = screen.view.rootObject()->findChild<QObject *>("loader");

    for (int i = 0; i < 100; ++i) {
        loader->setProperty("active", true);
        QCOMPARE(Probe::count(), 1);
        if (i % 10 == 0) {
            QCOMPARE(screen.colorAt(30, 20), QColor(Qt::red));
        }
        loader->setProperty("active", false);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(Probe::count(), 0);
    }
}

namespace {
const char *const childOption = "--end-as";

/** Shows a screen in an application that ends in the way @p how, with the item alive and pressed.
 */
int endAs(const QByteArray &how, int argc, char **argv)
{
    const QApplication application(argc, argv);
    ProbeScreen *screen = new ProbeScreen;
    QTest::mousePress(&screen->view, Qt::LeftButton, Qt::NoModifier, spot);
    if (screen->item->probe()->take() != "press 10,10") {
        return EXIT_FAILURE;
    }
    if (how == "exit") {
        std::exit(EXIT_SUCCESS);
    }
    if (how == "view first") {
        delete screen;
    }
    return EXIT_SUCCESS;
}
} // namespace

void tst_ItemLife::theProcessEnds_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("by exit()") << "exit";
    QTest::newRow("returning from main") << "return";
    QTest::newRow("the view goes first") << "view first";
}

void tst_ItemLife::theProcessEnds()
{
    QFETCH(QString, how);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "detect_leaks=0"); // what is alive at the end is not freed
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);

    child.start(QCoreApplication::applicationFilePath(), QStringList() << childOption << how);

    QVERIFY(child.waitForFinished());
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit, output);
    QVERIFY2(child.exitCode() == EXIT_SUCCESS, output);
}

int main(int argc, char **argv)
{
    if (argc == 3 && QByteArray(argv[1]) == childOption) {
        return endAs(argv[2], argc, argv);
    }
    QApplication application(argc, argv);
    tst_ItemLife test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_itemlife.moc"
