// What Qt's linter makes of screens, with the types that the module tells it.

#include "support/testdir.h"

#include <QFile>
#include <QProcess>
#include <QTest>

namespace {
// What Qt's linter says of a screen.
QByteArray lint(const QByteArray &screen)
{
    const TestDir dir;
    dir.file("Screen.qml", screen);
    QProcess linter;
    linter.setProcessChannelMode(QProcess::MergedChannels);
    linter.setWorkingDirectory(dir.path());
    QStringList arguments;
    if (qVersion()[0] == '5')
        arguments << "-U"; // Qt 6 always looks at names
    linter.start(FILEBROWSER_QMLLINT,
                 arguments << "-I" << QString::fromLocal8Bit(qgetenv("FILEBROWSER_IMPORTS"))
                           << "Screen.qml");
    linter.waitForFinished();
    return linter.readAll();
}
} // namespace

class tst_Linter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aLinterFindsWrongNames_data();
    void aLinterFindsWrongNames();
    void aLinterIsContentWithRightNames();
};

void tst_Linter::initTestCase()
{
    if (!QFile::exists(FILEBROWSER_QMLLINT))
        QSKIP("this Qt comes without its linter");
}

void tst_Linter::aLinterFindsWrongNames_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("slot") << QByteArray("onFilesChanged: logs.refesh()")
                          << QByteArray("\"refesh\" not found on type");
    QTest::newRow("handler") << QByteArray("onFilesChangd: logs.refresh()")
                             << QByteArray(
                                    "no matching signal found for handler \"onFilesChangd\"");
    QTest::newRow("property") << QByteArray("onFilesChanged: console.log(stick.usbAPth)")
                              << QByteArray("\"usbAPth\" not found on type");
}

void tst_Linter::aLinterFindsWrongNames()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, complaint);
    const QByteArray said = lint("import QtQml 2.0\nimport FileBrowser 1.0 as Fb\nFb.Directory {\n"
                                 "id: logs\nproperty QtObject usb: Fb.USB { id: stick }\n" +
                                 line + "\n}\n");
    QVERIFY2(said.contains(complaint), said);
}

void tst_Linter::aLinterIsContentWithRightNames()
{
    const QByteArray said = lint("import QtQml 2.0\nimport FileBrowser 1.0 as Fb\nFb.Directory {\n"
                                 "id: logs\nproperty QtObject usb: Fb.USB { id: stick }\n"
                                 "onFilesChanged: console.log(stick.usbAPath, logs.files.length)\n"
                                 "onRootChanged: logs.refresh()\n}\n");
    QVERIFY2(!said.contains("not found"), said);
    QVERIFY2(!said.contains("FileBrowser"), said);
}

QTEST_MAIN(tst_Linter)
#include "tst_linter.moc"
