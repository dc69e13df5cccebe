#include "support/surface.h"

#include "support/metanames.h"

#include <QMetaProperty>

namespace {
QByteArray resultOf(const QMetaMethod &method)
{
    const QByteArray type = method.typeName();
    return type.isEmpty() ? QByteArray("void") : type;
}

QByteArray kindOf(const QMetaMethod &method)
{
    switch (method.methodType()) {
    case QMetaMethod::Signal:
        return "signal";
    case QMetaMethod::Slot:
        return method.access() == QMetaMethod::Public ? "slot" : "private slot";
    default:
        return "invokable";
    }
}

// Qt names the 64-bit numbers in two ways, and Qt 6 a list property by what stands behind the name.
QByteArray inOneWay(QByteArray types)
{
    return types.replace("qlonglong", "qint64")
        .replace("qulonglong", "quint64")
        .replace("QQmlListProperty<", "QDeclarativeListProperty<");
}

QString describe(const QMetaProperty &property)
{
    QByteArray line = inOneWay(property.typeName()) + ' ' + property.name() + ' ';
    line += property.isWritable() ? "rw" : "r";
    if (property.isConstant())
        line += " constant";
    if (property.hasNotifySignal())
        line += ' ' + nameOf(property.notifySignal());
    return QString::fromLatin1(line);
}

QString describe(const QMetaMethod &method)
{
    return QString::fromLatin1(kindOf(method) + ' ' + resultOf(method) + ' ' +
                               inOneWay(signatureOf(method)));
}
} // namespace

QStringList surface(const QMetaObject &type)
{
    QStringList lines;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        lines.append(describe(type.property(i)));
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        lines.append(describe(type.method(i)));
    return lines;
}
