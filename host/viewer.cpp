#include "host/viewer.h"

#include "host/accountcheck.h"

#include <QApplication>
#include <QDeclarativeContext>
#include <QDeclarativeEngine>
#include <QDeclarativeError>
#include <QFont>
#include <QStringList>
#include <QUrl>

namespace {
const QSize screenSize(800, 480); // the instrument's display
const int fontPixels = 16;
} // namespace

Viewer::Viewer(const QString &imports)
{
    engine()->addImportPath(imports);
    rootContext()->setContextProperty("account", new AccountCheck(this));
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
