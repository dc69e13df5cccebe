#ifndef TOUR_H
#define TOUR_H

#include "host/viewer.h"
#include "host/visitor.h"

#include <QPoint>
#include <QString>

/**
 * Walks through a typical request as a user would, with a finger on the screen, and takes a picture
 * of every step. Needs the sample data and the command "stick" of the private instrument.
 */
class Tour
{
public:
    /** @p folder takes the pictures and has to exist. */
    Tour(Viewer &viewer, const QString &folder);

    /**
     * Walks to the end or to the first step that does not lead where it should.
     *
     * @return empty at the end, else which step failed and how
     */
    QString walk();

private:
    Q_DISABLE_COPY(Tour)

    struct Step;
    static const Step steps[];

    bool take(const Step &step);
    bool tapTree(QPoint place);
    bool savePicture(const QString &name);

    Viewer &m_viewer;
    Visitor m_visitor;
    QString m_folder;
    int m_pictures;
};

#endif // TOUR_H
