// What is written down about the five types, beside what they are.

#include "directory/directory.h"
#include "directory/file.h"
#include "directory/path.h"
#include "support/qmltypes.h"
#include "support/referencepage.h"
#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include <QFile>
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
} // namespace

Q_DECLARE_METATYPE(const QMetaObject *)

class tst_Interface : public QObject
{
    Q_OBJECT

private slots:
    void theTypesForToolsAreThoseOfTheModule();
    void theReferenceHasEveryMember_data();
    void theReferenceHasEveryMember();
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

QTEST_MAIN(tst_Interface)
#include "tst_interface.moc"
