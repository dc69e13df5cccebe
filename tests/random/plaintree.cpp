#include "random/plaintree.h"

#include <QDir>
#include <QFileInfo>

PlainTree::PlainTree()
    : moves(0)
    , folder(QDir::currentPath())
    , isFilterOn(false)
    , opensFolders(false)
    , showsRoot(true)
    , foldersFirst(true)
{
}

void PlainTree::setRoot(const QString &path)
{
    if (!QDir(path).exists())
        return;
    root = path;
    setCurrentPath(path);
}

void PlainTree::setCurrentPath(const QString &path)
{
    if (!QDir(path).exists())
        return;
    viewRoot = path;
    ++moves;
    setFolder(path);
    setFile(QString());
    row = QString();
}

void PlainTree::touch(const QString &path)
{
    row = current = path;
    if (QFileInfo(path).isFile()) {
        setFolder(QFileInfo(path).path());
        setFile(QFileInfo(path).fileName());
    } else if (opensFolders) {
        setCurrentPath(path);
    } else {
        setFolder(path);
        setFile(QString());
    }
    if (whenTouched)
        whenTouched();
}

void PlainTree::selectNothing()
{
    row = current = QString();
}

void PlainTree::setWords(const QString &text)
{
    QStringList parts = text.split(',');
    parts.removeAll(QString());
    words = parts.join(",");
    if (isFilterOn)
        filter();
}

void PlainTree::forgetWords()
{
    words = QString();
}

void PlainTree::setFilterOn(bool isOn)
{
    if (isOn == isFilterOn)
        return;
    isFilterOn = isOn;
    patterns.clear();
    if (isOn)
        filter();
}

bool PlainTree::shows(const QString &name) const
{
    for (const QString &pattern : patterns) {
        if (name.contains(QString(pattern).remove('*'), Qt::CaseInsensitive))
            return true;
    }
    return patterns.isEmpty();
}

void PlainTree::setFolder(const QString &path)
{
    if (path == folder)
        return;
    folder = path;
    selectedFile = QString();
    if (whenMoved)
        whenMoved();
}

void PlainTree::setFile(const QString &name)
{
    if (name == file)
        return;
    file = selectedFile = name;
}

void PlainTree::filter()
{
    patterns.clear();
    for (const QString &word : words.split(',')) {
        if (!word.isEmpty())
            patterns.append('*' + word + '*');
    }
}
