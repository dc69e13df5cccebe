#ifndef DISORDER_H
#define DISORDER_H

#include <QString>

#include <string>

/** How many names there are. */
extern const int nameCount;

/** Where the list copies to. */
extern const QString destination;

/** One of a few names that get in each other's way; any number will do. The last two are folders'.
 */
QString nameOf(int number);

/** @p text as the library that makes up the steps takes it. */
std::string inWords(const QString &text);

/** Makes the file or folder @p name in @p folder, or removes it when it is there. */
void meddle(const QString &folder, const QString &name, int size);

/** All that is put off happens, for objects that are gone too. */
void letTimersFire();

#endif // DISORDER_H
