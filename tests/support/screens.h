#ifndef SCREENS_H
#define SCREENS_H

#include "host/shownitems.h"
#include "host/viewer.h"
#include "host/visitor.h"
#include "support/account.h"
#include "support/testdir.h"
#include "support/waiting.h"

#include <QCoreApplication>
#include <QDeclarativeItem>
#include <QEvent>
#include <QFile>
#include <QLocale>
#include <QMetaObject>
#include <QPointer>
#include <QScopedPointer>
#include <QSize>
#include <QStringList>
#include <QVariant>

/** A data folder that belongs to the account, as on an instrument. Removed with the object. */
class DataFolder
{
public:
    /** Makes the folder @p name below the account's home. */
    explicit DataFolder(const QString &name)
        : m_user(new EffectiveUser(ostanUid))
        , m_dir("/home/ostan/" + name)
    {
        m_user.reset();
    }

    const TestDir *operator->() const
    {
        return &m_dir;
    }

private:
    QScopedPointer<EffectiveUser> m_user; // only while the folder is made
    TestDir m_dir;
};

/** The viewer with the screens and the module of this build, and somebody in front of it. */
class Screens
{
public:
    explicit Screens(const QLocale &locale = QLocale::c(), const QSize &size = QSize(800, 480))
        : m_viewer(imports(), size)
        , m_visitor(m_viewer)
    {
        // Whatever the machine speaks.
        Viewer::chooseLocale(locale, imports() + "/../screens/translations");
        m_problem = m_viewer.load(imports() + "/../screens/Main.qml");
        m_viewer.show();
    }

    ~Screens()
    {
        // What a list has let go of outlives its view on Qt 4.8, and would be deleted when the
        // engine is gone that it needs for that.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /** Why nothing is shown; empty when something is. */
    QString problem() const
    {
        return m_problem;
    }

    Visitor *operator->()
    {
        return &m_visitor;
    }

    /** The rows of the list from top to bottom, when they are @p expected or else never will be. */
    QStringList rowsOnce(const QStringList &expected)
    {
        waitUntil([&] { return m_visitor.names("row:") == expected; });
        return m_visitor.names("row:");
    }

    /** Everything that is shown, from back to front. */
    QList<ShownItem> items() const
    {
        return shownItemsLike(m_viewer, QString());
    }

    /** The names that a dialog lists from top to bottom, when they are @p expected or else never
     * will be. */
    QStringList namedOnce(const QStringList &expected)
    {
        waitUntil([&] { return m_visitor.names("named:") == expected; });
        return m_visitor.names("named:");
    }

    /** Lists the folders of all lists anew, as an operation does a while after it. */
    void listAnew()
    {
        QList<QPointer<QObject>> directories; // listing may delete what a view has made
        const QList<QObject *> children = m_viewer.rootObject()->findChildren<QObject *>();
        for (QObject *child : children) {
            if (child->inherits("Directory")) {
                directories << child;
            }
        }
        for (const QPointer<QObject> &directory : directories) {
            QMetaObject::invokeMethod(directory, "updateDirectory");
        }
    }

    /** The text of the item @p name that is shown now. */
    QString text(const QString &name) const
    {
        return m_visitor.property(name, "text").toString();
    }

    /** Where the upper edge of the item @p name is in the window. */
    qreal top(const QString &name) const
    {
        return shownItem(m_viewer, name).place.top();
    }

    /** What the item @p name looks like now, with what lies on top of it. */
    QImage picture(const QString &name)
    {
        return m_viewer.picture().copy(shownItem(m_viewer, name).place.toRect());
    }

private:
    static QString imports()
    {
        return QFile::decodeName(qgetenv("FILEBROWSER_IMPORTS"));
    }

    Viewer m_viewer;
    Visitor m_visitor;
    QString m_problem;
};

#endif // SCREENS_H
