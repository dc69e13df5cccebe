#ifndef METATYPES_H
#define METATYPES_H

#include <QMetaType>

/** Whether a type is known by the name @p name to whoever looks for it at run time. */
inline bool isKnownType(const QByteArray &name)
{
#if QT_VERSION < 0x060000
    return QMetaType::type(name.constData()) != 0;
#else
    return QMetaType::fromName(name).isValid();
#endif
}

#endif // METATYPES_H
