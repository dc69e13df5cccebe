// Feeds the reader of the mount table with whatever libFuzzer thinks of, and compares what it finds
// with the plainest reading there is: the whole text at once, every line split into all its fields.

#include "usb/mounttable.h"

#include "support/debuglog.h"

#include <QBuffer>
#include <QStringList>
#include <QTextCodec>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

namespace {
const int deviceLength = 8;
const int labelLength = 7;

struct Findings
{
    MountedSticks sticks;
    QStringList labels; // of the debug lines
};

void openFor(QBuffer *buffer, const QByteArray &table)
{
    buffer->setData(table);
    buffer->open(QIODevice::ReadOnly | QIODevice::Text);
}

Findings findingsOfTheReader(const QByteArray &table)
{
    QBuffer buffer;
    openFor(&buffer, table);
    const DebugLog log;
    Findings findings;
    findings.sticks = readMountTable(&buffer);
    for (const QString &line : log.lines())
        findings.labels.append(line.left(labelLength));
    return findings;
}

void take(const QStringList &fields, const char *label, MountedStick *stick, QStringList *labels)
{
    if (stick->found || fields.size() == 1)
        return;
    stick->found = true;
    stick->path = fields.at(1).split("\\040").join(" ");
    labels->append(label);
}

Findings plainFindings(const QByteArray &table)
{
    QBuffer buffer;
    openFor(&buffer, table);
    const QString text = QTextStream(&buffer).readAll();
    Findings findings;
    for (const QString &line : text.split('\n')) {
        const QStringList fields = line.split(' ');
        const QString device = line.left(deviceLength);
        if (device == "/dev/sda")
            take(fields, "pathA =", &findings.sticks.a, &findings.labels);
        if (device == "/dev/sdb")
            take(fields, "pathB =", &findings.sticks.b, &findings.labels);
    }
    return findings;
}

void compare(const MountedStick &actual, const MountedStick &expected, const char *name)
{
    if (actual.found == expected.found && actual.path == expected.path)
        return;
    fprintf(stderr, "stick %s: read %d \"%s\", expected %d \"%s\"\n", name, actual.found,
            actual.path.toUtf8().constData(), expected.found, expected.path.toUtf8().constData());
    abort();
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray table(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const Findings actual = findingsOfTheReader(table);
    const Findings expected = plainFindings(table);
    compare(actual.sticks.a, expected.sticks.a, "A");
    compare(actual.sticks.b, expected.sticks.b, "B");
    if (actual.labels != expected.labels) {
        fprintf(stderr, "the debug lines are in another order\n");
        abort();
    }
    return 0;
}
