#ifndef DISKCHECK_H
#define DISKCHECK_H

#include <QObject>
#include <QString>

/**
 * Tells the screens what keeps a stick from being written to: the module only says that a copy
 * failed. The user-interface process offers it as the context property "disks".
 */
class DiskCheck : public QObject
{
    Q_OBJECT

public:
    explicit DiskCheck(QObject *parent = nullptr);

    /** Whether the file system that @p path lies on refuses every change. False for a path that
     * can't be looked at. */
    Q_INVOKABLE bool isWriteProtected(const QString &path) const;
};

#endif // DISKCHECK_H
