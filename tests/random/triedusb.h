#ifndef TRIEDUSB_H
#define TRIEDUSB_H

#include "usb/usb.h"

#include "random/pluggedsticks.h"
#include "support/reaction.h"

#include <QPointer>

#include <memory>
#include <string>

/** A USB object, what it must tell, and at times a handler that calls back. */
class TriedUsb
{
public:
    explicit TriedUsb(PluggedSticks *sticks);
    ~TriedUsb();

    /** A new object instead of the one there is, whatever that has put off. */
    void begin();

    void find();
    void eject(int device);
    void eject(const QString &path);
    void prepare(const QString &path);

    /** A handler from now on, or none. @p other goes when that handler is one that ends it. */
    void hear(int number, TriedUsb *other);

    /** Timers have fired. */
    void timeHasPassed();

    void compare();

    std::string complaint;

private:
    struct Told
    {
        bool isThere;
        QString path;
        qint64 kilobytes;
    };

    void look();
    void react(const char *signal, const std::function<void()> &action);

    PluggedSticks *const m_sticks;
    QPointer<USB> m_usb;
    Told m_told[2];
    bool m_findsAgain; // when a stick has come or gone
    bool m_willFind;
    bool m_isDying;
    std::unique_ptr<Reaction> m_handler;
};

#endif // TRIEDUSB_H
