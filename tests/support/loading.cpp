#include "support/loading.h"

#include "support/waiting.h"

#include <QFileSystemModel>
#include <QSignalSpy>

namespace {
bool names(const QSignalSpy &loaded, const QString &path)
{
    for (int i = 0; i < loaded.count(); ++i) {
        if (loaded.at(i).first().toString() == path)
            return true;
    }
    return false;
}
} // namespace

bool load(QFileSystemModel &model, const QString &path)
{
    const QSignalSpy loaded(&model, SIGNAL(directoryLoaded(QString)));
    if (model.rootPath().isEmpty() || model.rootPath() == QLatin1String("."))
        model.setRootPath(path);
    else if (model.canFetchMore(model.index(path)))
        model.fetchMore(model.index(path));
    else
        return true;
    return waitUntil([&] { return names(loaded, path); });
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
