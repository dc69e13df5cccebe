#ifndef MOUNTTABLE_H
#define MOUNTTABLE_H

#include <QString>

class QIODevice;

/** What a mount table says about one stick. */
struct MountedStick
{
    bool found = false;

    /** Mount point of the stick; empty, but not null, when it isn't mounted. */
    QString path = QLatin1String("");
};

/** What a mount table says about the two sticks that the instrument knows. */
struct MountedSticks
{
    MountedStick a;
    MountedStick b;
};

/**
 * Looks for the sticks in a table in the format of /proc/mounts: stick A is the first line that
 * starts with "/dev/sda", stick B the first that starts with "/dev/sdb", the bare device as well as
 * any of its partitions. A line without a second field is passed over.
 *
 * In a mount point only the kernel's "\040" is decoded, to a blank. Its other escapes (tab,
 * newline, backslash) deliberately stay as they stand in the table.
 *
 * Writes a debug line for each stick found, in the order of the table.
 *
 * @param table open for reading in text mode, in the encoding of the locale; read up to its end
 */
MountedSticks readMountTable(QIODevice *table);

#endif // MOUNTTABLE_H
