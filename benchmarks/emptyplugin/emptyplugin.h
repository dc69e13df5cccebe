#ifndef EMPTYPLUGIN_H
#define EMPTYPLUGIN_H

#include <QDeclarativeExtensionPlugin>

/** A module with one type and nothing in it: what loading a module costs whatever its contents. */
class EmptyPlugin : public QDeclarativeExtensionPlugin
{
    Q_OBJECT
#if QT_VERSION >= 0x050000
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)
#endif

public:
    void registerTypes(const char *uri) override;
};

#endif // EMPTYPLUGIN_H
