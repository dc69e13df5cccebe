// The operations of a Directory that change the file system. The mutex is taken first and released
// last, so that it is free again after an exception, with the user id restored before.

#include "directory/directory.h"

#include "common/filecopy.h"
#include "common/privilegedropguard.h"

#include <QDebug>
#include <QFile>
#include <QMutexLocker>
#include <QTimer>

namespace {
const int refreshDelayMs = 200;
const int clearSelectionDelayMs = 200;
} // namespace

bool Directory::exists(QString name)
{
    return m_dir.exists(name);
}

bool Directory::newFile(QString name)
{
    QMutexLocker locker(&m_mutex);
    PrivilegeDropGuard guard;
    if (m_dir.exists(name))
        return false;
    QFile file(name);
    // Appending leaves a file as it is that the look-up missed because the disk failed it.
    const bool made = file.open(QIODevice::WriteOnly | QIODevice::Append);
    file.close();
    scheduleRefresh();
    return made;
}

bool Directory::newDirectory(QString name)
{
    QMutexLocker locker(&m_mutex);
    PrivilegeDropGuard guard;
    if (m_dir.exists(name))
        return false;
    const bool made = m_dir.mkdir(name);
    scheduleRefresh();
    return made;
}

bool Directory::deleteFile(int index)
{
    QMutexLocker locker(&m_mutex);
    if (!isEntry(index))
        return false;
    PrivilegeDropGuard guard;
    const FolderEntry &entry = m_listing.entries().at(index);
    const bool removed = entry.isDir ? m_dir.rmdir(entry.name) : m_dir.remove(entry.name);
    scheduleRefresh();
    return removed;
}

bool Directory::renameFile(int index, QString name)
{
    QMutexLocker locker(&m_mutex);
    PrivilegeDropGuard guard;
    if (!isEntry(index))
        return false;
    const bool renamed = m_dir.rename(m_listing.entries().at(index).name, name);
    scheduleRefresh();
    return renamed;
}

QString Directory::copySelectedTo(QString dest)
{
    QMutexLocker locker(&m_mutex);
    PrivilegeDropGuard guard;
    QStringList failed;
    for (auto selected = m_selection.constBegin(); selected != m_selection.constEnd(); ++selected) {
        const QString destination = dest + QDir::separator() + selected.value();
        qDebug() << "DEBUG: Directory::copySelectedTo() " << selected.key() << " to dest "
                 << destination;
        if (!copyFileWithTimes(selected.key(), destination))
            failed.append(selected.value());
    }
    QTimer::singleShot(clearSelectionDelayMs, this, SLOT(clearSelectedFiles()));
    return failed.join(QLatin1String(" "));
}

void Directory::scheduleRefresh()
{
    QTimer::singleShot(refreshDelayMs, this, SIGNAL(updateDirectory()));
}
