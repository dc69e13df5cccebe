#include "random/triedusb.h"

#include "random/disorder.h"

#include <QCoreApplication>
#include <QFile>

#include <sys/statvfs.h>

TriedUsb::TriedUsb(PluggedSticks *sticks)
    : m_sticks(sticks)
{
    begin();
}

TriedUsb::~TriedUsb()
{
    m_handler.reset();
    delete m_usb;
}

void TriedUsb::begin()
{
    m_handler.reset();
    delete m_usb;
    m_usb = new USB;
    m_told[0] = m_told[1] = Told();
    m_findsAgain = m_willFind = m_isDying = false;
}

void TriedUsb::find()
{
    m_usb->find();
    look();
}

void TriedUsb::eject(int device)
{
    device ? m_usb->ejectB() : m_usb->ejectA();
    m_sticks->pull(m_told[device].path);
    m_willFind = true;
}

void TriedUsb::eject(const QString &path)
{
    m_usb->eject(path);
    m_sticks->pull(path);
    m_willFind = true;
}

void TriedUsb::prepare(const QString &path)
{
    m_usb->prepareUnmount(path);
    const bool wasThere = m_told[0].isThere;
    if (m_told[0].path == path)
        m_told[0].isThere = false;
    else if (m_told[1].path == path)
        m_told[1].isThere = false;
    if (m_findsAgain && m_told[0].isThere != wasThere)
        look();
}

void TriedUsb::hear(int number, TriedUsb *other)
{
    m_handler.reset();
    m_findsAgain = number % 4 == 0;
    const char *const emitted[] = {SIGNAL(usbAChanged()), SIGNAL(usbAPathChanged()),
                                   SIGNAL(usbASpaceChanged()), SIGNAL(usbBFreeSpaceChanged())};
    const char *const any = emitted[number / 4 % 4];
    switch (number % 4) {
    case 0:
        react(SIGNAL(usbAChanged()), [this] { m_usb->find(); });
        break;
    case 1:
        react(any, [this] {
            m_usb->deleteLater();
            m_isDying = true;
        });
        break;
    case 2:
        react(any, [other] { other->begin(); });
        break;
    default:
        break;
    }
}

void TriedUsb::timeHasPassed()
{
    if (m_willFind && m_usb)
        look();
    m_willFind = false;
    compare();
}

void TriedUsb::compare()
{
    if (m_isDying) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (m_usb && complaint.empty())
            complaint = "deleted and still there";
        begin();
    }
    const bool holds = m_usb->usbA() == m_told[0].isThere && m_usb->usbAPath() == m_told[0].path &&
                       m_usb->usbASpace() == m_told[0].kilobytes &&
                       m_usb->usbB() == m_told[1].isThere && m_usb->usbBPath() == m_told[1].path &&
                       m_usb->usbBSpace() == m_told[1].kilobytes;
    if (!holds && complaint.empty())
        complaint = inWords("told is " + m_usb->usbAPath() + ", " + m_usb->usbBPath());
}

void TriedUsb::look()
{
    for (int device = 0; device < 2; ++device) {
        Told &told = m_told[device];
        told = Told();
        told.path = m_sticks->pathOf(device);
        told.isThere = !told.path.isEmpty();
        struct statvfs figures;
        if (told.isThere && statvfs(QFile::encodeName(told.path).constData(), &figures) == 0)
            told.kilobytes = figures.f_bavail * figures.f_bsize / 1024;
    }
}

void TriedUsb::react(const char *signal, const std::function<void()> &action)
{
    m_handler.reset(new Reaction(m_usb, signal, action));
}
