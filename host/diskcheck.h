#ifndef DISKCHECK_H
#define DISKCHECK_H

#include <QObject>
#include <QString>

/**
 * Tells the screens what the module does not: what keeps a stick from being written to, and whether
 * a folder is empty without a lock that a Timer of Qt 4.8 could run into. The user-interface
 * process offers it as the context property "disks".
 */
class DiskCheck : public QObject
{
    Q_OBJECT

public:
    explicit DiskCheck(QObject *parent = nullptr);

    /** Whether the file system that @p path lies on refuses every change. False for a path that
     * can't be looked at. */
    Q_INVOKABLE bool isWriteProtected(const QString &path) const;

    /** Whether the folder @p path has none of the entries that lists and trees show. */
    Q_INVOKABLE bool isEmpty(const QString &path) const;
};

#endif // DISKCHECK_H
