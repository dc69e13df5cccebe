#include "usb/mounttable.h"

#include <QDebug>
#include <QStringList>
#include <QTextStream>

namespace {
const QLatin1String deviceA("/dev/sda");
const QLatin1String deviceB("/dev/sdb");
const QLatin1String escapedBlank("\\040");
const QLatin1String blank(" ");

// Nearly all lines belong to other devices: only a stick's own is split into its fields.
void lookFor(const QLatin1String &device, const QString &line, const char *label,
             MountedStick *stick)
{
    if (stick->found || !line.startsWith(device))
        return;
    const QStringList fields = line.split(QLatin1Char(' '));
    if (fields.size() < 2)
        return;
    stick->path = fields.at(1);
    stick->path.replace(escapedBlank, blank);
    stick->found = true;
    qDebug() << label << stick->path;
}
} // namespace

MountedSticks readMountTable(QIODevice *table)
{
    MountedSticks sticks;
    QTextStream stream(table);
    for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine()) {
        lookFor(deviceA, line, "pathA =", &sticks.a);
        lookFor(deviceB, line, "pathB =", &sticks.b);
    }
    return sticks;
}
