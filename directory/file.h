#ifndef FILE_H
#define FILE_H

#include <QObject>
#include <QString>
#include <QtGlobal>

#include <QDeclarativeListProperty>

/**
 * One entry of the folder that a Directory lists, as QML sees it.
 *
 * Directory makes these and deletes them when it replaces its list. A setter that is given the
 * value it has already does nothing and emits nothing.
 */
class File : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString date READ date WRITE setDate NOTIFY dateChanged)
    Q_PROPERTY(QString size READ size NOTIFY sizeChanged)
    Q_PROPERTY(bool isDir READ isDir WRITE setIsDir NOTIFY isDirChanged)
    Q_PROPERTY(bool isSelected READ isSelected WRITE setIsSelected NOTIFY isSelectedChanged)

public:
    /** An empty entry: no name, no date, 0 bytes, neither a folder nor selected. */
    explicit File(QObject *parent = nullptr);

    /** Name of the file or folder, without a path. */
    QString name() const;

    /** Whether name() is @p name. Looks without taking a copy, which a long list notices. */
    bool isNamed(const QString &name) const;

    void setName(const QString &name);

    /** Modification date as it is to be shown. */
    QString date() const;
    void setDate(const QString &date);

    /**
     * Size as it is to be shown: a whole number, one blank and "bytes", "KB", "MB", "GB" or "TB" in
     * steps of 1024. The unit is chosen before rounding, so 1048575 bytes read "1024 KB":
     * deliberate, the screens were made for it. More than 1024 TB stay in TB.
     */
    QString size() const;

    /** Size in bytes. */
    qint64 sizeBytes() const;

    /** Size in whole KB (1024 bytes), truncated toward zero. */
    qint64 sizeKB() const;

    /** Size in whole MB (1024 KB), truncated toward zero. */
    qint64 sizeMB() const;

    /** Size in whole GB (1024 MB), truncated toward zero. */
    qint64 sizeGB() const;

    /** Sets the size in bytes. */
    void setSize(qint64 bytes);

    /** Whether the entry is a folder. */
    bool isDir() const;
    void setIsDir(const bool &isDir);

    /** Whether the entry belongs to the Directory's selection. */
    bool isSelected() const;
    void setIsSelected(const bool &isSelected);

signals:
    void nameChanged();
    void dateChanged();
    void sizeChanged();
    void isDirChanged();

    /** At times told while the Directory is locked: see there. */
    void isSelectedChanged();

private:
    QString m_name;
    QString m_date;
    qint64 m_size;
    bool m_isDir;
    bool m_isSelected;
};

// Known to the meta-type system by these names before the engine registers the type: that is what
// makes Directory's list of files readable from QML.
Q_DECLARE_METATYPE(File *)
Q_DECLARE_METATYPE(QDeclarativeListProperty<File>)

#endif // FILE_H
