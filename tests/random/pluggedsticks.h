#ifndef PLUGGEDSTICKS_H
#define PLUGGEDSTICKS_H

#include "support/stick.h"

#include <QMap>
#include <QSharedPointer>
#include <QStringList>

/** The sticks that are plugged in, each on a mount point of its own. */
class PluggedSticks
{
public:
    /** Plugs stick A (0) or B (1) in on @p path, if nothing is there. */
    void plug(int device, const QString &path)
    {
        if (m_sticks.contains(path))
            return;
        m_sticks.insert(
            path, QSharedPointer<Stick>(new Stick(device ? "/dev/sdb1" : "/dev/sda1", path, 512)));
        m_devices.insert(path, device);
        m_order.append(path);
    }

    void pull(const QString &path)
    {
        m_sticks.remove(path);
        m_devices.remove(path);
        m_order.removeAll(path);
    }

    bool isThere(const QString &path) const
    {
        return m_sticks.contains(path);
    }

    /** Where stick @p device is first in the mount table, empty when it is not in there. */
    QString pathOf(int device) const
    {
        for (const QString &path : m_order) {
            if (m_devices.value(path) == device)
                return path;
        }
        return QString();
    }

    /** Whether no stick was unmounted without having been asked for. */
    bool areMounted() const
    {
        for (const QSharedPointer<Stick> &stick : m_sticks) {
            if (!stick->isMounted())
                return false;
        }
        return true;
    }

private:
    QMap<QString, QSharedPointer<Stick>> m_sticks;
    QMap<QString, int> m_devices;
    QStringList m_order; // of the lines of the mount table
};

#endif // PLUGGEDSTICKS_H
