#ifndef SIGNALLOG_H
#define SIGNALLOG_H

#include <QObject>
#include <QStringList>

/**
 * Records the signals that an object emits, all of its own class's or a chosen few, in the order of
 * emission across signals: what a QSignalSpy per signal can't tell.
 */
class SignalLog : public QObject
{
public:
    /** Listens to every signal that @p sender has beyond those of QObject (its class's and its
     * bases'). */
    explicit SignalLog(QObject *sender);

    /** Names of the signals emitted so far, without arguments and brackets, in order. */
    QStringList names() const
    {
        return m_names;
    }

    /** The names so far, and starts again from nothing. */
    QStringList take();

    /** How often the signal @p name was emitted. */
    int count(const char *name) const
    {
        return m_names.count(QLatin1String(name));
    }

    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

private:
    QStringList m_signals; // by slot number
    QStringList m_names;
};

#endif // SIGNALLOG_H
