#include "tree/newsizes.h"

#include <QFileInfo>
#include <QFileSystemModel>
#include <QList>
#include <QPair>

namespace {
typedef QList<QPair<QString, QFileInfo>> Updates;

Updates changedFiles(const QFileSystemModel &model, const QModelIndex &folder)
{
    // Two infos that spell the path differently are compared by size.
    const QString path = model.filePath(folder) + QLatin1String("/./");
    Updates updates;
    for (int row = 0; row < model.rowCount(folder); ++row) {
        const QModelIndex file = model.index(row, 0, folder);
        if (model.isDir(file))
            continue;
        if (model.canFetchMore(file)) { // not watched yet
            // Asked for the first time later, the model would read the file anew, tacitly.
            model.permissions(file);
            continue;
        }
        const QString name = model.fileName(file);
        const QFileInfo info(path + name);
        if (info.size() != model.size(file))
            updates.append(qMakePair(name, info));
    }
    return updates;
}
} // namespace

void takeNewSizes(QFileSystemModel *model, const QModelIndex &folder)
{
    const Updates updates = changedFiles(*model, folder);
    if (updates.isEmpty())
        return;
    // What the model's own thread reports to. There will be no other version of this Qt.
    QMetaObject::invokeMethod(model, "_q_fileSystemChanged",
                              Q_ARG(QString, model->filePath(folder)),
                              QArgument<Updates>("QList<QPair<QString,QFileInfo> >", updates));
}
