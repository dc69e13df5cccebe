#ifndef COMPAT_QDECLARATIVE_H
#define COMPAT_QDECLARATIVE_H

#include <QDeclarativeListProperty>

#include <qqml.h>

#endif // COMPAT_QDECLARATIVE_H
