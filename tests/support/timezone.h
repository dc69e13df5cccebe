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
        set(zone);
    }

    ~TimeZone()
    {
        set(m_previous.isNull() ? nullptr : m_previous.constData());
    }

private:
    Q_DISABLE_COPY(TimeZone)

    static void set(const char *zone)
    {
        if (zone)
            setenv("TZ", zone, 1);
        else
            unsetenv("TZ");
        tzset();
    }

    const QByteArray m_previous;
};

#endif // TIMEZONE_H
