#ifndef NEWSIZES_H
#define NEWSIZES_H

class QFileSystemModel;
class QModelIndex;

/**
 * Makes the model of Qt 4.8 take the sizes that its watched files in @p folder have by now. Goes
 * through all rows of the folder and emits dataChanged() for those that differ. Call it whenever
 * the folder has been loaded, before its files are watched for the first time too.
 *
 * That model hears that a file was written to, looks at it, and then holds what it finds for what
 * it knows: to it two looks at the same path are equal.
 */
void takeNewSizes(QFileSystemModel *model, const QModelIndex &folder);

#endif // NEWSIZES_H
