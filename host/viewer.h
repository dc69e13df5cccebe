#ifndef VIEWER_H
#define VIEWER_H

#include <QDeclarativeView>
#include <QImage>
#include <QString>

/**
 * The window that stands in for the instrument's user-interface process: a declarative engine that
 * finds the module by its import path, as the instrument's does, and shows the screens.
 *
 * It gives them two context properties: "account", an AccountCheck, and "afterDrawing", a QTimer
 * for one turn of the event loop after what is shown at its start() has been drawn.
 */
class Viewer : public QDeclarativeView
{
public:
    /** Folder below which the module FileBrowser stands. */
    explicit Viewer(const QString &imports);

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
};

#endif // VIEWER_H
