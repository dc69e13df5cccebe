#ifndef METAMETHOD_H
#define METAMETHOD_H

#include <QByteArray>
#include <QMetaMethod>

/** The signature of @p method, as in "setRoot(QString)". */
inline QByteArray signatureOf(const QMetaMethod &method)
{
#if QT_VERSION < 0x050000
    return method.signature();
#else
    return method.methodSignature();
#endif
}

/** The name of @p method alone. */
inline QByteArray nameOf(const QMetaMethod &method)
{
    const QByteArray signature = signatureOf(method);
    return signature.left(signature.indexOf('('));
}

#endif // METAMETHOD_H
