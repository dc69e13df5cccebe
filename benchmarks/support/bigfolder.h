#ifndef BIGFOLDER_H
#define BIGFOLDER_H

#include <QDir>
#include <QString>
#include <QStringList>

/**
 * A folder of many entries like an instrument's log folder: files whose names, sizes and times
 * differ, in no order, and one folder in a hundred.
 *
 * It stays when the object goes: the private instrument that it lies on goes too.
 */
class BigFolder
{
public:
    /** Makes a folder of @p count entries in the account's home folder. */
    explicit BigFolder(int count);

    QString path() const
    {
        return m_path;
    }

    int count() const
    {
        return m_count;
    }

    /** The names in the order that QDir gives them. */
    QStringList names(QDir::SortFlags flags) const;

    /** Makes one file @p bytes longer and gives it its time back. */
    void resizeOne(int bytes) const;

    /** Reads the folder and the information of each entry, and nothing else. */
    void readWithNothingElse() const;

private:
    const QString m_path;
    const int m_count;
};

/** The filters that the plugin lists folders with. */
extern const QDir::Filters listedEntries;

/** The zone that local times are in: @p name, or that of the machine when it is null. */
void setTimeZone(const char *name);

#endif // BIGFOLDER_H
