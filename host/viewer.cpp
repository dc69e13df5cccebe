#include "host/viewer.h"

#include "host/accountcheck.h"
#include "host/diskcheck.h"
#include "host/localenumbers.h"

#include <QApplication>
#include <QDeclarativeContext>
#include <QDeclarativeEngine>
#include <QDeclarativeError>
#include <QDeclarativeItem>
#include <QFont>
#include <QLocale>
#include <QStringList>
#include <QTimer>
#include <QTranslator>
#include <QUrl>
#include <QVariant>

namespace {
const int fontPixels = 16;

QTranslator &translator()
{
    static QTranslator only;
    return only;
}

bool loadTexts(const QString &language, const QString &folder)
{
    return translator().load("filebrowser_" + language, folder);
}
} // namespace

Viewer::Viewer(const QString &imports, const QSize &size)
{
    engine()->addImportPath(imports);
    rootContext()->setContextProperty("account", new AccountCheck(this));
    rootContext()->setContextProperty("disks", new DiskCheck(this));
    rootContext()->setContextProperty("numbers", new LocaleNumbers(this));
    QTimer *afterDrawing = new QTimer(this);
    afterDrawing->setSingleShot(true);
    rootContext()->setContextProperty("afterDrawing", afterDrawing);
    setResizeMode(SizeRootObjectToView);
    setWindowTitle("File browser");
    setFixedSize(size);
}

QString Viewer::load(const QString &path)
{
    setSource(QUrl::fromLocalFile(path));
    const QList<QDeclarativeError> found = errors();
    QStringList problems;
    for (const QDeclarativeError &error : found) {
        problems << error.toString();
    }
    const QObject *screen = rootObject();
    if (screen && screen->property("isBroken").toBool()) {
        problems << "a part of them could not be loaded, see above";
    }
    return problems.join("\n");
}

QImage Viewer::picture()
{
    QImage image(size(), QImage::Format_RGB32);
    QWidget::render(&image);
    return image;
}

void Viewer::chooseFonts()
{
    QFont::insertSubstitution("OpenSans", "Open Sans");
    QFont font("OpenSans");
    font.setPixelSize(fontPixels);
    QApplication::setFont(font);
}

// The direction last: Qt sets its own idea of it when texts are installed.
void Viewer::chooseLocale(const QLocale &locale, const QString &translations)
{
    QLocale numbers = locale;
    if (locale.language() == QLocale::C)
        numbers.setNumberOptions(QLocale::OmitGroupSeparator); // only Qt 4.8 has to be told
    QLocale::setDefault(numbers);
    QApplication::removeTranslator(&translator());
    if (loadTexts(locale.name(), translations) || loadTexts("en", translations))
        QApplication::installTranslator(&translator());
    QApplication::setLayoutDirection(locale.textDirection());
}
