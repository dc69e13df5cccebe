#ifndef WORLD_H
#define WORLD_H

#include "faults/operation.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/** The disk that the operations work on: three files in the logs and two folders to copy to. */
namespace World {
/** Builds it anew, whatever a process that died has left. */
void build();

/** Names of the files in the logs, in the order of their paths. */
QStringList fileNames();

/** What the file @p name in the logs holds. */
QByteArray contentsOf(const QString &name);

/** Where copies go to. */
QString destination();

/** Where copies go to afterwards. */
QString secondDestination();

/** Complains about each of @p names in the logs that is not what it was, to the byte. */
void expectSources(Complaints *complaints, const QStringList &names = fileNames());

/** Complains about each file in @p folder that is incomplete under the name that it is to keep. */
void expectNothingIncomplete(Complaints *complaints, const QString &folder);

/** Names of the files that are not in @p folder, as an operation tells them. */
QString missingIn(const QString &folder);

/** Complains about names in @p folder beyond those of the files. */
void expectNothingElse(Complaints *complaints, const QString &folder);

/** Complains about copies in @p folder without the times of their sources. */
void expectTimes(Complaints *complaints, const QString &folder);

bool isThere(const QString &path);
} // namespace World

#endif // WORLD_H
