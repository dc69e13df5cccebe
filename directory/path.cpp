#include "directory/path.h"

Path::Path(QObject *parent)
    : QObject(parent)
{
}

QString Path::name() const
{
    return m_name;
}

void Path::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
}

QString Path::fullpath() const
{
    return m_fullpath;
}

void Path::setFullpath(const QString &fullpath)
{
    if (fullpath == m_fullpath)
        return;
    m_fullpath = fullpath;
    emit fullpathChanged();
}
