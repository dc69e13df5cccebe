// What is done with sticks.

#include "faults/operation.h"
#include "faults/world.h"

#include "support/stick.h"
#include "usb/usb.h"

#include <QFile>

#include <sys/mount.h>

namespace {
const QString pathA = "/media/Stick A";
const QString pathB = "/media/Stick B";

/** Two sticks, with a file on the first. */
class StickOperation : public Operation
{
public:
    void prepare() override
    {
        World::build();
        // A process may have died.
        umount2(QFile::encodeName(pathA).constData(), MNT_DETACH);
        umount2(QFile::encodeName(pathB).constData(), MNT_DETACH);
        m_stickA.reset(new Stick("/dev/sda1", pathA, 1024));
        m_stickB.reset(new Stick("/dev/sdb1", pathB, 2048));
        QFile file(m_stickA->path(World::fileNames().at(1)));
        if (!file.open(QIODevice::WriteOnly) || file.write(contents()) < 0)
            qFatal("can't write to a stick");
    }

    void inspect(Complaints *complaints) const override
    {
        World::expectSources(complaints);
        World::expectNothingIncomplete(complaints, pathA);
    }

protected:
    static QByteArray contents()
    {
        return World::contentsOf(World::fileNames().at(1));
    }

    /** Scans and complains unless that tells what is mounted. */
    void expectTheTruth(Complaints *complaints)
    {
        m_usb.find();
        const bool isA = m_stickA->isMounted();
        complaints->expect(m_usb.usbA() == isA && m_usb.usbAPath() == (isA ? pathA : QString()) &&
                               (m_usb.usbASpace() > 0) == isA,
                           "the next scan does not tell how stick A is");
        complaints->expect(m_usb.usbB() && m_usb.usbBPath() == pathB && m_usb.usbBSpace() == 2048,
                           "the next scan does not tell how stick B is");
    }

    USB m_usb;
    std::unique_ptr<Stick> m_stickA;

private:
    std::unique_ptr<Stick> m_stickB;
};

class Find : public StickOperation
{
public:
    void perform() override
    {
        m_usb.find();
    }

    void check(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        inspect(complaints);
        complaints->expect(m_usb.usbAPath() == (m_usb.usbA() ? pathA : QString()),
                           "stick A is told to be at " + m_usb.usbAPath());
        complaints->expect(m_usb.usbBPath() == (m_usb.usbB() ? pathB : QString()),
                           "stick B is told to be at " + m_usb.usbBPath());
        complaints->expect(m_usb.usbASpace() <= 1024 && m_usb.usbBSpace() <= 2048,
                           "more is free than there is");
        complaints->expect((m_usb.usbASpace() == 0) == (m_usb.usbAFreeSpace() == "0.0 bytes"),
                           "the free space is told in two ways");
        expectTheTruth(complaints);
    }
};

class Eject : public StickOperation
{
public:
    void prepare() override
    {
        StickOperation::prepare();
        m_usb.find();
    }

    void perform() override
    {
        m_usb.ejectA();
    }

    void check(Complaints *complaints, const std::function<bool(const char *)> &) override
    {
        inspect(complaints);
        if (m_stickA->isMounted()) {
            QFile file(m_stickA->path(World::fileNames().at(1)));
            complaints->expect(file.open(QIODevice::ReadOnly) && file.readAll() == contents(),
                               "the stick is there without its file");
        }
        complaints->expect(m_usb.usbA() && m_usb.usbAPath() == pathA,
                           "ejecting itself changed a property");
        expectTheTruth(complaints);
        m_usb.eject(pathA);
        complaints->expect(!m_stickA->isMounted(), "ejecting once more does not work");
        expectTheTruth(complaints);
    }
};
} // namespace

std::unique_ptr<Operation> makeStickOperation(const QString &name)
{
    Operation *operation = nullptr;
    if (name == "find")
        operation = new Find;
    else if (name == "eject")
        operation = new Eject;
    return std::unique_ptr<Operation>(operation);
}
