// The built module in a process that has Qt's windows but not its widgets, as Qt's own "qml" is.

#include <QDeclarativeComponent>
#include <QDeclarativeEngine>

#include <QScopedPointer>

// Lets QTEST_MAIN make a QGuiApplication.
#undef QT_WIDGETS_LIB
#include <QTest>

class tst_WithoutWidgets : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theTreeSaysThatItNeedsThem();
    void theOtherTypesWork_data();
    void theOtherTypesWork();

private:
    QScopedPointer<QDeclarativeEngine> m_engine;
};

void tst_WithoutWidgets::init()
{
    m_engine.reset(new QDeclarativeEngine);
    m_engine->addImportPath(QString::fromLocal8Bit(qgetenv("FILEBROWSER_IMPORTS")));
}

void tst_WithoutWidgets::theTreeSaysThatItNeedsThem()
{
    QDeclarativeComponent component(m_engine.data());
    component.setData("import FileBrowser 1.0\nFileTreeViewerItem { }", QUrl());
    QVERIFY(component.isError());
    QVERIFY2(component.errorString().contains("FileTreeViewerItem needs a QApplication"),
             qPrintable(component.errorString()));
}

void tst_WithoutWidgets::theOtherTypesWork_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char *type : {"Directory", "File", "Path", "USB"})
        QTest::newRow(type) << QByteArray(type);
}

void tst_WithoutWidgets::theOtherTypesWork()
{
    QFETCH(QByteArray, type);
    QDeclarativeComponent component(m_engine.data());
    component.setData("import FileBrowser 1.0\n" + type + " { }", QUrl());
    const QScopedPointer<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
}

QTEST_MAIN(tst_WithoutWidgets)
#include "tst_withoutwidgets.moc"
