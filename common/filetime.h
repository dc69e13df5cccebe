#ifndef FILETIME_H
#define FILETIME_H

#include <QtGlobal>

#include <ctime>

/** What fileTime() answers when a time is no date. */
extern const qint64 noTime;

/**
 * The time @p time of a file as QFileInfo of the same Qt has it, in milliseconds since 1970, or
 * noTime. The zero stands for a file that could not be looked at, as it does there.
 *
 * Qt 4.8 counts the seconds in 32 bits without a sign: a file of 1960 is one of 2096. To Qt 5 the
 * very beginning of 1970 is no date.
 */
qint64 fileTime(const timespec &time);

#endif // FILETIME_H
