#include "support/debuglog.h"

#include <QDebug>

namespace {
QStringList written;
QString awaited;
std::function<void()> awaiting;

QString withoutTrailingBlank(QString line)
{
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

void take(const QString &line)
{
    written.append(withoutTrailingBlank(line));
    if (!awaiting || !line.startsWith(awaited))
        return;
    std::function<void()> action;
    action.swap(awaiting);
    action();
}

#if QT_VERSION < 0x050000
void takeLine(QtMsgType type, const char *line)
{
    if (type == QtDebugMsg)
        take(QString::fromLocal8Bit(line));
}
#else
void takeLine(QtMsgType type, const QMessageLogContext &, const QString &line)
{
    if (type == QtDebugMsg)
        take(line);
}
#endif
} // namespace

DebugLog::DebugLog()
{
    written.clear();
    awaiting = nullptr;
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

void DebugLog::atLine(const QString &start, const std::function<void()> &action)
{
    awaited = start;
    awaiting = action;
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
