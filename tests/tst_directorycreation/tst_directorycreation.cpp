#include "directory/directory.h"

#include "support/listing.h"
#include "support/oddnames.h"
#include "support/testdir.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <unistd.h>

class tst_DirectoryCreation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newFileMakesAnEmptyFile();
    void newFileTakesOddNames_data();
    void newFileTakesOddNames();
    void newFileLeavesAnExistingFileAlone_data();
    void newFileLeavesAnExistingFileAlone();
    void newFileMakesARelativeNameInTheWorkingDirectory();
    void newFileLooksForARelativeNameInTheFolderListed();
    void newFileThatFailsListsAgain_data();
    void newFileThatFailsListsAgain();

    void newDirectoryMakesAFolder();
    void newDirectoryTakesAFullPath();
    void newDirectoryTakesOddNames_data();
    void newDirectoryTakesOddNames();
    void newDirectoryLeavesWhatExistsAlone_data();
    void newDirectoryLeavesWhatExistsAlone();
    void newDirectoryThatFailsListsAgain_data();
    void newDirectoryThatFailsListsAgain();

private:
    void list();

    TestDir *m_folder;
    TestDir *m_elsewhere; // the working directory
    Directory *m_directory;
};

void tst_DirectoryCreation::init()
{
    m_folder = new TestDir;
    m_elsewhere = new TestDir;
    QVERIFY(QDir::setCurrent(m_elsewhere->path()));
    m_directory = new Directory;
    m_directory->setSortType(Directory::name);
}

void tst_DirectoryCreation::cleanup()
{
    delete m_directory;
    QDir::setCurrent("/");
    delete m_elsewhere;
    delete m_folder;
    QCOMPARE(geteuid(), uid_t(0));
}

void tst_DirectoryCreation::list()
{
    m_directory->setCurrentPath(m_folder->path());
}

void tst_DirectoryCreation::newFileMakesAnEmptyFile()
{
    list();
    bool made = false;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newFile(m_folder->path("a.log")); }),
             oneListing());
    QVERIFY(made);
    QCOMPARE(shownNames(m_directory), QStringList("a.log"));
    const QFileInfo info(m_folder->path("a.log"));
    QVERIFY(info.isFile());
    QCOMPARE(info.size(), qint64(0));
}

void tst_DirectoryCreation::newFileTakesOddNames_data()
{
    addOddNames();
}

void tst_DirectoryCreation::newFileTakesOddNames()
{
    QFETCH(QString, name);
    list();
    QVERIFY(m_directory->newFile(m_folder->path(name)));
    QCOMPARE(m_folder->names(), QStringList(name));
    QVERIFY(m_directory->exists(name));
    QVERIFY(!m_directory->newFile(m_folder->path(name)));
    m_directory->refresh();
    QCOMPARE(shownNames(m_directory), QStringList(name));
}

void tst_DirectoryCreation::newFileLeavesAnExistingFileAlone_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::newRow("name") << QString();
    QTest::newRow("full path") << QString("/");
}

void tst_DirectoryCreation::newFileLeavesAnExistingFileAlone()
{
    QFETCH(QString, prefix);
    m_folder->file("a.log", QByteArray("contents"));
    m_elsewhere->folder("untouched");
    list();
    bool made = true;
    const QString name = prefix.isEmpty() ? QString("a.log") : m_folder->path("a.log");
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newFile(name); }), nothing());
    QVERIFY(!made);
    QCOMPARE(m_folder->contents("a.log"), QByteArray("contents"));
    QCOMPARE(m_elsewhere->names(), QStringList("untouched"));
}

// Deliberate: the name is looked for in the folder listed and made in the working directory.
void tst_DirectoryCreation::newFileMakesARelativeNameInTheWorkingDirectory()
{
    list();
    bool made = false;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newFile("a.log"); }),
             oneQuietListing());
    QVERIFY(made);
    QCOMPARE(m_folder->names(), QStringList());
    QCOMPARE(m_elsewhere->names(), QStringList("a.log"));
}

void tst_DirectoryCreation::newFileLooksForARelativeNameInTheFolderListed()
{
    m_folder->file("a.log");
    list();
    QVERIFY(!m_directory->newFile("a.log"));
    QCOMPARE(m_elsewhere->names(), QStringList());
}

void tst_DirectoryCreation::newFileThatFailsListsAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing folder") << QString("/missing/a.log");
    QTest::newRow("256 bytes") << '/' + QString(256, 'x');
    QTest::newRow("below a file") << QString("/file/a.log");
}

void tst_DirectoryCreation::newFileThatFailsListsAgain()
{
    QFETCH(QString, name);
    m_folder->file("file");
    list();
    bool made = true;
    const QString path = name.isEmpty() ? name : m_folder->path() + name;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newFile(path); }), oneQuietListing());
    QVERIFY(!made);
    QCOMPARE(m_folder->names(), QStringList("file"));
}

void tst_DirectoryCreation::newDirectoryMakesAFolder()
{
    list();
    bool made = false;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newDirectory("soil"); }),
             oneListing());
    QVERIFY(made);
    QCOMPARE(shownNames(m_directory), QStringList("soil"));
    QVERIFY(m_directory->isDir(0));
    QVERIFY(QFileInfo(m_folder->path("soil")).isDir());
    QCOMPARE(m_elsewhere->names(), QStringList());
}

void tst_DirectoryCreation::newDirectoryTakesAFullPath()
{
    list();
    bool made = false;
    QCOMPARE(emittedBy(m_directory,
                       [&] { made = m_directory->newDirectory(m_elsewhere->path("soil")); }),
             oneQuietListing());
    QVERIFY(made);
    QCOMPARE(m_folder->names(), QStringList());
    QVERIFY(QFileInfo(m_elsewhere->path("soil")).isDir());
}

void tst_DirectoryCreation::newDirectoryTakesOddNames_data()
{
    addOddNames();
}

void tst_DirectoryCreation::newDirectoryTakesOddNames()
{
    QFETCH(QString, name);
    list();
    QVERIFY(m_directory->newDirectory(name));
    QVERIFY(QFileInfo(m_folder->path(name)).isDir());
    QVERIFY(!m_directory->newDirectory(name));
    m_directory->refresh();
    QCOMPARE(shownNames(m_directory), QStringList(name));
}

void tst_DirectoryCreation::newDirectoryLeavesWhatExistsAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a file") << "a.log";
    QTest::newRow("a folder") << "soil";
    QTest::newRow("the folder itself") << ".";
}

void tst_DirectoryCreation::newDirectoryLeavesWhatExistsAlone()
{
    QFETCH(QString, name);
    m_folder->file("a.log", QByteArray("contents"));
    m_folder->folder("soil");
    list();
    bool made = true;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newDirectory(name); }), nothing());
    QVERIFY(!made);
    QCOMPARE(m_folder->contents("a.log"), QByteArray("contents"));
}

void tst_DirectoryCreation::newDirectoryThatFailsListsAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing parent") << QString("missing/soil");
    QTest::newRow("256 bytes") << QString(256, 'x');
}

void tst_DirectoryCreation::newDirectoryThatFailsListsAgain()
{
    QFETCH(QString, name);
    list();
    bool made = true;
    QCOMPARE(emittedBy(m_directory, [&] { made = m_directory->newDirectory(name); }),
             oneQuietListing());
    QVERIFY(!made);
    QCOMPARE(m_folder->names(), QStringList());
}

QTEST_MAIN(tst_DirectoryCreation)
#include "tst_directorycreation.moc"
