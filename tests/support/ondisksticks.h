#ifndef ONDISKSTICKS_H
#define ONDISKSTICKS_H

#include "directory/directory.h"

#include "support/diskstick.h"
#include "support/testdir.h"

#include <QTest>

// For tests of what is copied to sticks with each of the file systems that sticks come with.

/** Where the stick of such a test is and what it is mounted from. */
const char device[] = "/dev/sda1";
const char place[] = "/media/disk";

/** Adds the column "format" and a row per file system. */
inline void addFormats()
{
    QTest::addColumn<int>("format");
    QTest::newRow("ext4") << int(DiskStick::Ext4);
    QTest::newRow("exFAT") << int(DiskStick::ExFat);
    QTest::newRow("FAT") << int(DiskStick::Fat);
    QTest::newRow("NTFS") << int(DiskStick::Ntfs);
}

/** Makes the row's format a constant called "type"; skips a row whose format can't be made here. */
#define NEED_FORMAT                                                                                \
    QFETCH(int, format);                                                                           \
    const DiskStick::Format type = static_cast<DiskStick::Format>(format);                         \
    const QByteArray obstacle = DiskStick::obstacle(type);                                         \
    if (!obstacle.isEmpty())                                                                       \
    QSKIP(obstacle.constData(), SkipSingle)

/** A screen on the files of a folder, all of them selected. */
class Selection
{
public:
    explicit Selection(const TestDir &dir)
    {
        directory.setRoot(dir.path());
        directory.refresh();
        directory.selectAll();
    }

    QString copyToStick()
    {
        return directory.copySelectedTo(place);
    }

    Directory directory;
};

/** Contents of which no part is like another. */
inline QByteArray pattern(int bytes)
{
    QByteArray contents;
    for (int i = 0; i < bytes; ++i)
        contents.append(static_cast<char>(i * 7 + i / 251));
    return contents;
}

#endif // ONDISKSTICKS_H
