#include "support/screens.h"
#include "support/stick.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QtTest>

#include <sys/stat.h>

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

/** Whether this process is told of changes in the folder @p path, as in one that it has read. */
bool isWatched(const QString &path)
{
    struct stat folder;
    if (stat(QFile::encodeName(path).constData(), &folder) != 0) {
        return false;
    }
    const QByteArray inode = " ino:" + QByteArray::number(quint64(folder.st_ino), 16) + ' ';
    const QDir descriptors("/proc/self/fdinfo");
    for (const QString &descriptor : descriptors.entryList(QDir::Files | QDir::System)) {
        QFile file(descriptors.filePath(descriptor));
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains(inode)) {
            return true;
        }
    }
    return false;
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

    void nothingIsReadBeforeTheTreeIsShown();
    void aTouchedFileIsNamed();
    void aTouchedFolderOpensInPlace();
    void eachTabShowsItsFolder();
    void anEmptyFolderSaysSo();
    void anEmptyFolderNoticesWhatComesAndGoesByItself();
    void onlyATouchedEntryCanBeChanged();
    void wordsFilterUntilThereAreNone();

    void boxesAddUp();
    void everythingIsCheckedAndUnchecked();
    void checkedFilesAreCopiedToAStick();
    void checkedFilesThatAreGoneFailNothing();
    void anEmptyFileIsCopiedToo();
    void nothingIsCopiedToAStickThatRefusesIt();
    void namesOneByOneWhatWasNotCopied();
    void aStickThatIsTooSmallIsSaidBefore();

    void aNewFileBelongsToTheAccount();
    void aFileThatExistsIsNotEmptied();
    void aNewFolderIsMadeWhereTheUserIs();
    void theSelectedEntryIsRenamed();
    void deletingAsksFirst();
    void aFullFolderIsKeptAndTheReasonShown();
};

void TestTreeScreen::initTestCase()
{
    Viewer::chooseFonts();
}

// With boxes a tree reads what is below its rows, and a touch on the list would wait for that.
void TestTreeScreen::nothingIsReadBeforeTheTreeIsShown()
{
    const DataFolder logs("logs");
    logs->folder("flux");
    Screens screens;
    QVERIFY(screens->sees("row:flux"));
    Visitor::rests(500);
    QVERIFY(!isWatched(logs->path("flux")));
    QVERIFY(screens->taps("tab:Tree"));
    QVERIFY(waitUntil([&] { return isWatched(logs->path("flux")); }));
}

void TestTreeScreen::aTouchedFileIsNamed()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("b.csv");
    TreeScreen screens;
    QCOMPARE(screens.text("touchedPath"), logs->path());
    QVERIFY(screens.touches(1, logs->path("b.csv")));
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
    QCOMPARE(screens.text("touchedPath"), logs->path("soil"));
    QVERIFY(screens.touches(1, logs->path("soil/flux.csv")));
    QVERIFY(screens.touches(2, logs->path("a.csv")));
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
    QCOMPARE(screens.text("touchedPath"), configs->path());
    QVERIFY(screens.touches(0, configs->path("sensors.xml")));
}

void TestTreeScreen::wordsFilterUntilThereAreNone()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    logs->file("week.bin");
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    QVERIFY(screens->taps("button:Search"));
    QVERIFY(screens->types("eek"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("button:Search", "Only: eek"));
    QVERIFY(screens.touches(0, logs->path("week.bin")));
    QVERIFY(screens->taps("button:Search"));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(screens->taps("key:Erase"));
    }
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->sees("button:Search", "Search"));
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
    QVERIFY(screens->sees("noticeText", "1 file copied to Field Data"));
    QCOMPARE(QFileInfo(stick.path("b.csv")).size(), qint64(6));
    QVERIFY(!QFileInfo(stick.path("a.csv")).exists());
    QVERIFY(screens->sees("summary", "Checked: 0 bytes"));
}

// Each comes back from the copy as an empty name.
void TestTreeScreen::checkedFilesThatAreGoneFailNothing()
{
    const DataFolder logs("logs");
    for (const char *name : {"a.csv", "b.csv", "c.csv"})
        logs->file(name, "12");
    const Stick stick("/dev/sdb1", "/media/Field Data");
    TreeScreen screens;
    QVERIFY(screens.touches(2, logs->path("c.csv")));
    for (int row = 0; row < 3; ++row)
        screens.touchBox(row);
    QVERIFY(screens->sees("summary", "Checked: 6 bytes"));
    QVERIFY(QFile::remove(logs->path("a.csv")));
    QVERIFY(QFile::remove(logs->path("b.csv")));
    QVERIFY(screens.touches(0, logs->path("c.csv")));

    QVERIFY(screens->taps("copy:B"));
    QVERIFY(screens->sees("noticeText", "1 file copied to Field Data"));
    QVERIFY(QFileInfo(stick.path("c.csv")).exists());
}

// The tree tells how many bytes are checked, and not whether anything is.
void TestTreeScreen::anEmptyFileIsCopiedToo()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "");
    const Stick stick("/dev/sda1", "/media/Field Data");
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "Nothing is selected."));
    QVERIFY(screens->taps("noticeOk"));
    screens.touchBox(0);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "1 file copied to Field Data"));
    QVERIFY(QFileInfo(stick.path("a.csv")).exists());
}

void TestTreeScreen::nothingIsCopiedToAStickThatRefusesIt()
{
    const DataFolder logs("logs");
    logs->file("a.csv", "first");
    const Stick stick("/dev/sda1", "/media/Field Data", 1024, Stick::ReadOnly);
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    screens.touchBox(0);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("noticeText", "Nothing was copied to Field Data."));
    QCOMPARE(screens.text("noticeDetail"), QString("The stick is write-protected"));
    QCOMPARE(screens.text("summary"), QString("Checked: 5 bytes"));
}

// The tree tells the names that failed in one text, and not how many it copied.
void TestTreeScreen::namesOneByOneWhatWasNotCopied()
{
    const DataFolder logs("logs");
    logs->file("a b.csv", "first");
    logs->file("b.csv", "second");
    logs->file("c.csv", "third");
    logs->folder("soil");
    logs->file("soil/d.csv", "fourth");
    const Stick stick("/dev/sda1", "/media/Field Data");
    QVERIFY(QFile::copy(logs->path("a b.csv"), stick.path("a b.csv")));
    TreeScreen screens;
    QVERIFY(screens.touches(3, logs->path("c.csv")));
    QVERIFY(screens->taps("button:Select all"));
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("outcomeText", "3 of 4 files copied to Field Data"));
    QVERIFY(screens->sees("named:soil"));
    const QStringList names = QStringList() << "a b.csv"
                                            << "soil";
    QStringList shown = screens->names("named:");
    shown.sort();
    QCOMPARE(shown, names);
    QVERIFY(screens->sees("namedRemark", "There already, left as it was"));
    QVERIFY(screens->sees("namedRemark", "A folder: only files are copied"));
}

void TestTreeScreen::aStickThatIsTooSmallIsSaidBefore()
{
    const DataFolder logs("logs");
    logs->file("large.bin", qint64(3 * 1024 * 1024));
    const Stick stick("/dev/sda1", "/media/Field Data", 1024);
    TreeScreen screens;
    QVERIFY(screens.touches(0, logs->path("large.bin")));
    screens.touchBox(0);
    QVERIFY(screens->taps("copy:A"));
    QVERIFY(screens->sees("question", "Needs 3 MB, 1 MB are free on Field Data."));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(screens->sees("outcomeText", "0 of 1 file copied to Field Data"));
    QVERIFY(screens->sees("namedName", "large.bin"));
    QVERIFY(screens->sees("namedRemark", "The stick is full"));
}

void TestTreeScreen::anEmptyFolderSaysSo()
{
    const DataFolder logs("logs");
    TreeScreen screens;
    QVERIFY(screens->sees("treeEmptyText", "This folder is empty"));
    QVERIFY(screens->taps("button:New file"));
    QVERIFY(screens->types("note"));
    QVERIFY(screens->taps("nameOk"));
    QVERIFY(screens->misses("treeEmptyText"));
}

void TestTreeScreen::anEmptyFolderNoticesWhatComesAndGoesByItself()
{
    const DataFolder logs("logs");
    TreeScreen screens;
    QVERIFY(screens->sees("treeEmptyText", "This folder is empty"));
    logs->file("a.csv");
    QVERIFY(screens->misses("treeEmptyText"));
    QVERIFY(QFile::remove(logs->path("a.csv")));
    QVERIFY(screens->sees("treeEmptyText"));
}

void TestTreeScreen::onlyATouchedEntryCanBeChanged()
{
    const DataFolder logs("logs");
    logs->file("a.csv");
    TreeScreen screens;
    QCOMPARE(screens->property("button:Rename", "enabled").toBool(), false);
    QCOMPARE(screens->property("button:Delete", "enabled").toBool(), false);
    QVERIFY(screens.touches(0, logs->path("a.csv")));
    QCOMPARE(screens->property("button:Rename", "enabled").toBool(), true);
    QVERIFY(screens->taps("button:Delete"));
    QVERIFY(screens->taps("answer:yes"));
    QVERIFY(waitUntil([&] { return logs->names().isEmpty(); }));
    QCOMPARE(screens->property("button:Delete", "enabled").toBool(), false);
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
    QVERIFY(screens->sees("outcomeText", "0 of 1 entry deleted"));
    QVERIFY(screens->sees("namedName", "soil"));
    QVERIFY(screens->sees("namedRemark", "Only empty folders can be deleted."));
    QVERIFY(QFileInfo(logs->path("soil/flux.csv")).exists());
}

QTEST_MAIN(TestTreeScreen)
#include "tst_treescreen.moc"
