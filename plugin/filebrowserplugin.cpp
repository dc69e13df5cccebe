#include "plugin/filebrowserplugin.h"

#include <qdeclarative.h>

namespace
{
const int versionMajor = 1;
const int versionMinor = 0;
} // namespace

void FileBrowserPlugin::registerTypes(const char *uri)
{
    Q_UNUSED(uri)
    Q_UNUSED(versionMajor)
    Q_UNUSED(versionMinor)
}

Q_EXPORT_PLUGIN2(filebrowser, FileBrowserPlugin)
