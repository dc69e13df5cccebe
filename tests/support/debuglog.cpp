#include "support/debuglog.h"

#include <QDebug>

namespace {
QStringList written;

QString withoutTrailingBlank(QString line)
{
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

#if QT_VERSION < 0x050000
void takeLine(QtMsgType type, const char *line)
{
    if (type == QtDebugMsg)
        written.append(withoutTrailingBlank(QString::fromLocal8Bit(line)));
}
#else
void takeLine(QtMsgType type, const QMessageLogContext &, const QString &line)
{
    if (type == QtDebugMsg)
        written.append(withoutTrailingBlank(line));
}
#endif
} // namespace

DebugLog::DebugLog()
{
    written.clear();
#if QT_VERSION < 0x050000
    qInstallMsgHandler(takeLine);
#else
    qInstallMessageHandler(takeLine);
#endif
}

DebugLog::~DebugLog()
{
#if QT_VERSION < 0x050000
    qInstallMsgHandler(nullptr);
#else
    qInstallMessageHandler(nullptr);
#endif
}

QStringList DebugLog::lines() const
{
    return written;
}

QStringList DebugLog::take()
{
    QStringList lines = written;
    written.clear();
    return lines;
}

QString quoted(const QString &text)
{
    QString result;
    QDebug(&result).nospace() << text;
    return result;
}
