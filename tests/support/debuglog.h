#ifndef DEBUGLOG_H
#define DEBUGLOG_H

#include <QStringList>

/** Takes the lines that are written at debug level while it lives, and drops Qt's own warnings. One
 * at a time. */
class DebugLog
{
public:
    DebugLog();
    ~DebugLog();

    /** Lines written so far, in order, without the blank that the stream may leave at their ends.
     */
    QStringList lines() const;

    /** The lines so far, and starts again from nothing. */
    QStringList take();

private:
    Q_DISABLE_COPY(DebugLog)
};

/** How the debug stream of this Qt writes @p text: in double quotation marks. */
QString quoted(const QString &text);

#endif // DEBUGLOG_H
