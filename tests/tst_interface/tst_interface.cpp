// What is written down about the five types, beside what they are.

#include "directory/directory.h"
#include "directory/file.h"
#include "directory/path.h"
#include "support/qmltypes.h"
#include "support/referencepage.h"
#include "support/testdir.h"
#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include <QFile>
#include <QProcess>
#include <QTest>

namespace {
QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString imports()
{
    return QString::fromLocal8Bit(qgetenv("FILEBROWSER_IMPORTS"));
}

#if QT_VERSION >= 0x050000
// What Qt's linter says of a screen.
QByteArray lint(const QByteArray &screen)
{
    const TestDir dir;
    dir.file("Screen.qml", screen);
    QProcess linter;
    linter.setProcessChannelMode(QProcess::MergedChannels);
    linter.setWorkingDirectory(dir.path());
    QStringList arguments;
    if (QT_VERSION < 0x060000)
        arguments << "-U"; // Qt 6 always looks at names
    linter.start(FILEBROWSER_QMLLINT, arguments << "-I" << imports() << "Screen.qml");
    linter.waitForFinished();
    return linter.readAll();
}
#endif
} // namespace

Q_DECLARE_METATYPE(const QMetaObject *)

class tst_Interface : public QObject
{
    Q_OBJECT

private slots:
    void theTypesForToolsAreThoseOfTheModule();
    void theReferenceHasEveryMember_data();
    void theReferenceHasEveryMember();
#if QT_VERSION >= 0x050000
    void aLinterFindsWrongNames_data();
    void aLinterFindsWrongNames();
    void aLinterIsContentWithRightNames();
#endif
};

void tst_Interface::theTypesForToolsAreThoseOfTheModule()
{
    const QByteArray shipped = contents(imports() + "/FileBrowser/plugins.qmltypes");
    const QByteArray made =
        shipped.left(shipped.indexOf("    Component {")) +
        describeForTools(Directory::staticMetaObject) + describeForTools(File::staticMetaObject) +
        describeForTools(Path::staticMetaObject) + describeForTools(USB::staticMetaObject) +
        describeForTools(FileTreeViewerItem::staticMetaObject) + "}\n";
    if (shipped != made) {
        QFile anew("plugins.qmltypes");
        QVERIFY(anew.open(QIODevice::WriteOnly));
        anew.write(made);
        QFAIL(
            "the types are other ones now; take over plugins.qmltypes from the folder of the test");
    }
}

void tst_Interface::theReferenceHasEveryMember_data()
{
    QTest::addColumn<const QMetaObject *>("type");
    QTest::newRow("Directory") << &Directory::staticMetaObject;
    QTest::newRow("File") << &File::staticMetaObject;
    QTest::newRow("Path") << &Path::staticMetaObject;
    QTest::newRow("USB") << &USB::staticMetaObject;
    QTest::newRow("FileTreeViewerItem") << &FileTreeViewerItem::staticMetaObject;
}

void tst_Interface::theReferenceHasEveryMember()
{
    QFETCH(const QMetaObject *, type);
    const QStringList written = membersOnPage(contents(
        QString("%1/%2.md").arg(FILEBROWSER_REFERENCE, QString::fromLatin1(type->className()))));
    const QStringList real = membersForPage(*type);
    // One by one, so that the first that differs is named.
    for (int i = 0; i < qMin(written.size(), real.size()); ++i)
        QCOMPARE(written.at(i), real.at(i));
    QCOMPARE(written.size(), real.size());
    QVERIFY(!real.isEmpty());
}

#if QT_VERSION >= 0x050000
void tst_Interface::aLinterFindsWrongNames_data()
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

void tst_Interface::aLinterFindsWrongNames()
{
    if (!QFile::exists(FILEBROWSER_QMLLINT))
        QSKIP("this Qt comes without its linter");
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, complaint);
    const QByteArray said = lint("import QtQml 2.0\nimport FileBrowser 1.0 as Fb\nFb.Directory {\n"
                                 "id: logs\nproperty QtObject usb: Fb.USB { id: stick }\n" +
                                 line + "\n}\n");
    QVERIFY2(said.contains(complaint), said);
}

void tst_Interface::aLinterIsContentWithRightNames()
{
    if (!QFile::exists(FILEBROWSER_QMLLINT))
        QSKIP("this Qt comes without its linter");
    const QByteArray said = lint("import QtQml 2.0\nimport FileBrowser 1.0 as Fb\nFb.Directory {\n"
                                 "id: logs\nproperty QtObject usb: Fb.USB { id: stick }\n"
                                 "onFilesChanged: console.log(stick.usbAPath, logs.files.length)\n"
                                 "onRootChanged: logs.refresh()\n}\n");
    QVERIFY2(!said.contains("not found"), said);
    QVERIFY2(!said.contains("FileBrowser"), said);
}
#endif

QTEST_MAIN(tst_Interface)
#include "tst_interface.moc"
