#ifndef METANAMES_H
#define METANAMES_H

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

/** What a list of the type named @p type holds; empty when that is no list. */
inline QByteArray itemOfList(const QByteArray &type)
{
    const QByteArray name = "ListProperty<"; // QDeclarative before it, or QQml as Qt 6 calls it
    const int at = type.indexOf(name);
    return at < 0 ? QByteArray() : type.mid(at + name.size()).replace(">", "");
}

#endif // METANAMES_H
