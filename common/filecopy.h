#ifndef FILECOPY_H
#define FILECOPY_H

#include <QString>

/**
 * Copies the file @p source to @p destination and gives the copy the source's access and
 * modification times, in whole seconds.
 *
 * An existing destination is left untouched and a folder is not copied: both are failures. A copy
 * whose times could not be set counts as copied; a debug line says so.
 *
 * @return whether the file was copied
 */
bool copyFileWithTimes(const QString &source, const QString &destination);

#endif // FILECOPY_H
