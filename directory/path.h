#ifndef PATH_H
#define PATH_H

#include <QObject>
#include <QString>

#include <QDeclarativeListProperty>

/**
 * One step of a Directory's breadcrumb, as QML sees it.
 *
 * Qt Quick has a type named Path too: a screen that needs this one imports the module under a
 * qualifier.
 */
class Path : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(QString fullpath READ fullpath NOTIFY fullpathChanged)

public:
    /** An empty step. */
    explicit Path(QObject *parent = nullptr);

    /** Name of the folder, as the breadcrumb shows it. */
    QString name() const;

    /** Sets the name; emits nameChanged() if it differs. */
    void setName(const QString &name);

    /** Absolute path of the folder. */
    QString fullpath() const;

    /** Sets the absolute path; emits fullpathChanged() if it differs. */
    void setFullpath(const QString &fullpath);

signals:
    void nameChanged();
    void fullpathChanged();

private:
    QString m_name;
    QString m_fullpath;
};

// As for File: makes Directory's list of paths readable from QML.
Q_DECLARE_METATYPE(Path *)
Q_DECLARE_METATYPE(QDeclarativeListProperty<Path>)

#endif // PATH_H
