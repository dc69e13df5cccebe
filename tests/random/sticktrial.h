#ifndef STICKTRIAL_H
#define STICKTRIAL_H

#include "random/disorder.h"
#include "random/pluggedsticks.h"
#include "random/steps.h"
#include "random/triedusb.h"
#include "support/moment.h"
#include "support/waiting.h"

#include <QFile>

/** Two USB objects at once, and sticks that come and go. */
class StickTrial
{
public:
    StickTrial()
        : m_one(&m_sticks)
        , m_two(&m_sticks)
    {
    }

    void act(const Step &step)
    {
        const QString path = step.second % 2 ? "/media/two words" : "/media/one";
        TriedUsb &usb = step.second % 3 ? m_one : m_two;
        TriedUsb &other = step.second % 3 ? m_two : m_one;
        switch (step.action) {
        case 0:
        case 1:
            m_sticks.plug(step.first % 2, path);
            break;
        case 2:
            m_sticks.pull(path);
            break;
        case 3:
        case 4:
            usb.find();
            break;
        case 5:
            usb.eject(step.first % 2);
            break;
        case 6:
            usb.eject(path);
            break;
        case 7:
            usb.prepare(path);
            break;
        case 8:
            usb.hear(step.first, &other);
            break;
        case 9:
            fill(path, step.first);
            break;
        case 10:
            if (step.first % 8 == 0)
                usb.begin();
            break;
        default:
            if (step.first % 100 == 0)
                letEjectsEnd();
            break;
        }
        usb.compare();
        other.compare();
        complaint = usb.complaint + other.complaint;
        if (!m_sticks.areMounted() && complaint.empty())
            complaint = "a stick is not mounted any more";
    }

    static const int actions = 12;

    std::string complaint;

private:
    void fill(const QString &path, int kilobytes) const
    {
        QFile file(path + "/file");
        if (m_sticks.isThere(path) && file.open(QIODevice::WriteOnly))
            file.write(QByteArray(kilobytes * 1024 / 2, 'x'));
    }

    void letEjectsEnd()
    {
        const Moment later(1010, [] {}); // the scan after an eject comes before it
        waitUntil([&] { return later.isOver(); });
        m_one.timeHasPassed();
        m_two.timeHasPassed();
    }

    PluggedSticks m_sticks;
    TriedUsb m_one;
    TriedUsb m_two;
};

#endif // STICKTRIAL_H
