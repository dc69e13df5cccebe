#include "host/viewer.h"

#include "host/accountcheck.h"

#include <QApplication>
#include <QDeclarativeContext>
#include <QDeclarativeEngine>
#include <QDeclarativeError>
#include <QDeclarativeItem>
#include <QFont>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QVariant>

namespace {
const QSize screenSize(800, 480); // the instrument's display
const int fontPixels = 16;
const int drawingMs = 100; // what is shown now is on the display by then
} // namespace

Viewer::Viewer(const QString &imports)
{
    engine()->addImportPath(imports);
    rootContext()->setContextProperty("account", new AccountCheck(this));
    QTimer *afterDrawing = new QTimer(this);
    afterDrawing->setSingleShot(true);
    afterDrawing->setInterval(drawingMs);
    rootContext()->setContextProperty("afterDrawing", afterDrawing);
    setResizeMode(SizeRootObjectToView);
    setWindowTitle("File browser");
    setFixedSize(screenSize);
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
