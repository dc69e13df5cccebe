// The selection of a Directory: kept by full path, so that it survives listing and navigation.

#include "directory/directory.h"

#include <QDebug>
#include <QMutexLocker>

QString Directory::selectedFiles() const
{
    return QStringList(m_selection.values()).join(QLatin1String(" "));
}

qint64 Directory::selectedFilesKB() const
{
    return m_selectedFilesKB;
}

void Directory::setSelectedFilesKB(qint64 kb)
{
    if (kb == m_selectedFilesKB)
        return;
    m_selectedFilesKB = kb;
    emit selectedFilesKBChanged();
}

void Directory::setIsSelectedAt(int index, bool isSelected)
{
    if (index < 0 || index >= m_files.size())
        return;
    File *file = m_files.at(index);
    file->setIsSelected(isSelected);
    if (m_files.value(index) != file)
        return; // a handler of the mark had the folder listed anew, and the item is gone
    if (isSelected)
        addSelectedFile(file);
    else
        removeSelectedFile(file);
}

void Directory::selectAll()
{
    // By index: whoever hears of the change may have the folder listed anew, with other items.
    for (int i = 0; i < m_files.size(); ++i) {
        File *file = m_files.at(i);
        if (file->isSelected() || file->isDir())
            continue;
        file->setIsSelected(true);
        if (m_files.value(i) == file)
            addSelectedFile(file);
    }
}

void Directory::clearSelectedFiles()
{
    qDebug() << "Directory::clearSelectedFiles()";
    m_selection.clear();
    m_selectedFilesKB = 0;
    updateSelectedFiles();
    emit selectedFilesChanged();
}

void Directory::clearAll()
{
    clearSelectedFiles();
}

void Directory::updateSelectedFiles()
{
    QMutexLocker locker(&m_mutex);
    const bool any = !m_selection.isEmpty(); // after clearing there is no path worth composing
    for (File *file : m_files)
        file->setIsSelected(any && m_selection.contains(selectionKey(file)));
}

void Directory::updateSelectedFilesKB()
{
    qDebug() << "Directory::updateSelectedFilesKB () - KB = " << m_selectedFilesKB;
}

QString Directory::selectionKey(const File *file) const
{
    return m_currentPath + QDir::separator() + file->name();
}

// An entry that is selected already counts twice from then on: deliberate, screens select with a
// toggle.
void Directory::addSelectedFile(File *file)
{
    m_selection.insert(selectionKey(file), file->name());
    m_selectedFilesKB += file->sizeKB();
    emit selectedFilesChanged();
}

void Directory::removeSelectedFile(File *file)
{
    if (m_selection.remove(selectionKey(file)) == 0)
        return;
    m_selectedFilesKB -= file->sizeKB();
    emit selectedFilesChanged();
}
