#include "common/filetime.h"

#include <limits>

const qint64 noTime = std::numeric_limits<qint64>::min();

qint64 fileTime(const timespec &time)
{
    const qint64 fraction = time.tv_nsec / 1000000;
#if QT_VERSION < 0x050000
    return qint64(static_cast<quint32>(time.tv_sec)) * 1000 + fraction;
#else
    const qint64 ms = qint64(time.tv_sec) * 1000 + fraction;
    return ms == 0 ? noTime : ms;
#endif
}
