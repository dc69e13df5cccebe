#include "support/testdir.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStringList>
#include <QtTest>

namespace {
const int startMs = 60000; // only a viewer that hangs takes so long

const QByteArray quick = qVersion()[0] == '4' ? "import QtQuick 1.1\n" : "import QtQuick 2.0\n";

struct Outcome
{
    int exitCode;
    QString output;
    QString errors;
};

Outcome runViewer(const QStringList &arguments)
{
    QProcess viewer;
    viewer.start(QFile::decodeName(qgetenv("FILEBROWSER_VIEWER")), arguments);
    Outcome outcome;
    outcome.exitCode =
        viewer.waitForFinished(startMs) && viewer.exitStatus() == QProcess::NormalExit
            ? viewer.exitCode()
            : -1;
    outcome.output = QString::fromLocal8Bit(viewer.readAllStandardOutput());
    outcome.errors = QString::fromLocal8Bit(viewer.readAllStandardError());
    return outcome;
}
} // namespace

/** The viewer as a command. */
class TestViewer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void helpNamesEveryOption();
    void wrongUseIsAnsweredWithTheHelp_data();
    void wrongUseIsAnsweredWithTheHelp();
    void theVersionIsTheModules();
    void theModulesListTellsItsVersion();
    void aMissingModuleIsReported();
    void missingScreensAreReported();
    void aScreenOfAnyNameIsShownInAPicture();
    void aPictureThatCannotBeWrittenIsReported();
    void theWindowHasTheSizeThatIsWanted();
    void theTourWritesAPictureOfEveryStep();
    void aTourThatGoesWrongFails();
};

void TestViewer::initTestCase()
{
    QCOMPARE(QProcess::execute("sample-data", QStringList("/home/ostan")), 0);
    QCOMPARE(QProcess::execute("chown", QStringList() << "-R"
                                                      << "ostan"
                                                      << "/home/ostan"),
             0);
}

void TestViewer::helpNamesEveryOption()
{
    const Outcome outcome = runViewer(QStringList("--help"));
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(outcome.output.startsWith("Usage: filebrowser-viewer"));
    const QStringList options = QStringList() << "--imports"
                                              << "--screens"
                                              << "--size"
                                              << "--locale"
                                              << "--picture"
                                              << "--tour"
                                              << "--version"
                                              << "--help";
    for (const QString &option : options) {
        QVERIFY2(outcome.output.contains("  " + option), qPrintable(option));
    }
}

void TestViewer::wrongUseIsAnsweredWithTheHelp_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("unknown option") << "--fast";
    QTest::newRow("option without its folder") << "--tour";
    QTest::newRow("option without its file") << "--picture";
    QTest::newRow("size of one number") << "--size 800";
    QTest::newRow("something else") << "Main.qml";
}

void TestViewer::wrongUseIsAnsweredWithTheHelp()
{
    QFETCH(QString, argument);
    const Outcome outcome = runViewer(argument.split(' '));
    QCOMPARE(outcome.exitCode, 2);
    QVERIFY(outcome.errors.contains("Usage: filebrowser-viewer"));
}

// The command is the one for a device, where nothing can load the module but the instrument itself.
void TestViewer::theVersionIsTheModules()
{
    QProcess grep;
    grep.start("grep", QStringList() << "-ao"
                                     << "filebrowser [0-9][[:print:]]*"
                                     << QFile::decodeName(qgetenv("FILEBROWSER_IMPORTS")) +
                                            "/FileBrowser/libfilebrowser.so");
    QVERIFY(grep.waitForFinished());
    const QString text = QString::fromLocal8Bit(grep.readAllStandardOutput());
    QCOMPARE(runViewer(QStringList("--version")).output, text);

    QVERIFY2(text.startsWith("filebrowser " FILEBROWSER_VERSION " (source "), qPrintable(text));
    QVERIFY2(text.endsWith(QString(", Qt %1)\n").arg(qVersion())), qPrintable(text));
}

void TestViewer::theModulesListTellsItsVersion()
{
    QFile list(QFile::decodeName(qgetenv("FILEBROWSER_IMPORTS")) + "/FileBrowser/qmldir");
    QVERIFY(list.open(QIODevice::ReadOnly));
    QCOMPARE(list.readLine(), QByteArray("# filebrowser " FILEBROWSER_VERSION "\n"));
}

void TestViewer::aMissingModuleIsReported()
{
    const TestDir empty;
    const Outcome outcome = runViewer(QStringList() << "--imports" << empty.path());
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.errors.contains("module \"FileBrowser\" is not installed"));
}

void TestViewer::missingScreensAreReported()
{
    const TestDir empty;
    const Outcome outcome = runViewer(QStringList() << "--screens" << empty.path());
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.errors.contains("Main.qml"));
}

void TestViewer::aScreenOfAnyNameIsShownInAPicture()
{
    const TestDir dir;
    dir.file("Green.qml", quick + "import FileBrowser 1.0 as Fb\n"
                                  "Rectangle {\n"
                                  "Fb.Directory { id: logs; Component.onCompleted: refresh() }\n"
                                  "color: logs.files.length > 0 ? '#00ff00' : 'red'\n"
                                  "}\n");
    const Outcome outcome = runViewer(QStringList() << "--screens" << dir.path("Green.qml")
                                                    << "--picture" << dir.path("green.png"));
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    const QImage picture(dir.path("green.png"));
    QCOMPARE(picture.size(), QSize(800, 480));
    QCOMPARE(QColor(picture.pixel(400, 240)), QColor("#00ff00"));
}

void TestViewer::aPictureThatCannotBeWrittenIsReported()
{
    const TestDir empty;
    const Outcome outcome =
        runViewer(QStringList() << "--picture" << empty.path("missing/picture.png"));
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(
        outcome.errors.contains("can't write the picture " + empty.path("missing/picture.png")));
}

void TestViewer::theWindowHasTheSizeThatIsWanted()
{
    const TestDir dir;
    const Outcome outcome = runViewer(QStringList() << "--size"
                                                    << "1024x600"
                                                    << "--picture" << dir.path("large.png"));
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    QCOMPARE(QImage(dir.path("large.png")).size(), QSize(1024, 600));
}

void TestViewer::theTourWritesAPictureOfEveryStep()
{
    const TestDir pictures;
    const Outcome outcome = runViewer(QStringList() << "--tour" << pictures.path());
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.errors));
    // Whatever an engine warns about it finds in a file.
    QVERIFY2(!outcome.errors.contains(".qml:"), qPrintable(outcome.errors));
    QVERIFY2(!outcome.errors.contains(".js:"), qPrintable(outcome.errors));
    const QStringList names = pictures.names();
    QCOMPARE(names.size(), 27);
    QCOMPARE(names.first(), QString("01-logs.png"));
    QCOMPARE(names.last(), QString("27-refused.png"));
    for (const QString &name : names) {
        QCOMPARE(QImage(pictures.path(name)).size(), QSize(800, 480));
    }
}

// The second tour finds the account's folders as the first one left them, but no folder for
// pictures.
void TestViewer::aTourThatGoesWrongFails()
{
    const TestDir folder;
    const Outcome outcome = runViewer(QStringList() << "--tour" << folder.path("missing"));
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY(outcome.errors.contains("the tour ended early: step 2 failed: logs"));
}

QTEST_MAIN(TestViewer)
#include "tst_viewer.moc"
