#include "support/screens.h"
#include "support/stick.h"

#include <QFileInfo>
#include <QStringList>
#include <QtTest>

namespace {
// Where the parts of a row are, in the tree's own pixels.
const int headerHeight = 46;
const int rowHeight = 45;
const int boxAt = 47;
const int nameAt = 150;

const int retryMs = 50;
const int retries = 200;

QPoint partOfRow(int row, int x)
{
    return QPoint(x, headerHeight + row * rowHeight + rowHeight / 2);
}

/** The tree screen, and somebody in front of it. */
class TreeScreen : public Screens
{
public:
    TreeScreen()
    {
        (*this)->taps("tab:Tree");
        (*this)->sees("tree");
    }

    /**
     * Touches the name in row @p row until that selects @p path, because the rows come in their own
     * time. For files: the second touch of a folder closes it.
     */
    bool touches(int row, const QString &path)
    {
        for (int i = 0; i < retries; ++i) {
            touch(row);
            Visitor::rests(retryMs);
            if (text("touchedPath") == path) {
                return true;
            }
        }
        return false;
    }

    void touch(int row)
    {
        (*this)->taps("tree", partOfRow(row, nameAt));
    }

    void touchBox(int row)
    {
        (*this)->taps("tree", partOfRow(row, boxAt));
    }
};
} // namespace

/** The tree screen as its user meets it. */
class TestTreeScreen : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void aTouchedFileIsNamed();
    void aTouchedFolderOpensInPlace();
    void aTouchedFolderBecomesTheRootIfWanted();
    void eachTabShowsItsFolder();
    void wordsFilterWhileTheirSwitchIsOn();
    void foldersComeFirstOnlyIfWanted();

    void boxesAddUp();
    void everythingIsCheckedAndUnchecked();
    void boxesCanBeHidden();
    void checkedFilesAreCopiedToAStick();
    void namesWhatWasNotCopied();

    void aNewFileBelongsToTheAccount();
    void aFileThatExistsIsNotEmptied();
    void aNewFolderIsMadeWhereTheUserIs();
    void theSelectedEntryIsRenamed();
    void deletingAsksFirst();
    void aFullFolderIsKeptAndTheReasonShown();
    void nothingSelectedIsSaid();
};

void TestTreeScreen::initTestCase()
{
    Viewer::chooseFonts();
}

void TestTreeScreen::aTouchedFileIsNamed()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("b.csv");
    TreeScreen screens;
    QCOMPARE(screens.text("touchedPath"), QString("Touch a row to select it"));
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    QCOMPARE(screens.text("currentFolder"), "Folder " + logs->path() + ", file b.csv");
}

void TestTreeScreen::aTouchedFolderOpensInPlace()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("a.csv")));
    screens.touch(0);
    QCOMPARE(screens.text("currentFolder"), "Folder " + logs->path("soil"));
    QVERIFY(screens.touches(1, logs->path("soil/flux.csv")));
    QVERIFY(screens.touches(2, logs->path("a.csv")));
}

void TestTreeScreen::aTouchedFolderBecomesTheRootIfWanted()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("a.csv")));
    QVERIFY(screens->taps("toggle:Tap opens"));
    QCOMPARE(screens->property("toggle:Tap opens", "on").toBool(), true);
    screens.touch(0);
    QVERIFY(screens.touches(0, logs->path("soil/flux.csv")));
    QVERIFY(screens->taps("tab:Logs"));
    QVERIFY(screens.touches(1, logs->path("a.csv")));
}

void TestTreeScreen::eachTabShowsItsFolder()
{
    const DataFolder logs("logs");
    const DataFolder configs("configs");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    configs->file("sensors.xml");
    TreeScreen screens;
    QVERIFY(screens->taps("tab:Soil"));
    QVERIFY(screens.touches(0, logs->path("soil/flux.csv")));
    QVERIFY(screens->taps("tab:Configs"));
    QCOMPARE(screens.text("touchedPath"), QString("Touch a row to select it"));
    QVERIFY(screens.touches(0, configs->path("sensors.xml")));
}

void TestTreeScreen::wordsFilterWhileTheirSwitchIsOn()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("week.bin");
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    QVERIFY(screens->taps("button:Words"));
    QVERIFY(screens->types("eek"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("button:Words", "eek"));
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    QVERIFY(screens->taps("toggle:Filter"));
    QVERIFY(screens.touches(0, logs->path("week.bin")));
    QVERIFY(screens->taps("toggle:Filter"));
    QVERIFY(screens.touches(0, logs->path("a.csv")));
}

void TestTreeScreen::foldersComeFirstOnlyIfWanted()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->folder("soil");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("a.csv")));
    QVERIFY(screens->taps("toggle:Folders first"));
    QVERIFY(screens.touches(0, logs->path("a.csv")));
}

void TestTreeScreen::boxesAddUp()
{
    const DataFolder logs("logs");
    logs->file("a.csv", qint64(3 * 1024));
    logs->file("b.csv", qint64(2 * 1024));
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    screens.touchBox(0);
    QVERIFY(screens->sees("summary", "Checked: 3 KB"));
    screens.touchBox(1);
    QVERIFY(screens->sees("summary", "Checked: 5 KB"));
    screens.touchBox(0);
    QVERIFY(screens->sees("summary", "Checked: 2 KB"));
    QCOMPARE(screens.text("touchedPath"), logs->path("b.csv"));
}

void TestTreeScreen::everythingIsCheckedAndUnchecked()
{
    const DataFolder logs("logs");
    logs->file("a.csv", qint64(3 * 1024));
    logs->file("b.csv", qint64(2 * 1024));
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->sees("summary", "Checked: 5 KB"));
    QVERIFY(screens->taps("button:Clear"));
    QVERIFY(screens->sees("summary", "Checked: 0 bytes"));
}

// Where no box is, a touch is one of the row.
void TestTreeScreen::boxesCanBeHidden()
{
    const DataFolder logs("logs");
    logs->file("a.csv", qint64(3 * 1024));
    logs->file("b.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    QVERIFY(screens->taps("toggle:Boxes"));
    screens.touchBox(0);
    QVERIFY(screens->sees("touchedPath", logs->path("a.csv")));
    QCOMPARE(screens.text("summary"), QString("Checked: 0 bytes"));
}

void TestTreeScreen::checkedFilesAreCopiedToAStick()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "first");
    logs->file("b.csv", "second");
    const Stick stick("/dev/sdb1", "/media/Field Data");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    screens.touchBox(1);
    QVERIFY(screens->taps("copy:B"));
    QVERIFY(screens->sees("noticeText", "Checked files copied to Field Data"));
    QCOMPARE(QFileInfo(stick.path("b.csv")).size(), qint64(6));
    QVERIFY(!QFileInfo(stick.path("a.csv")).exists());
    QVERIFY(screens->sees("summary", "Checked: 0 bytes"));
}

void TestTreeScreen::namesWhatWasNotCopied()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "first");
    const Stick stick("/dev/sda1", "/media/Field Data", 1024, Stick::ReadOnly);
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    screens.touchBox(0);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "Not copied to Field Data: a.csv"));
}

void TestTreeScreen::aNewFileBelongsToTheAccount()
{
    const DataFolder logs("logs");
    TreeScreen screens;
    QVERIFY(screens->taps("button:New file"));
    QVERIFY(screens->types("note"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens.touches(0, logs->path("note")));
    QCOMPARE(ownerOf("/home/ostan/logs/note"), ostanUid);
}

// The slot would open it for writing: the screen has to look first.
void TestTreeScreen::aFileThatExistsIsNotEmptied()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "precious");
    TreeScreen screens;
    QVERIFY(screens->taps("button:New file"));
    QVERIFY(screens->types("a.csv"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("noticeText", "\"a.csv\" exists already."));
    QCOMPARE(logs->contents("a.csv"), QByteArray("precious"));
}

void TestTreeScreen::aNewFolderIsMadeWhereTheUserIs()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    logs->file("a.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("a.csv")));
    screens.touch(0);
    QVERIFY(screens->taps("button:New folder"));
    QVERIFY(screens->types("may"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(waitUntil([&] { return QFileInfo(logs->path("soil/may")).isDir(); }));
    QCOMPARE(ownerOf("/home/ostan/logs/soil/may"), ostanUid);
    QVERIFY(!screens->property("noticeText", "text").isValid());
}

void TestTreeScreen::theSelectedEntryIsRenamed()
{
    const DataFolder logs("logs");
    logs->file("a", "x");
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a")));
    QVERIFY(screens->taps("button:Rename"));
    QVERIFY(screens->types("b"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(waitUntil([&] { return logs->names() == QStringList("ab"); }));
    QCOMPARE(logs->contents("ab"), QByteArray("x"));
}

void TestTreeScreen::deletingAsksFirst()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("b.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("b.csv")));
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("question", "Delete \"b.csv\"?"));
    QVERIFY(screens->taps("answer:no"));
    QCOMPARE(logs->names(), QStringList() << "a.csv"
                                          << "b.csv");
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(waitUntil([&] { return logs->names() == QStringList("a.csv"); }));
}

void TestTreeScreen::aFullFolderIsKeptAndTheReasonShown()
{
    const DataFolder logs("logs");
    logs->folder("soil");
    logs->file("soil/flux.csv");
    logs->file("a.csv");
    TreeScreen screens;
    QVERIFY(screens.touches(1, logs->path("a.csv")));
    screens.touch(0);
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("noticeText", "\"soil\" could not be deleted: is it empty?"));
    QVERIFY(QFileInfo(logs->path("soil/flux.csv")).exists());
}

void TestTreeScreen::nothingSelectedIsSaid()
{
    const DataFolder logs("logs");
    TreeScreen screens;
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->sees("noticeText", "Select an entry of this folder first."));
    QVERIFY(screens->taps("noticeOk"));
    QVERIFY(screens->taps("button:Rename"));
    QVERIFY(screens->sees("noticeText", "Select an entry of this folder first."));
}

QTEST_MAIN(TestTreeScreen)
#include "tst_treescreen.moc"
