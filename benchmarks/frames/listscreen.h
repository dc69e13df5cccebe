#ifndef LISTSCREEN_H
#define LISTSCREEN_H

#include "host/viewer.h"
#include "host/visitor.h"
#include "support/glass.h"

#include <QRectF>
#include <QString>
#include <QStringList>

#include <vector>

/** A screen with a list of the entries of a folder, and a finger on it. */
class ListScreen
{
public:
    enum Order { byDate, byName };

    /** Shows the QML file @p screen with the module below @p imports. */
    ListScreen(Glass *glass, const QString &imports, const QString &screen);
    virtual ~ListScreen();

    /** Shows the folder @p top, newest first, whatever is shown. */
    virtual void showTop(const QString &top) = 0;

    /** Asks for another order, as a finger does. */
    virtual void touchOrder(Order order) = 0;

    /** Makes the window the one whose pictures count. */
    void watch();

    /** Whether it shows a folder of @p count entries. */
    bool shows(int count) const;

    /** Touches the folder @p name. */
    void touchFolder(const QString &name);

    /** Touches the mark of the entry @p name. */
    void touchMark(const QString &name);

    /** Waits for the picture of a list of the entries @p names, and says whether it came. */
    bool waitForRows(const QStringList &names);

    /** Waits for the picture that shows whether the entry @p name is marked. */
    bool waitForMark(const QString &name, bool isMarked);

    /** Flicks the list from its beginning, forth and back. The seconds of work for each picture. */
    std::vector<double> flick();

    /** Whether the picture on the glass is the one that stays. */
    bool isAtRest();

    /** Lets the event loop run until nothing is left to do. */
    void rest();

protected:
    QStringList shownNames() const;

    Glass *m_glass;
    Viewer m_viewer;
    Visitor m_visitor;
};

/** The list screen of the viewer. */
class OurList : public ListScreen
{
public:
    OurList(Glass *glass, const QString &imports);

    void showTop(const QString &top) override;
    void touchOrder(Order order) override;
};

/** The same rows over Qt.labs.folderlistmodel. */
class PeersList : public ListScreen
{
public:
    PeersList(Glass *glass, const QString &imports);

    void showTop(const QString &top) override;
    void touchOrder(Order order) override;
};

#endif // LISTSCREEN_H
