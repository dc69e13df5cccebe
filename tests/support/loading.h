#ifndef LOADING_H
#define LOADING_H

#include <QString>

class QFileSystemModel;

/**
 * Makes @p model read the folder @p path and waits until its rows are there. The first folder of a
 * model becomes its root path, without which Qt 4.8 reads nothing.
 *
 * @return whether the rows came
 */
bool load(QFileSystemModel &model, const QString &path);

/** Whether the folder @p folder has a row @p name by now. */
bool isThere(const QFileSystemModel &model, const QString &folder, const QString &name);

#endif // LOADING_H
