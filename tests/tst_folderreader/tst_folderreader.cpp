#include "directory/folderreader.h"

#include "common/filetime.h"

#include "support/account.h"
#include "support/testdir.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace {
const QDir::Filters listed = QDir::Dirs | QDir::Files | QDir::Drives | QDir::NoDotAndDotDot;

QStringList namesReadFrom(const QString &path)
{
    QStringList names;
    for (const FolderEntry &entry : readFolder(path))
        names.append(entry.name);
    return names;
}

QStringList namesQDirReadsFrom(const QString &path)
{
    return QDir(path).entryList(listed, QDir::Unsorted);
}

FolderEntry entryNamed(const QString &name, const QString &path)
{
    for (const FolderEntry &entry : readFolder(path)) {
        if (entry.name == name)
            return entry;
    }
    return FolderEntry();
}

void makeSocket(const QString &path)
{
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = sockaddr_un();
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path);
    QVERIFY(bind(descriptor, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0);
    close(descriptor);
}

/** A file whose name is bytes that may be no text. Removed with the object. */
class OddFile
{
public:
    OddFile(const TestDir &dir, const QByteArray &name)
        : m_path(QFile::encodeName(dir.path()) + '/' + name)
    {
        const int descriptor = open(m_path.constData(), O_CREAT | O_WRONLY, 0600);
        if (descriptor == -1)
            qFatal("no odd file");
        close(descriptor);
    }

    ~OddFile()
    {
        unlink(m_path.constData());
    }

private:
    const QByteArray m_path;
};
} // namespace

class tst_FolderReader : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyFolderHasNoEntries();
    void aMissingFolderHasNoEntries();
    void aFileIsNoFolder();
    void sizeTimeAndKindAreThoseOfTheFile();
    void timesBelowOneSecondAreKept();
    void oddNamesAreReadAsTheyAre();
    void hiddenEntriesAreLeftOut();
    void specialFilesAndBrokenLinksAreLeftOut();
    void aLinkCountsAsWhatItLeadsTo();
    void namesThatTheEncodingLacksAreReadAsQDirDoes();
    void anEntryThatCannotBeLookedIntoIsListedWithoutSizeAndTime();
    void everythingIsReadInTheFoldersOrder();
    void aKnownNameIsShared();
    void anotherNameThanTheKnownIsReadAsItIs_data();
    void anotherNameThanTheKnownIsReadAsItIs();
};

void tst_FolderReader::anEmptyFolderHasNoEntries()
{
    const TestDir dir;
    QCOMPARE(readFolder(dir.path()).size(), 0);
}

void tst_FolderReader::aMissingFolderHasNoEntries()
{
    QCOMPARE(readFolder("/nonexistent/folder").size(), 0);
    QCOMPARE(readFolder(QString()).size(), 0);
}

void tst_FolderReader::aFileIsNoFolder()
{
    const TestDir dir;
    dir.file("file", 1);
    QCOMPARE(readFolder(dir.path("file")).size(), 0);
}

void tst_FolderReader::sizeTimeAndKindAreThoseOfTheFile()
{
    const TestDir dir;
    dir.file("large.log", Q_INT64_C(5000000000), 1370000000);
    dir.folder("folder");
    setTimes(dir.path("folder"), 1, 1360000000);

    const FolderEntry file = entryNamed("large.log", dir.path());
    QCOMPARE(file.size, Q_INT64_C(5000000000));
    QCOMPARE(file.modified, Q_INT64_C(1370000000000));
    QVERIFY(!file.isDir);
    const FolderEntry folder = entryNamed("folder", dir.path());
    QCOMPARE(folder.size, QFileInfo(dir.path("folder")).size());
    QCOMPARE(folder.modified, Q_INT64_C(1360000000000));
    QVERIFY(folder.isDir);
}

void tst_FolderReader::timesBelowOneSecondAreKept()
{
    const TestDir dir;
    dir.file("a");
    const timespec times[] = {{5, 0}, {1370000000, 123456789}};
    QVERIFY(utimensat(AT_FDCWD, QFile::encodeName(dir.path("a")).constData(), times, 0) == 0);
    QCOMPARE(entryNamed("a", dir.path()).modified, Q_INT64_C(1370000000123));
}

void tst_FolderReader::oddNamesAreReadAsTheyAre()
{
    const TestDir dir;
    const QStringList names = QStringList()
                              << "two  blanks"
                              << QString::fromUtf8("Bodenw\303\244rme \342\202\254") << "new\nline"
                              << "\"quotes\" and 'more'"
                              << "back\\slash" << QString(255, 'x')
                              << QString::fromUtf8("\357\273\277mark in front") << "~"
                              << " "
                              << "a*b?";
    for (const QString &name : names)
        dir.file(name);

    QStringList read = namesReadFrom(dir.path());
    QStringList expected = names;
    read.sort();
    expected.sort();
    QCOMPARE(read, expected);
}

void tst_FolderReader::hiddenEntriesAreLeftOut()
{
    const TestDir dir;
    dir.file(".hidden");
    dir.folder(".hidden folder");
    dir.file("..two dots");
    dir.file("seen");
    QCOMPARE(namesReadFrom(dir.path()), QStringList("seen"));
}

void tst_FolderReader::specialFilesAndBrokenLinksAreLeftOut()
{
    const TestDir dir;
    const QByteArray path = QFile::encodeName(dir.path());
    dir.file("file");
    QVERIFY(mkfifo((path + "/pipe").constData(), 0600) == 0);
    makeSocket(dir.path("socket"));
    // The root of a user namespace may not make devices.
    QVERIFY(mknod((path + "/device").constData(), S_IFCHR | 0600, makedev(1, 3)) == 0 ||
            errno == EPERM);
    QVERIFY(symlink("nowhere", (path + "/broken").constData()) == 0);
    QVERIFY(symlink("loop", (path + "/loop").constData()) == 0);

    QCOMPARE(namesReadFrom(dir.path()), QStringList("file"));
    QCOMPARE(namesQDirReadsFrom(dir.path()), QStringList("file"));
}

void tst_FolderReader::aLinkCountsAsWhatItLeadsTo()
{
    const TestDir dir;
    const QByteArray path = QFile::encodeName(dir.path());
    dir.file("file", 300, 1370000000);
    dir.folder("folder");
    QVERIFY(symlink("file", (path + "/to file").constData()) == 0);
    QVERIFY(symlink("folder", (path + "/to folder").constData()) == 0);
    QVERIFY(symlink("/dev/null", (path + "/to device").constData()) == 0);

    QCOMPARE(entryNamed("to file", dir.path()).size, qint64(300));
    QCOMPARE(entryNamed("to file", dir.path()).modified, Q_INT64_C(1370000000000));
    QVERIFY(entryNamed("to folder", dir.path()).isDir);
    QCOMPARE(namesReadFrom(dir.path()), namesQDirReadsFrom(dir.path()));
    QVERIFY(namesReadFrom(dir.path()).contains("to device"));
}

void tst_FolderReader::namesThatTheEncodingLacksAreReadAsQDirDoes()
{
    // Each in a folder of its own: what QDir of Qt 6.8 can't decode takes the next names with it.
    const TestDir all;
    all.file("valid");
    const QList<QByteArray> names = QList<QByteArray>() << "Bodenw\344rme"
                                                        << "\303\244\303\266"
                                                        << "\344\366";
    for (const QByteArray &name : names) {
        const TestDir dir;
        const OddFile alone(dir, name);
        QCOMPARE(namesReadFrom(dir.path()), namesQDirReadsFrom(dir.path()));
    }

    const OddFile first(all, names.at(0));
    const OddFile second(all, names.at(1));
    const OddFile third(all, names.at(2));
    QVERIFY(namesReadFrom(all.path()).contains("valid"));
}

void tst_FolderReader::anEntryThatCannotBeLookedIntoIsListedWithoutSizeAndTime()
{
    const TestDir dir;
    dir.file("file", 300, 1370000000);
    dir.folder("folder");
    QVERIFY(chmod(QFile::encodeName(dir.path()).constData(), 0744) == 0);

    const EffectiveUser stranger(strangerUid);
    const FolderEntry file = entryNamed("file", dir.path());
    QCOMPARE(file.name, QString("file"));
    QCOMPARE(file.size, qint64(0));
    QCOMPARE(file.modified, fileTime(timespec()));
    QVERIFY(!file.isDir);
    QVERIFY(entryNamed("folder", dir.path()).isDir);
}

void tst_FolderReader::everythingIsReadInTheFoldersOrder()
{
    const TestDir dir;
    for (int i = 0; i < 1000; ++i)
        dir.file(QString::number(i * 7919 % 1000));
    const QStringList names = namesReadFrom(dir.path());
    QCOMPARE(names.size(), 1000);
    QCOMPARE(names, namesQDirReadsFrom(dir.path()));
}

void tst_FolderReader::aKnownNameIsShared()
{
    const TestDir dir;
    dir.file("a.csv");
    const QString known = "a.csv";
    const QVector<FolderEntry> entries =
        readFolder(dir.path(), QVector<const QString *>(1, &known));
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().name.constData(), known.constData());
}

void tst_FolderReader::anotherNameThanTheKnownIsReadAsItIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("known");
    QTest::newRow("nothing") << "a.csv" << QString();
    QTest::newRow("its beginning") << "a.csv"
                                   << "a.cs";
    QTest::newRow("more than it") << "a.csv"
                                  << "a.csv2";
    QTest::newRow("another end") << "a.csv"
                                 << "a.csw";
    QTest::newRow("a letter with the same low byte") << "a.csv" << QString("a.cs") + QChar(0x0176);
    const QByteArray umlauts = "w\303\244rme";
    QTest::newRow("its bytes as Latin-1")
        << QString::fromUtf8(umlauts) << QString::fromLatin1(umlauts);
}

void tst_FolderReader::anotherNameThanTheKnownIsReadAsItIs()
{
    QFETCH(QString, name);
    QFETCH(QString, known);
    const TestDir dir;
    dir.file(name);
    const QVector<FolderEntry> entries =
        readFolder(dir.path(), QVector<const QString *>(1, &known));
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().name, name);
}

QTEST_MAIN(tst_FolderReader)
#include "tst_folderreader.moc"
