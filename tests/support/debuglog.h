#ifndef DEBUGLOG_H
#define DEBUGLOG_H

#include <QStringList>

#include <functional>

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

    /** Calls @p action in the middle of what writes a line that starts with @p start, once. */
    void atLine(const QString &start, const std::function<void()> &action);

    /** The lines so far, and starts again from nothing. */
    QStringList take();

private:
    Q_DISABLE_COPY(DebugLog)
};

/** How the debug stream of this Qt writes @p text: in double quotation marks. */
QString quoted(const QString &text);

#endif // DEBUGLOG_H
