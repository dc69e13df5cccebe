#ifndef FILEBROWSERPLUGIN_H
#define FILEBROWSERPLUGIN_H

#include <QDeclarativeExtensionPlugin>

/** The plugin that a declarative engine loads for the module FileBrowser. */
class FileBrowserPlugin : public QDeclarativeExtensionPlugin
{
    Q_OBJECT
#if QT_VERSION >= 0x050000
    // Qt 5 and Qt 6 find a plugin by this record; Q_EXPORT_PLUGIN2 in the .cpp is Qt 4.8's way.
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)
#endif

public:
    /**
     * Registers the types "Directory", "File", "Path", "USB" and "FileTreeViewerItem", in this
     * order, as version 1.0 of the module @p uri. Called once by the engine. In a process without
     * a QApplication the last one can't be made, and the engine says why.
     */
    void registerTypes(const char *uri) override;
};

#endif // FILEBROWSERPLUGIN_H
