#include "plugin/filebrowserplugin.h"

#include "directory/directory.h"
#include "directory/file.h"
#include "directory/path.h"
#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include <qdeclarative.h>

namespace {
const int versionMajor = 1;
const int versionMinor = 0;

template <typename Type>
void registerType(const char *uri, const char *name)
{
    qmlRegisterType<Type>(uri, versionMajor, versionMinor, name);
}
} // namespace

void FileBrowserPlugin::registerTypes(const char *uri)
{
    registerType<Directory>(uri, "Directory");
    registerType<File>(uri, "File");
    registerType<Path>(uri, "Path");
    registerType<USB>(uri, "USB");
    registerType<FileTreeViewerItem>(uri, "FileTreeViewerItem");
}

Q_EXPORT_PLUGIN2(filebrowser, FileBrowserPlugin)
