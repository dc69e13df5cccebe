#ifndef TIMEZONE_H
#define TIMEZONE_H

#include <QByteArray>

#include <cstdlib>
#include <ctime>

/** The time zone of the process, as long as the object lives. */
class TimeZone
{
public:
    /** The zone that the variable TZ names; the machine's own for nullptr. */
    explicit TimeZone(const char *zone)
        : m_previous(qgetenv("TZ"))
    {
        if (zone)
            setenv("TZ", zone, 1);
        else
            unsetenv("TZ");
        tzset();
    }

    ~TimeZone()
    {
        setenv("TZ", m_previous.constData(), 1);
        tzset();
    }

private:
    Q_DISABLE_COPY(TimeZone)

    const QByteArray m_previous;
};

#endif // TIMEZONE_H
