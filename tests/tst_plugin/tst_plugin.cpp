// The built module, as the instrument's user-interface process loads it. Nothing of the product is
// linked into this test: what it sees came out of the module.

#include "support/account.h"
#include "support/metatypes.h"
#include "support/surface.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QDeclarativeComponent>
#include <QDeclarativeEngine>
#include <QDeclarativeView>

#include <QFile>
#include <QImage>
#include <QLibrary>
#include <QPointer>
#include <QProcess>
#include <QScopedPointer>
#include <QTest>

#include <unistd.h>

namespace {
typedef QObject *(*InstanceFunction)();
typedef const char *(*RecordFunction)();
typedef int (*ResourceFunction)();

QString modulePath()
{
    return QString::fromLocal8Bit(qgetenv("FILEBROWSER_IMPORTS")) +
           "/FileBrowser/libfilebrowser.so";
}

QByteArray expectedRecord()
{
#if QT_VERSION < 0x050000
    return QByteArray("pattern=QT_PLUGIN_VERIFICATION_DATA\nversion=") + qVersion() +
           "\ndebug=false\nbuildkey=" QT_BUILD_KEY;
#else
    return "pattern=QT_PLUGIN_VERIFICATION_DATA\n"
           "version=4.8.2\n"
           "debug=false\n"
           "buildkey=arm linux g++-4 full-config QT_NO_QWS_CURSOR";
#endif
}

template <typename Function>
Function resolve(QLibrary *library, const char *name)
{
    return reinterpret_cast<Function>(library->resolve(name));
}
} // namespace

class tst_Plugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theBundleComesAndGoesWithTheLibrary();
    void theBundleIsMadeByTwoFunctions();
    void theInstanceIsOneUntilItIsDeleted();
    void theRecordHasItsTextAndItsSection();

    void everyTypeCanBeMadeAsVersion1_data();
    void everyTypeCanBeMadeAsVersion1();
    void version2HasNoTypes_data();
    void version2HasNoTypes();
    void pointersAndListsAreKnownByTheirNames();
    void listsAreReadableFromQml();
    void pathNeedsNoQualifierWithoutQtQuick();
    void theScriptFilterIsNoTextToQml();
    void enumsTakeNumbersFromQml();
    void operationsWorkFromQml();
    void aTypeSurvivesTheEngine();

private:
    QObject *make(const QByteArray &type, const QByteArray &body = QByteArray());

    QScopedPointer<TestDir> m_home;
    QScopedPointer<QDeclarativeEngine> m_engine;
    QString m_errors;
};

void tst_Plugin::init()
{
    m_home.reset(new TestDir("/home/ostan"));
    QVERIFY(chown("/home/ostan", ostanUid, ostanGid) == 0);
    m_engine.reset(new QDeclarativeEngine);
    m_engine->addImportPath(QString::fromLocal8Bit(qgetenv("FILEBROWSER_IMPORTS")));
}

void tst_Plugin::cleanup()
{
    m_engine.reset();
    m_home.reset();
}

QObject *tst_Plugin::make(const QByteArray &type, const QByteArray &body)
{
    QDeclarativeComponent component(m_engine.data());
    component.setData("import FileBrowser 1.0 as Fb\nFb." + type + " { " + body + " }", QUrl());
    QObject *object = component.create();
    m_errors = component.errorString();
    return object;
}

// Before any engine has loaded the module: it would stay then. Qt Quick has to stay always, whose
// function for accessibility Qt never lets go of; a process that unloads it may crash later.
void tst_Plugin::theBundleComesAndGoesWithTheLibrary()
{
    QVERIFY(QDeclarativeView::staticMetaObject.className());
    QVERIFY(!QFile::exists(":/images"));
    QLibrary library(modulePath());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QCOMPARE(QImage(":/images/blue-folder.png").size(), QSize(24, 24));
    QVERIFY(library.unload());
    QVERIFY(!QFile::exists(":/images"));
}

void tst_Plugin::theBundleIsMadeByTwoFunctions()
{
    QLibrary library(modulePath());
    const ResourceFunction clean =
        resolve<ResourceFunction>(&library, "_Z29qCleanupResources_filebrowserv");
    const ResourceFunction init =
        resolve<ResourceFunction>(&library, "_Z26qInitResources_filebrowserv");
    QVERIFY(clean);
    QVERIFY(init);
    QVERIFY(QFile::exists(":/images"));
    QCOMPARE(clean(), 1);
    QVERIFY(!QFile::exists(":/images"));
    QCOMPARE(init(), 1);
    QVERIFY(QFile::exists(":/images"));
    QVERIFY(library.unload());
}

void tst_Plugin::theInstanceIsOneUntilItIsDeleted()
{
    QLibrary library(modulePath());
    const InstanceFunction instance = resolve<InstanceFunction>(&library, "qt_plugin_instance");
    QVERIFY(instance);
    const QPointer<QObject> first = instance();
    QVERIFY(first);
    QCOMPARE(first->metaObject()->className(), "FileBrowserPlugin");
    QVERIFY(!first->parent());
    QCOMPARE(surface(*first->metaObject()), QStringList());
    QCOMPARE(instance(), first.data());

    delete first;
    const QPointer<QObject> second = instance();
    QVERIFY(second);
    QCOMPARE(second->metaObject()->className(), "FileBrowserPlugin");
    QCOMPARE(instance(), second.data());
    delete second;
    QVERIFY(library.unload());
}

void tst_Plugin::theRecordHasItsTextAndItsSection()
{
    QLibrary library(modulePath());
    const RecordFunction record =
        resolve<RecordFunction>(&library, "qt_plugin_query_verification_data");
    QVERIFY(record);
    QCOMPARE(QByteArray(record()), expectedRecord());
    QVERIFY(library.unload());

    const TestDir dir;
    QCOMPARE(QProcess::execute(OBJCOPY, QStringList() << "-O"
                                                      << "binary"
                                                      << "--only-section=.qtplugin" << modulePath()
                                                      << dir.path("section")),
             0);
    QCOMPARE(dir.contents("section"), expectedRecord() + '\0');
}

void tst_Plugin::everyTypeCanBeMadeAsVersion1_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char *type : {"Directory", "File", "Path", "USB", "FileTreeViewerItem"})
        QTest::newRow(type) << QByteArray(type);
}

void tst_Plugin::everyTypeCanBeMadeAsVersion1()
{
    QFETCH(QByteArray, type);
    const QScopedPointer<QObject> object(make(type));
    QVERIFY2(object, qPrintable(m_errors));
    QCOMPARE(QByteArray(object->metaObject()->className()), type);
}

void tst_Plugin::version2HasNoTypes_data()
{
    everyTypeCanBeMadeAsVersion1_data();
}

void tst_Plugin::version2HasNoTypes()
{
    QFETCH(QByteArray, type);
    QDeclarativeComponent component(m_engine.data());
    component.setData("import FileBrowser 2.0\n" + type + " { }", QUrl());
    QVERIFY(component.isError());
}

void tst_Plugin::pointersAndListsAreKnownByTheirNames()
{
    const QScopedPointer<QObject> object(make("File"));
    QVERIFY2(object, qPrintable(m_errors));
    for (const char *type : {"File", "Path", "Directory", "USB", "FileTreeViewerItem"})
        QVERIFY2(isKnownType(QByteArray(type) + '*'), type);
    for (const char *type : {"File", "Path", "Directory"})
        QVERIFY2(isKnownType("QDeclarativeListProperty<" + QByteArray(type) + '>'), type);
}

void tst_Plugin::listsAreReadableFromQml()
{
    m_home->folder("logs/soil");
    m_home->file("logs/a.log", 2048, 1370000000);
    const QScopedPointer<QObject> directory(
        make("Directory", "property int shown: files.length\n"
                          "property string first: files.length > 0 ? files[0].name + ' ' + "
                          "files[0].size : ''\n"
                          "property string step: paths.length > 0 ? paths[0].name + ' ' + "
                          "paths[0].fullpath : ''\n"));
    QVERIFY2(directory, qPrintable(m_errors));
    QCOMPARE(directory->property("shown").toInt(), 0);

    QVERIFY(QMetaObject::invokeMethod(directory.data(), "reorderByName"));
    QCOMPARE(directory->property("shown").toInt(), 2);
    QCOMPARE(directory->property("first").toString(), QString("a.log 2 KB"));
    QCOMPARE(directory->property("step").toString(), QString("logs /home/ostan/logs"));
}

void tst_Plugin::pathNeedsNoQualifierWithoutQtQuick()
{
    QDeclarativeComponent component(m_engine.data());
    component.setData("import FileBrowser 1.0\nPath { }", QUrl());
    const QScopedPointer<QObject> path(component.create());
    QVERIFY2(path, qPrintable(component.errorString()));
    QCOMPARE(path->property("fullpath").toString(), QString());
}

void tst_Plugin::theScriptFilterIsNoTextToQml()
{
    const QScopedPointer<QObject> directory(
        make("Directory", "property string text: '' + filters"));
    QVERIFY2(directory, qPrintable(m_errors));
    QVERIFY(QMetaObject::invokeMethod(directory.data(), "viewScriptDirectory"));
    QVERIFY(!directory->property("text").toString().contains(".py"));
}

void tst_Plugin::enumsTakeNumbersFromQml()
{
    const QScopedPointer<QObject> sorted(
        make("Directory", "function bySize() { setSortType(2); setSortOrder(5) }"));
    QVERIFY2(sorted, qPrintable(m_errors));
    QVERIFY(QMetaObject::invokeMethod(sorted.data(), "bySize"));
    QVERIFY(sorted->property("sizeSorted").toBool());
    QVERIFY(!sorted->property("dateSorted").toBool());
    QVERIFY(!sorted->property("ascendingSorted").toBool());
}

void tst_Plugin::operationsWorkFromQml()
{
    const QScopedPointer<QObject> directory(
        make("Directory", "function folder(name) { refresh(); return newDirectory(name) }\n"
                          "property int shown: files.length"));
    QVERIFY2(directory, qPrintable(m_errors));
    QVariant made;
    QVERIFY(QMetaObject::invokeMethod(directory.data(), "folder", Q_RETURN_ARG(QVariant, made),
                                      Q_ARG(QVariant, QString::fromUtf8("w\303\244rme \"1\""))));
    QVERIFY(made.toBool());
    QCOMPARE(ownerOf("/home/ostan/logs/w\303\244rme \"1\""), ostanUid);
    QVERIFY(waitUntil([&] { return directory->property("shown").toInt() == 1; }));
}

void tst_Plugin::aTypeSurvivesTheEngine()
{
    QScopedPointer<QObject> usb(make("USB"));
    QVERIFY2(usb, qPrintable(m_errors));
    m_engine.reset();
    QVERIFY(QMetaObject::invokeMethod(usb.data(), "find"));
    QCOMPARE(usb->property("usbAFreeSpace").toString(), QString("0.0 bytes"));
}

QTEST_MAIN(tst_Plugin)
#include "tst_plugin.moc"
