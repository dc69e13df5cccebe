#include "common/version.h"
#include "host/tour.h"
#include "host/viewer.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSize>
#include <QStringList>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace {
enum ExitCode { Fine = 0, Failed = 1, WrongUse = 2 };

const int readingMs = 1000; // a tree reads its folders in the background meanwhile

const char usage[] =
    "Usage: filebrowser-viewer [--imports DIR] [--screens PATH] [--size WxH] [--locale NAME]\n"
    "                          [--picture FILE | --tour DIR]\n"
    "       filebrowser-viewer --version | --help\n"
    "\n"
    "Shows the screens of the file browser in a window of the size of the instrument's display.\n"
    "\n"
    "  --imports DIR  folder with the module, by default the one of this build or of Qt\n"
    "  --screens PATH folder with Main.qml, or any QML file, by default the example screens\n"
    "  --size WxH     size of the window in pixels, by default 800x480\n"
    "  --locale NAME  language and numbers, as in de_DE, by default the system's\n"
    "  --picture FILE write a picture (PNG) of the screens to FILE one second after they are "
    "shown,\n"
    "                 and end\n"
    "  --tour DIR     walk through the screens without help, write a picture of every step to "
    "DIR,\n"
    "                 and end with 1 when a step does not lead where it should; needs the command\n"
    "                 \"stick\" and the sample data of the private instrument\n"
    "  --version      show what this build is and what it was made from\n"
    "  --help         show this text\n";

struct Options
{
    Options()
        : imports(beside("imports"))
        , screens(beside("screens"))
        , size(800, 480)
        , isUnderstood(true)
    {
        if (!QFileInfo(screens).isDir()) // not in a build folder: installed
            screens = beside("share/filebrowser-viewer/screens");
    }

    // A folder that was made with the program.
    static QString beside(const QString &name)
    {
        return QDir::cleanPath(QApplication::applicationDirPath() + "/../" + name);
    }

    QString imports;
    QString screens;
    QString picture;
    QString tour;
    QSize size;
    QLocale locale;
    bool isUnderstood;
};

// Invalid unless the text is two numbers with an "x" between them.
QSize sizeFrom(const QString &text)
{
    bool isWidth = false;
    bool isHeight = false;
    const QSize size(text.section('x', 0, 0).toInt(&isWidth),
                     text.section('x', 1).toInt(&isHeight));
    return isWidth && isHeight ? size : QSize();
}

Options parse(QStringList arguments)
{
    Options options;
    arguments.removeFirst();
    while (!arguments.isEmpty()) {
        const QString option = arguments.takeFirst();
        if (option == "--imports" && !arguments.isEmpty()) {
            options.imports = arguments.takeFirst();
        } else if (option == "--screens" && !arguments.isEmpty()) {
            options.screens = arguments.takeFirst();
        } else if (option == "--picture" && !arguments.isEmpty()) {
            options.picture = arguments.takeFirst();
        } else if (option == "--size" && !arguments.isEmpty()) {
            options.size = sizeFrom(arguments.takeFirst());
            options.isUnderstood = options.isUnderstood && options.size.isValid();
        } else if (option == "--locale" && !arguments.isEmpty()) {
            options.locale = QLocale(arguments.takeFirst());
        } else if (option == "--tour" && !arguments.isEmpty()) {
            options.tour = arguments.takeFirst();
        } else {
            options.isUnderstood = false;
        }
    }
    return options;
}

bool isAmong(const char *option, int argc, char *argv[])
{
    return std::any_of(argv + 1, argv + argc,
                       [option](const char *argument) { return qstrcmp(argument, option) == 0; });
}

void say(FILE *where, const QString &text)
{
    QTextStream(where) << text << '\n';
}

QString mainFile(const QString &screens)
{
    return QFileInfo(screens).isDir() ? screens + "/Main.qml" : screens;
}

int takePicture(Viewer &viewer, const QString &path)
{
    QTimer::singleShot(readingMs, QApplication::instance(), SLOT(quit()));
    QApplication::exec();
    if (!viewer.picture().save(path, "PNG")) {
        say(stderr, "filebrowser-viewer: can't write the picture " + path);
        return Failed;
    }
    return Fine;
}

int walk(Viewer &viewer, const QString &folder)
{
    Tour tour(viewer, folder);
    const QString problem = tour.walk();
    if (!problem.isEmpty()) {
        say(stderr, "filebrowser-viewer: the tour ended early: " + problem);
        return Failed;
    }
    return Fine;
}
} // namespace

int main(int argc, char *argv[])
{
    // Before there is an application, which would need a display.
    if (isAmong("--help", argc, argv)) {
        fputs(usage, stdout);
        return Fine;
    }
    if (isAmong("--version", argc, argv)) {
        puts(versionText);
        return Fine;
    }

    QApplication application(argc, argv);
    const Options options = parse(QApplication::arguments());
    if (!options.isUnderstood) {
        fputs(usage, stderr);
        return WrongUse;
    }

    Viewer::chooseFonts();
    const QString screens = mainFile(options.screens);
    Viewer::chooseLocale(options.locale, QFileInfo(screens).path() + "/translations");
    Viewer viewer(options.imports, options.size);
    const QString problem = viewer.load(screens);
    if (!problem.isEmpty()) {
        say(stderr, "filebrowser-viewer: can't show the screens\n" + problem);
        return Failed;
    }
    viewer.show();
    if (!options.picture.isEmpty()) {
        return takePicture(viewer, options.picture);
    }
    return options.tour.isEmpty() ? QApplication::exec() : walk(viewer, options.tour);
}
