#include "directory/file.h"

namespace {
const qint64 bytesPerKB = 1024;
const qint64 bytesPerMB = 1024 * bytesPerKB;
const qint64 bytesPerGB = 1024 * bytesPerMB;
} // namespace

File::File(QObject *parent)
    : QObject(parent)
    , m_size(0)
    , m_isDir(false)
    , m_isSelected(false)
{
}

QString File::name() const
{
    return m_name;
}

bool File::isNamed(const QString &name) const
{
    return m_name == name;
}

void File::setName(const QString &name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
}

QString File::date() const
{
    return m_date;
}

void File::setDate(const QString &date)
{
    if (date == m_date)
        return;
    m_date = date;
    emit dateChanged();
}

QString File::size() const
{
    static const char *const units[] = {"KB", "MB", "GB", "TB"};
    const float threshold = 1024.0f;
    const float step = 0.0009765625f; // 1/1024

    float number = static_cast<float>(m_size); // single precision is part of what is shown
    const char *unit = "bytes";
    if (number >= threshold) {
        for (const char *next : units) {
            unit = next;
            number *= step;
            if (number < threshold)
                break;
        }
    }
    return QString::number(static_cast<double>(number), 'f', 0) + QLatin1Char(' ') +
           QLatin1String(unit);
}

qint64 File::sizeBytes() const
{
    return m_size;
}

qint64 File::sizeKB() const
{
    return m_size / bytesPerKB;
}

qint64 File::sizeMB() const
{
    return m_size / bytesPerMB;
}

qint64 File::sizeGB() const
{
    return m_size / bytesPerGB;
}

void File::setSize(qint64 bytes)
{
    if (bytes == m_size)
        return;
    m_size = bytes;
    emit sizeChanged();
}

bool File::isDir() const
{
    return m_isDir;
}

void File::setIsDir(const bool &isDir)
{
    if (isDir == m_isDir)
        return;
    m_isDir = isDir;
    emit isDirChanged();
}

bool File::isSelected() const
{
    return m_isSelected;
}

void File::setIsSelected(const bool &isSelected)
{
    if (isSelected == m_isSelected)
        return;
    m_isSelected = isSelected;
    emit isSelectedChanged();
}
