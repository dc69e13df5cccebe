#ifndef LOADING_H
#define LOADING_H

#include <QSignalSpy>
#include <QString>

class QFileSystemModel;

/** What a model announces as loaded, from the making of this object on. */
class LoadedPaths
{
public:
    explicit LoadedPaths(QFileSystemModel &model);

    /** Waits until @p path has been announced. @return whether it was */
    bool wait(const QString &path) const;

private:
    bool contain(const QString &path) const;

    const QSignalSpy m_spy;
};

/**
 * Makes @p model read the folder @p path and waits until its rows are there. The first folder of a
 * model becomes its root path, without which Qt 4.8 reads nothing.
 *
 * @return whether the rows came
 */
bool load(QFileSystemModel &model, const QString &path);

/** Whether files are watched one by one; newer Qts can't be trusted with it. */
bool filesAreWatched();

/** Whether the folder @p folder has a row @p name by now. */
bool isThere(const QFileSystemModel &model, const QString &folder, const QString &name);

#endif // LOADING_H
