#include "plugin/filebrowserplugin.h"

#include "directory/directory.h"
#include "directory/file.h"
#include "directory/path.h"
#include "tree/filetreevieweritem.h"
#include "usb/usb.h"

#include <QCoreApplication>

#include <qdeclarative.h>

namespace {
const int versionMajor = 1;
const int versionMinor = 0;

template <typename Type>
void registerType(const char *uri, const char *name)
{
    qmlRegisterType<Type>(uri, versionMajor, versionMinor, name);
}

// Whether the process is one that a widget would end.
bool isWithoutWidgets()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application && !application->inherits("QApplication");
}

// The tree holds a widget. Where there can be none the engine gives the reason for an answer.
void registerTree(const char *uri)
{
    const char *const name = "FileTreeViewerItem";
    if (isWithoutWidgets()) {
        qmlRegisterUncreatableType<FileTreeViewerItem>(
            uri, versionMajor, versionMinor, name,
            "FileTreeViewerItem needs a QApplication, and this process has another kind of "
            "application: with Qt's own tool, call \"qml --apptype widget\"");
    } else {
        registerType<FileTreeViewerItem>(uri, name);
    }
}
} // namespace

void FileBrowserPlugin::registerTypes(const char *uri)
{
    registerType<Directory>(uri, "Directory");
    registerType<File>(uri, "File");
    registerType<Path>(uri, "Path");
    registerType<USB>(uri, "USB");
    registerTree(uri);
}

Q_EXPORT_PLUGIN2(filebrowser, FileBrowserPlugin)
