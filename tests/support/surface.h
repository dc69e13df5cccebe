#ifndef SURFACE_H
#define SURFACE_H

#include <QMetaObject>
#include <QStringList>

/**
 * What a class adds to the meta-object interface, in its order: properties as "type name access
 * notify", with access "r" or "rw" and "constant" behind it, then methods as "kind type signature",
 * with kind "signal", "slot", "private slot" or "invokable".
 */
QStringList surface(const QMetaObject &type);

#endif // SURFACE_H
