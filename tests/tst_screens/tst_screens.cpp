#include "support/screens.h"
#include "support/stick.h"

#include <QFile>
#include <QFileInfo>
#include <QScopedPointer>
#include <QStringList>
#include <QtTest>

namespace {
const time_t noon = 1371117600; // 13 June 2013, 12:00 in Berlin
const time_t day = 86400;       // seconds
const QString stickPath = "/media/Field Data";
} // namespace

/** The list screen as its user meets it: touches and what they lead to, on screen and on disk. */
class TestScreens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void listsTheLogsNewestFirst();
    void aRowShowsNameDateAndSize();
    void namesAreShownAsTheyAreWritten();
    void aHeadingSortsAndThenTurnsTheOrder();
    void theBreadcrumbLeadsBack();
    void eachTabShowsItsFolder();
    void programsAreFilteredAndNothingElseIs();
    void anEmptyFolderSaysSo();
    void aFingerScrollsALongList();
    void theScrollMarkIsDraggedToTheEnd();
    void aListStaysWhereItWasScrolled();

    void touchesMarkFilesAndTheFooterCountsThem();
    void tenTouchesInARowAllCount_data();
    void tenTouchesInARowAllCount();
    void selectAllLeavesFoldersOut();
    void marksOutliveAVisitElsewhere();

    void aNewFileBelongsToTheAccount();
    void aNewFolderIsListed();
    void aTakenNameIsRefusedWithItsReason();
    void aMarkedEntryIsRenamed();
    void deletingAsksFirst();
    void aFullFolderIsKeptAndTheReasonShown();
    void theRightProgramIsDeletedThoughOthersAreHidden();
    void aDialogKeepsTouchesFromTheList();

    void tellsWhenAStickCanBePulled();
    void tellsThatAStickIsStillInUse();
    void aStickThatIsPulledDisappears();

    void withoutTheAccountItSaysHowToStart();
    void theBrowserComesWhenTheAccountDoes();
    void anAccountThatIsLostIsReportedAndNothingIsTouched();
};

void TestScreens::initTestCase()
{
    Viewer::chooseFonts();
}

void TestScreens::listsTheLogsNewestFirst()
{
    const DataFolder logs("logs");
    logs->file("old.csv", "1", noon - day);
    logs->file("new.csv", "1", noon + day);
    logs->file("middle.csv", "1", noon);
    Screens screens;
    QCOMPARE(screens.problem(), QString());
    const QStringList expected = QStringList() << "new.csv"
                                               << "middle.csv"
                                               << "old.csv";
    QCOMPARE(screens.rowsOnce(expected), expected);
}

void TestScreens::aRowShowsNameDateAndSize()
{
    const DataFolder logs("logs");
    logs->file("run.csv", qint64(33 * 1024), noon);
    Screens screens;
    QVERIFY(screens->sees("row:run.csv"));
    QCOMPARE(screens.text("name"), QString("run.csv"));
    QCOMPARE(screens.text("date"), QString("13 Jun 2013"));
    QCOMPARE(screens.text("size"), QString("33 KB"));
    QVERIFY(screens->property("row:run.csv", "height").toInt() >= 56);
}

// Neither mark-up nor a line break in a name may change the picture.
void TestScreens::namesAreShownAsTheyAreWritten()
{
    const DataFolder logs("logs");
    logs->file("<b>bold\n\"second\" line.csv", "1", noon);
    Screens screens;
    QVERIFY(screens->sees("name", QString::fromUtf8("<b>bold\u00b6\"second\" line.csv")));
    QCOMPARE(screens->property("name", "textFormat").toInt(), int(Qt::PlainText));
}

void TestScreens::aHeadingSortsAndThenTurnsTheOrder()
{
    const DataFolder logs("logs");
    logs->file("b", qint64(3000), noon);
    logs->file("C", qint64(1000), noon + day);
    logs->file("a", qint64(2000), noon - day);
    Screens screens;
    const QStringList byDate = QStringList() << "C"
                                             << "b"
                                             << "a";
    QCOMPARE(screens.rowsOnce(byDate), byDate);
    QVERIFY(screens->property("arrow", "source").toString().endsWith("triangle-down.png"));

    QVERIFY(screens->taps("heading:Name"));
    const QStringList byName = QStringList() << "a"
                                             << "b"
                                             << "C";
    QCOMPARE(screens.rowsOnce(byName), byName);
    QVERIFY(screens->property("arrow", "source").toString().endsWith("triangle-up.png"));

    QVERIFY(screens->taps("heading:Name"));
    const QStringList byNameTurned = QStringList() << "C"
                                                   << "b"
                                                   << "a";
    QCOMPARE(screens.rowsOnce(byNameTurned), byNameTurned);
    QVERIFY(screens->property("arrow", "source").toString().endsWith("triangle-down.png"));

    QVERIFY(screens->taps("heading:Size"));
    const QStringList bySize = QStringList() << "b"
                                             << "a"
                                             << "C";
    QCOMPARE(screens.rowsOnce(bySize), bySize);
}

void TestScreens::theBreadcrumbLeadsBack()
{
    const DataFolder logs("logs");
    logs->folder("2013/June");
    logs->file("2013/June/run.csv", "1", noon);
    Screens screens;
    QVERIFY(screens->taps("row:2013"));
    QVERIFY(screens->taps("row:June"));
    QVERIFY(screens->sees("row:run.csv"));
    QVERIFY(screens->sees("crumb:June"));
    QVERIFY(screens->taps("crumb:2013"));
    QVERIFY(screens->sees("row:June"));
    QVERIFY(screens->misses("crumb:June"));
    QVERIFY(screens->taps("crumb:logs"));
    QVERIFY(screens->sees("row:2013"));
    QVERIFY(screens->misses("crumb:logs"));
}

void TestScreens::eachTabShowsItsFolder()
{
    const DataFolder logs("logs");
    const DataFolder graphs("graph_definitions");
    const DataFolder configs("configs");
    const DataFolder programs("autoprogs");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    graphs->file("light.graph");
    configs->file("sensors.xml");
    programs->file("night.py");
    Screens screens;
    QVERIFY(screens->taps("tab:Soil"));
    QVERIFY(screens->sees("row:flux.csv"));
    QVERIFY(screens->taps("tab:Graphs"));
    QVERIFY(screens->sees("row:light.graph"));
    QVERIFY(screens->taps("tab:Configs"));
    QVERIFY(screens->sees("row:sensors.xml"));
    QVERIFY(screens->taps("tab:Programs"));
    QVERIFY(screens->sees("row:night.py"));
    QVERIFY(screens->taps("tab:Logs"));
    QVERIFY(screens->sees("row:soil"));
}

// The object's filter stays when it shows another folder; the screen's tabs must not.
void TestScreens::programsAreFilteredAndNothingElseIs()
{
    const DataFolder logs("logs");
    const DataFolder programs("autoprogs");
    logs->file("run.csv");
    programs->file("night.py");
    programs->file("notes.txt");
    Screens screens;
    QVERIFY(screens->taps("tab:Programs"));
    const QStringList onlyPrograms("night.py");
    QCOMPARE(screens.rowsOnce(onlyPrograms), onlyPrograms);
    QVERIFY(screens->taps("tab:Logs"));
    const QStringList allLogs("run.csv");
    QCOMPARE(screens.rowsOnce(allLogs), allLogs);
}

void TestScreens::anEmptyFolderSaysSo()
{
    const DataFolder logs("logs");
    logs->folder("nothing");
    Screens screens;
    QVERIFY(screens->sees("row:nothing"));
    QVERIFY(!screens->property("emptyText", "text").isValid());
    QVERIFY(screens->taps("row:nothing"));
    QVERIFY(screens->sees("emptyText", "This folder is empty"));
}

void TestScreens::aFingerScrollsALongList()
{
    const DataFolder logs("logs");
    for (int i = 0; i < 50; ++i) {
        logs->file(QString("run_%1.csv").arg(i, 2, 10, QLatin1Char('0')), "1", noon - i * day);
    }
    Screens screens;
    QVERIFY(screens->sees("row:run_00.csv"));
    QVERIFY(screens->drags("row:run_03.csv", QPoint(0, -140)));
    QVERIFY(waitUntil([&] { return !screens->property("list", "moving").toBool(); }));
    QVERIFY(screens->property("list", "contentY").toReal() > 100);
    QVERIFY(screens->taps("row:run_06.csv"));
    QVERIFY(screens->sees("summary", "1 file selected"));
    QCOMPARE(screens.text("detail"), QString("run_06.csv"));
}

void TestScreens::theScrollMarkIsDraggedToTheEnd()
{
    const DataFolder logs("logs");
    for (int i = 0; i < 66; ++i) {
        logs->file(QString("run_%1.csv").arg(i, 2, 10, QLatin1Char('0')), "1", noon - i * day);
    }
    Screens screens;
    QVERIFY(screens->sees("row:run_00.csv"));
    QVERIFY(screens->drags("scrollMark", QPoint(0, 300)));
    QVERIFY(screens->taps("row:run_65.csv"));
    QVERIFY(screens->sees("detail", "run_65.csv"));
    QVERIFY(screens->drags("scrollMark", QPoint(0, -300)));
    QVERIFY(screens->taps("row:run_00.csv"));
    QVERIFY(screens->sees("detail", "run_65.csv, run_00.csv"));
}

// What is listed anew after a change must not jump under the finger; what is entered begins at its
// top.
void TestScreens::aListStaysWhereItWasScrolled()
{
    const DataFolder logs("logs");
    logs->folder("run_05");
    for (int i = 0; i < 50; ++i) {
        logs->file(QString("run_05/%1.csv").arg(i));
        logs->file(QString("run_%1.csv").arg(i, 2, 10, QLatin1Char('0')));
    }
    Screens screens;
    QVERIFY(screens->taps("heading:Name"));
    QVERIFY(screens->sees("row:run_00.csv"));
    QVERIFY(screens->drags("row:run_03.csv", QPoint(0, -140)));
    QVERIFY(waitUntil([&] { return !screens->property("list", "moving").toBool(); }));
    const qreal place = screens->property("list", "contentY").toReal();
    QVERIFY(place > 100);

    QVERIFY(screens->taps("mark:run_06.csv"));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->misses("row:run_06.csv"));
    QVERIFY(waitUntil([&] { return screens->property("list", "contentY").toReal() == place; }));

    QVERIFY(screens->taps("row:run_05"));
    QVERIFY(screens->sees("crumb:run_05"));
    QVERIFY(waitUntil([&] { return screens->property("list", "contentY").toReal() == 0; }));
}

void TestScreens::touchesMarkFilesAndTheFooterCountsThem()
{
    const DataFolder logs("logs");
    logs->file("one two.csv", qint64(3 * 1024), noon);
    logs->file("b.csv", qint64(2 * 1024), noon - day);
    Screens screens;
    QVERIFY(screens->sees("summary", "Nothing selected"));
    QVERIFY(screens->taps("mark:one two.csv"));
    QVERIFY(screens->taps("row:b.csv"));
    QVERIFY(screens->sees("summary", "2 files selected, 5 KB"));
    QCOMPARE(screens.text("detail"), QString("one two.csv, b.csv"));
    QCOMPARE(screens->property("row:b.csv", "isMarked").toBool(), true);
    QVERIFY(screens->taps("mark:b.csv"));
    QVERIFY(screens->sees("summary", "1 file selected, 3 KB"));
    QVERIFY(screens->taps("button:Clear"));
    QVERIFY(screens->sees("summary", "Nothing selected"));
    QCOMPARE(screens->property("row:one two.csv", "isMarked").toBool(), false);
}

void TestScreens::tenTouchesInARowAllCount_data()
{
    QTest::addColumn<QString>("place");
    QTest::newRow("on a mark") << "mark:a.csv";
    QTest::newRow("on a row") << "row:a.csv";
}

void TestScreens::tenTouchesInARowAllCount()
{
    QFETCH(QString, place);
    const DataFolder logs("logs");
    logs->file("a.csv", qint64(1024));
    Screens screens;
    QVERIFY(screens->sees("row:a.csv"));
    const QImage unmarked = screens.picture("row:a.csv");
    for (int touches = 1; touches <= 10; ++touches) {
        QVERIFY(screens->taps(place));
        const bool isMarked = touches % 2;
        QCOMPARE(screens->property("row:a.csv", "isMarked").toBool(), isMarked);
        QVERIFY(waitUntil([&] { return (screens.picture("row:a.csv") != unmarked) == isMarked; }));
    }
}

void TestScreens::selectAllLeavesFoldersOut()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("a.csv", qint64(1024));
    logs->file("b.csv", qint64(1024));
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->sees("summary", "2 files selected, 2 KB"));
    QCOMPARE(screens->property("row:soil", "isMarked").toBool(), false);
}

void TestScreens::marksOutliveAVisitElsewhere()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("a.csv", qint64(1024));
    logs->file("soil/flux.csv", qint64(1024));
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("row:soil"));
    QVERIFY(screens->taps("mark:flux.csv"));
    QVERIFY(screens->sees("summary", "2 files selected, 2 KB"));
    QVERIFY(screens->taps("crumb:logs"));
    QVERIFY(screens->sees("row:a.csv"));
    QVERIFY(waitUntil([&] { return screens->property("row:a.csv", "isMarked").toBool(); }));
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->sees("summary", "1 file selected, 1 KB"));
}

void TestScreens::aNewFileBelongsToTheAccount()
{
    const DataFolder logs("logs");
    Screens screens;
    QVERIFY(screens->taps("button:New file"));
    QVERIFY(screens->types("note 1.txt"));
    QCOMPARE(screens.text("nameInput"), QString("note 1.txt"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("row:note 1.txt"));
    QCOMPARE(ownerOf("/home/ostan/logs/note 1.txt"), ostanUid);
    QCOMPARE(logs->names(), QStringList("note 1.txt"));
}

void TestScreens::aNewFolderIsListed()
{
    const DataFolder logs("logs");
    Screens screens;
    QVERIFY(screens->taps("button:New folder"));
    QVERIFY(screens->types("mayy"));
    QVERIFY(screens->taps("key:Erase"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->taps("row:may"));
    QVERIFY(screens->sees("crumb:may"));
    QVERIFY(QFileInfo(logs->path("may")).isDir());
    QCOMPARE(ownerOf("/home/ostan/logs/may"), ostanUid);
}

void TestScreens::aTakenNameIsRefusedWithItsReason()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "precious");
    Screens screens;
    QVERIFY(screens->taps("button:New file"));
    QVERIFY(screens->types("a.csv"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("noticeText", "\"a.csv\" exists already."));
    QCOMPARE(logs->contents("a.csv"), QByteArray("precious"));
    QVERIFY(screens->taps("noticeOk"));
    QVERIFY(screens->misses("noticeText"));
}

void TestScreens::aMarkedEntryIsRenamed()
{
    const DataFolder logs("logs");
    logs->file("a", "x");
    logs->file("other", "y");
    Screens screens;
    QCOMPARE(screens->property("button:Rename", "enabled").toBool(), false);
    QVERIFY(screens->taps("mark:a"));
    QVERIFY(screens->taps("button:Rename"));
    QVERIFY(screens->types("b"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("row:ab"));
    QVERIFY(screens->sees("summary", "Nothing selected"));
    QCOMPARE(logs->names(), QStringList() << "ab"
                                          << "other");
    QCOMPARE(logs->contents("ab"), QByteArray("x"));
}

void TestScreens::deletingAsksFirst()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("b.csv");
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("question", "Delete \"a.csv\"?"));
    QVERIFY(screens->taps("answer:no"));
    QVERIFY(screens->misses("question"));
    QCOMPARE(logs->names(), QStringList() << "a.csv"
                                          << "b.csv");

    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->misses("row:a.csv"));
    QVERIFY(screens->sees("summary", "Nothing selected"));
    QCOMPARE(logs->names(), QStringList("b.csv"));
}

void TestScreens::aFullFolderIsKeptAndTheReasonShown()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    logs->file("a.csv");
    Screens screens;
    QVERIFY(screens->taps("mark:soil"));
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("question", "Delete these 2 entries?"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("outcomeText", "1 of 2 entries deleted"));
    QVERIFY(screens->sees("namedName", "soil"));
    QVERIFY(screens->sees("namedRemark", "Only empty folders can be deleted."));
    QVERIFY(screens->taps("outcomeOk"));
    QVERIFY(screens->misses("row:a.csv"));
    QCOMPARE(logs->names(), QStringList("soil"));
    QVERIFY(screens->sees("summary", "1 folder selected"));
}

// The object's indexes count hidden files too: taken from the list, the wrong file would go.
void TestScreens::theRightProgramIsDeletedThoughOthersAreHidden()
{
    const DataFolder programs("autoprogs");
    programs->file("hidden.txt", "1", noon + day);
    programs->file("day.py", "1", noon);
    programs->file("night.py", "1", noon - day);
    Screens screens;
    QVERIFY(screens->taps("tab:Programs"));
    QVERIFY(screens->taps("mark:night.py"));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->misses("row:night.py"));
    QCOMPARE(programs->names(), QStringList() << "day.py"
                                              << "hidden.txt");
}

void TestScreens::aDialogKeepsTouchesFromTheList()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "1", noon);
    logs->file("b.csv", "1", noon - day);
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("question"));
    QVERIFY(screens->taps("mark:b.csv", QPoint(10, 10)));
    QVERIFY(screens->taps("tab:Configs", QPoint(10, 10)));
    QVERIFY(screens->taps("answer:no"));
    QCOMPARE(screens.text("summary"), QString("1 file selected, 1 byte"));
    QVERIFY(screens->sees("row:b.csv"));
}

void TestScreens::tellsWhenAStickCanBePulled()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->taps("eject:A"));
    QVERIFY(screens->sees("stickState", "Wait"));
    QVERIFY(screens->sees("stickState", "Safe to remove"));
    QVERIFY(!stick.isMounted());
    QVERIFY(screens->misses("eject:A"));
}

void TestScreens::tellsThatAStickIsStillInUse()
{
    const DataFolder logs("logs");
    const Stick stick("/dev/sda1", stickPath);
    QFile open(stick.path("open"));
    QVERIFY(open.open(QIODevice::WriteOnly));
    Screens screens;
    QVERIFY(screens->taps("eject:A"));
    QVERIFY(screens->sees("stickState", "Still in use"));
    QVERIFY(stick.isMounted());
    open.close();
    QVERIFY(screens->taps("eject:A"));
    QVERIFY(screens->sees("stickState", "Safe to remove"));
    QVERIFY(!stick.isMounted());
}

void TestScreens::aStickThatIsPulledDisappears()
{
    const DataFolder logs("logs");
    Stick stick("/dev/sda1", stickPath);
    Screens screens;
    QVERIFY(screens->sees("copy:A"));
    stick.pull();
    QVERIFY(screens->misses("copy:A"));
    QVERIFY(screens->sees("stickName", "Slot A"));
}

void TestScreens::withoutTheAccountItSaysHowToStart()
{
    const AccountDatabase database("root:x:0:0:root:/root:/bin/sh\n");
    Screens screens;
    QCOMPARE(screens.problem(), QString());
    QVERIFY(screens->sees("refusedTitle", "This machine is not an instrument"));
    QCOMPARE(screens.text("refusedReason"),
             QString("Unable to drop priviledges: Username 'ostan' not found"));
    QVERIFY(!QFileInfo("/home/ostan/logs").exists());
}

void TestScreens::theBrowserComesWhenTheAccountDoes()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    QScopedPointer<AccountDatabase> database(
        new AccountDatabase("root:x:0:0:root:/root:/bin/sh\n"));
    Screens screens;
    QVERIFY(screens->sees("refusedTitle"));
    QVERIFY(screens->taps("button:Try again"));
    QVERIFY(screens->sees("refusedTitle"));
    database.reset();
    QVERIFY(screens->taps("button:Try again"));
    QVERIFY(screens->sees("row:a.csv"));
    QVERIFY(screens->misses("refusedTitle"));
}

void TestScreens::anAccountThatIsLostIsReportedAndNothingIsTouched()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "1");
    Screens screens;
    QVERIFY(screens->taps("mark:a.csv"));
    QVERIFY(screens->taps("button:Delete"));
    const AccountDatabase database("root:x:0:0:root:/root:/bin/sh\n");
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("noticeText", "Unable to drop priviledges: Username 'ostan' not found"));
    QCOMPARE(logs->names(), QStringList("a.csv"));
}

QTEST_MAIN(TestScreens)
#include "tst_screens.moc"
