#ifndef REFERENCEPAGE_H
#define REFERENCEPAGE_H

#include <QByteArray>
#include <QMetaObject>
#include <QStringList>

/**
 * The members that a page of docs/reference tells of, in its order: the values of the enums as
 * "name = number", properties as "name : type, writable, told by signal", signals and slots as they
 * are called in QML.
 */
QStringList membersOnPage(const QByteArray &page);

/** The members that the page of @p type has to tell of, written likewise. */
QStringList membersForPage(const QMetaObject &type);

#endif // REFERENCEPAGE_H
