#ifndef STICKTRIAL_H
#define STICKTRIAL_H

#include "usb/usb.h"

#include "random/disorder.h"
#include "random/steps.h"
#include "support/reaction.h"
#include "support/stick.h"
#include "support/waiting.h"

#include <QMap>
#include <QSharedPointer>

#include <memory>

#include <sys/statvfs.h>

/** A USB object and the sticks that come and go. */
class StickTrial
{
public:
    void act(const Step &step)
    {
        const QString path = pathOf(step.second);
        switch (step.action) {
        case 0:
        case 1:
            plug(step.first % 2, path);
            break;
        case 2:
            m_sticks.remove(path);
            break;
        case 3:
        case 4:
            find();
            break;
        case 5:
            eject(step.first % 2);
            break;
        case 6:
            m_usb.eject(path);
            pulled(path);
            break;
        case 7:
            prepare(path);
            break;
        case 8:
            m_isNested = !m_isNested;
            m_handler.reset(
                m_isNested ? new Reaction(&m_usb, SIGNAL(usbAChanged()), [this] { m_usb.find(); })
                           : nullptr);
            break;
        default:
            fill(path, step.first);
            break;
        }
        compare();
    }

    static const int actions = 10;

    std::string complaint;

private:
    struct Told
    {
        bool isThere;
        QString path;
        qint64 kilobytes;
    };

    static QString pathOf(int number)
    {
        const char *const paths[] = {"/media/one", "/media/two words"};
        return paths[number % 2];
    }

    void plug(int device, const QString &path)
    {
        if (m_sticks.contains(path))
            return;
        m_sticks.insert(
            path, QSharedPointer<Stick>(new Stick(device ? "/dev/sdb1" : "/dev/sda1", path, 512)));
        m_devices.insert(path, device);
        m_order.removeAll(path);
        m_order.append(path);
    }

    void pulled(const QString &path)
    {
        m_sticks.remove(path);
    }

    void find()
    {
        m_usb.find();
        for (int device = 0; device < 2; ++device) {
            m_told[device] = Told();
            for (const QString &path : m_order) {
                if (m_sticks.contains(path) && m_devices.value(path) == device &&
                    !m_told[device].isThere) {
                    m_told[device].isThere = true;
                    m_told[device].path = path;
                    struct statvfs figures;
                    statvfs(QFile::encodeName(path).constData(), &figures);
                    m_told[device].kilobytes = figures.f_bavail * figures.f_bsize / 1024;
                }
            }
        }
    }

    void eject(int device)
    {
        device ? m_usb.ejectB() : m_usb.ejectA();
        pulled(m_told[device].path);
    }

    void prepare(const QString &path)
    {
        m_usb.prepareUnmount(path);
        const bool wasThere = m_told[0].isThere;
        if (m_told[0].path == path)
            m_told[0].isThere = false;
        else if (m_told[1].path == path)
            m_told[1].isThere = false;
        if (m_isNested && m_told[0].isThere != wasThere)
            find();
    }

    void fill(const QString &path, int kilobytes)
    {
        QFile file(path + "/file");
        if (m_sticks.contains(path) && file.open(QIODevice::WriteOnly))
            file.write(QByteArray(kilobytes * 1024 / 2, 'x'));
    }

    void compare()
    {
        const bool holds =
            m_usb.usbA() == m_told[0].isThere && m_usb.usbAPath() == m_told[0].path &&
            m_usb.usbASpace() == m_told[0].kilobytes && m_usb.usbB() == m_told[1].isThere &&
            m_usb.usbBPath() == m_told[1].path && m_usb.usbBSpace() == m_told[1].kilobytes;
        if (!holds && complaint.empty())
            complaint = inWords("told is " + m_usb.usbAPath() + ", " + m_usb.usbBPath());
        for (const QString &path : m_sticks.keys()) {
            if (!m_sticks.value(path)->isMounted() && complaint.empty())
                complaint = inWords(path + " is not mounted any more");
        }
    }

    USB m_usb;
    QMap<QString, QSharedPointer<Stick>> m_sticks;
    QMap<QString, int> m_devices;
    QStringList m_order; // of the lines of the mount table
    Told m_told[2] = {Told(), Told()};
    bool m_isNested = false;
    std::unique_ptr<Reaction> m_handler;
};

#endif // STICKTRIAL_H
