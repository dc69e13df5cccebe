#ifndef TESTDIR_H
#define TESTDIR_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ctime>

/**
 * A folder that exists for the length of a test and is removed with all its contents.
 * Everything that can't be done stops the test program, so that tests need not look.
 */
class TestDir
{
public:
    /** A new empty folder below the temporary folder, readable and writable by everybody. */
    TestDir();

    /** A new empty folder @p path, with missing parents. */
    explicit TestDir(const QString &path);

    ~TestDir();

    /** Absolute path of the folder, without a separator at the end. */
    QString path() const
    {
        return m_path;
    }

    /** Absolute path of the entry @p name. */
    QString path(const QString &name) const;

    /** Writes the file @p name with @p contents; its modification time is now or @p time (seconds
     * since 1970). */
    void file(const QString &name, const QByteArray &contents = QByteArray(),
              time_t time = 0) const;

    /** Writes the file @p name with @p bytes bytes. */
    void file(const QString &name, qint64 bytes, time_t time = 0) const;

    /** Appends @p bytes bytes to the file @p name, as whoever writes a log does. */
    void grow(const QString &name, int bytes) const;

    /** Makes the folder @p name, with missing parents. */
    void folder(const QString &name) const;

    /** Contents of the file @p name; a null array when it can't be read. */
    QByteArray contents(const QString &name) const;

    /** Names of all entries but "." and "..", hidden ones too, sorted by their characters. */
    QStringList names() const;

private:
    Q_DISABLE_COPY(TestDir)

    QString m_path;
};

/** Removes @p path with all its contents, without following links. Nothing there is fine. */
void removeTree(const QString &path);

/**
 * What stands below @p path, hidden entries too: a line each with name, owner, group, mode, size,
 * modification time and, of files up to 64 KB, the contents. Two equal answers: nothing changed.
 */
QStringList treeOf(const QString &path);

/** Sets access and modification time of @p path, in seconds since 1970. */
void setTimes(const QString &path, time_t access, time_t modification);

#endif // TESTDIR_H
