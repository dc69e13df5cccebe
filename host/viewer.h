#ifndef VIEWER_H
#define VIEWER_H

#include <QDeclarativeView>
#include <QImage>
#include <QSize>
#include <QString>

class QLocale;

/**
 * The window that stands in for the instrument's user-interface process: a declarative engine that
 * finds the module by its import path, as the instrument's does, and shows the screens.
 *
 * It gives them context properties: "account", an AccountCheck; "disks", a DiskCheck; "numbers",
 * LocaleNumbers; and "afterDrawing", a single-shot QTimer for what has to wait until the screen has
 * been drawn: they set its interval.
 */
class Viewer : public QDeclarativeView
{
public:
    /** Folder below which the module FileBrowser stands, and the size of the display. */
    explicit Viewer(const QString &imports, const QSize &size = QSize(800, 480));

    /**
     * Loads the screen in the file @p path.
     *
     * @return empty when it is shown, else what is wrong with it or with the module, for people
     */
    QString load(const QString &path);

    /** What it shows. */
    QImage picture();

    /**
     * Gives the process the fonts that the screens and the module ask for: "OpenSans" is what the
     * instrument calls the family that others know as "Open Sans".
     */
    static void chooseFonts();

    /**
     * Makes @p locale the one of the process, for screens that are loaded from now on: their texts
     * come from a file in the folder @p translations, else they are English; their numbers, and the
     * side where they begin, from the locale itself.
     */
    static void chooseLocale(const QLocale &locale, const QString &translations);
};

#endif // VIEWER_H
