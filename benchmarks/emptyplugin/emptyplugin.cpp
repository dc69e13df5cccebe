#include "emptyplugin/emptyplugin.h"

#include <qdeclarative.h>

void EmptyPlugin::registerTypes(const char *uri)
{
    qmlRegisterType<QObject>(uri, 1, 0, "Nothing");
}

Q_EXPORT_PLUGIN2(emptyplugin, EmptyPlugin)
