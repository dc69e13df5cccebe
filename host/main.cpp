#include "host/tour.h"
#include "host/viewer.h"

#include <QApplication>
#include <QDir>
#include <QStringList>
#include <QTextStream>

#include <cstdio>

namespace {
enum ExitCode { Fine = 0, Failed = 1, WrongUse = 2 };

const char usage[] =
    "Usage: filebrowser-viewer [--imports DIR] [--screens DIR] [--tour DIR]\n"
    "\n"
    "Shows the screens of the file browser in a window of the size of the instrument's display.\n"
    "\n"
    "  --imports DIR  folder with the module, by default the one of this build\n"
    "  --screens DIR  folder with Main.qml, by default the one of this build\n"
    "  --tour DIR     walk through the screens without help, write a picture of every step to "
    "DIR,\n"
    "                 and end with 1 when a step does not lead where it should; needs the command\n"
    "                 \"stick\" and the sample data of the private instrument\n"
    "  --help         show this text\n";

struct Options
{
    Options()
        : imports(builtFolder("imports"))
        , screens(builtFolder("screens"))
        , isHelp(false)
        , isUnderstood(true)
    {
    }

    static QString builtFolder(const QString &name)
    {
        return QDir::cleanPath(QApplication::applicationDirPath() + "/../" + name);
    }

    QString imports;
    QString screens;
    QString tour;
    bool isHelp;
    bool isUnderstood;
};

Options parse(QStringList arguments)
{
    Options options;
    arguments.removeFirst();
    while (!arguments.isEmpty()) {
        const QString option = arguments.takeFirst();
        if (option == "--help") {
            options.isHelp = true;
        } else if (option == "--imports" && !arguments.isEmpty()) {
            options.imports = arguments.takeFirst();
        } else if (option == "--screens" && !arguments.isEmpty()) {
            options.screens = arguments.takeFirst();
        } else if (option == "--tour" && !arguments.isEmpty()) {
            options.tour = arguments.takeFirst();
        } else {
            options.isUnderstood = false;
        }
    }
    return options;
}

void say(FILE *where, const QString &text)
{
    QTextStream(where) << text << '\n';
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
    QApplication application(argc, argv);
    const Options options = parse(QApplication::arguments());
    if (!options.isUnderstood) {
        fputs(usage, stderr);
        return WrongUse;
    }
    if (options.isHelp) {
        fputs(usage, stdout);
        return Fine;
    }

    Viewer::chooseFonts();
    Viewer viewer(options.imports);
    const QString problem = viewer.load(options.screens + "/Main.qml");
    if (!problem.isEmpty()) {
        say(stderr, "filebrowser-viewer: can't show the screens\n" + problem);
        return Failed;
    }
    viewer.show();
    return options.tour.isEmpty() ? QApplication::exec() : walk(viewer, options.tour);
}
