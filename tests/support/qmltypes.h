#ifndef QMLTYPES_H
#define QMLTYPES_H

#include <QByteArray>
#include <QMetaObject>

/**
 * What editors and linters need to know of a class that QML knows by its own name as version 1.0 of
 * the module FileBrowser: a "Component" of a .qmltypes file, with its public members in their
 * order.
 */
QByteArray describeForTools(const QMetaObject &type);

#endif // QMLTYPES_H
