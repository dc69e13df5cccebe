#include "support/signallog.h"

#include <QMetaMethod>
#include <QMetaObject>

namespace {
QString methodName(const QMetaMethod &method)
{
#if QT_VERSION < 0x050000
    const QByteArray signature = method.signature();
#else
    const QByteArray signature = method.methodSignature();
#endif
    return QString::fromLatin1(signature.left(signature.indexOf('(')));
}
} // namespace

// The slots exist in no meta-object: the numbers past QObject's own methods lead to qt_metacall,
// which is how one receiver serves signals that are not known when it is compiled.
SignalLog::SignalLog(QObject *sender)
{
    const QMetaObject *type = sender->metaObject();
    const int firstSlot = QObject::staticMetaObject.methodCount();
    for (int i = firstSlot; i < type->methodCount(); ++i) {
        const QMetaMethod method = type->method(i);
        const bool isClone = method.attributes() & QMetaMethod::Cloned; // for default arguments
        if (method.methodType() != QMetaMethod::Signal || isClone)
            continue;
        QMetaObject::connect(sender, i, this, firstSlot + m_signals.size(), Qt::DirectConnection);
        m_signals.append(methodName(method));
    }
}

QStringList SignalLog::take()
{
    QStringList names = m_names;
    m_names.clear();
    return names;
}

int SignalLog::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    id = QObject::qt_metacall(call, id, arguments);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    m_names.append(m_signals.at(id));
    return -1;
}
