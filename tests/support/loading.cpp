#include "support/loading.h"

#include "support/waiting.h"

#include <QFileSystemModel>

LoadedPaths::LoadedPaths(QFileSystemModel &model)
    : m_spy(&model, SIGNAL(directoryLoaded(QString)))
{
}

bool LoadedPaths::wait(const QString &path) const
{
    return waitUntil([&] { return contain(path); });
}

bool LoadedPaths::contain(const QString &path) const
{
    for (int i = 0; i < m_spy.count(); ++i) {
        if (m_spy.at(i).first().toString() == path)
            return true;
    }
    return false;
}

bool load(QFileSystemModel &model, const QString &path)
{
    const LoadedPaths loaded(model);
    if (model.rootPath().isEmpty() || model.rootPath() == QLatin1String("."))
        model.setRootPath(path);
    else if (model.canFetchMore(model.index(path)))
        model.fetchMore(model.index(path));
    else
        return true;
    return loaded.wait(path);
}

bool isThere(const QFileSystemModel &model, const QString &folder, const QString &name)
{
    const QModelIndex parent = model.index(folder);
    for (int row = 0; row < model.rowCount(parent); ++row) {
        if (model.index(row, 0, parent).data().toString() == name)
            return true;
    }
    return false;
}

bool filesAreWatched()
{
    return QT_VERSION < 0x060500;
}
