import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "components"
import "components/style.js" as Style

// The data folders as trees.
Item {
    id: screen

    property variant tabs: ["Logs", "Soil", "Configs"]
    property int tab: 0
    property bool canRename: true
    property bool canDelete: true
    property bool canCopy: true
    property string marked: "Checked files"

    // The tree announces a path when a row is touched, not when it forgets it.
    property string touchedPath

    signal wordsWanted(string words)

    function show(index) {
        tab = index;
        if (index === 0)
            tree.viewLogDirectory();
        else if (index === 1)
            tree.viewSoilFluxDirectory();
        else
            tree.viewConfigsDirectory();
        touchedPath = tree.absoluteFilePath;
    }

    function setFilter(words) {
        tree.nameFilters = words;
        return "";
    }

    // Each of the following returns what went wrong, or nothing.

    // The tree's own exists() knows folders only, and createNewFile() would empty a file that is there.
    function newFile(name) {
        if (disk.exists(tree.currentFilepath + "/" + name))
            return taken(name);
        return tree.createNewFile(name) ? "" : refused(name, "made");
    }

    // createNewFolder() can't tell a folder that was refused: look for it.
    function newFolder(name) {
        var path = tree.currentFilepath + "/" + name;
        if (disk.exists(path))
            return taken(name);
        tree.createNewFolder(name);
        return disk.exists(path) ? "" : refused(name, "made");
    }

    function nameToRename() {
        return tree.getCurrentItemName();
    }

    function rename(name) {
        var oldName = nameToRename();
        if (name === oldName)
            return "";
        if (disk.exists(Style.folderOf(tree.absoluteFilePath) + "/" + name))
            return taken(name);
        var oldPath = tree.absoluteFilePath;
        if (!tree.renameFile(name))
            return refused(oldName, "renamed");
        leave(oldPath);
        return "";
    }

    function namesToDelete() {
        var name = tree.getCurrentItemName();
        return name === "" ? [] : [name];
    }

    function deleteMarked() {
        var name = tree.getCurrentItemName();
        var path = tree.absoluteFilePath;
        var isFolder = tree.isDirSelected();
        if (!(isFolder ? tree.deleteSelectedDir() : tree.deleteSelectedFile()))
            return refused(name, isFolder ? "deleted: is it empty?" : "deleted");
        leave(path);
        return "";
    }

    // The view would select a neighbour of an entry that is gone, and the next touch of a button mean
    // that one.
    function leave(path) {
        tree.clearSelection();
        if (tree.currentFilepath === path)
            tree.currentFilepath = Style.folderOf(path);
    }

    function copyTo(path) {
        return tree.copyCheckedFilesTo(path);
    }

    function taken(name) {
        return "\"" + Style.oneLine(name) + "\" exists already.";
    }

    function refused(name, what) {
        return "\"" + Style.oneLine(name) + "\" could not be " + what + ".";
    }

    // Answers whether there is a file or folder at a path.
    Fb.Directory {
        id: disk
    }

    Row {
        id: tools
        x: 8
        height: 52

        Toggle {
            id: boxes
            anchors.verticalCenter: parent.verticalCenter
            text: "Boxes"
            on: true
            onClicked: {
                on = !on;
                tree.isSelectable = on;
                tree.redrawView();
            }
        }

        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            text: "Folders first"
            on: tree.dirsFirst
            onClicked: tree.dirsFirst = !tree.dirsFirst
        }

        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            text: "Tap opens"
            on: tree.openDirs
            onClicked: tree.openDirs = !tree.openDirs
        }

        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            text: "Root"
            on: tree.showRoot
            onClicked: tree.showRoot = !tree.showRoot
        }

        Toggle {
            anchors.verticalCenter: parent.verticalCenter
            text: "Filter"
            on: tree.nameFilterOn
            onClicked: tree.nameFilterOn = !tree.nameFilterOn
        }

        Button {
            anchors.verticalCenter: parent.verticalCenter
            width: screen.width - 16 - x
            objectName: "button:Words"
            text: tree.nameFilters === "" ? "Words ..." : Style.oneLine(tree.nameFilters)
            onClicked: screen.wordsWanted(tree.nameFilters)
        }
    }

    Fb.FileTreeViewerItem {
        id: tree
        objectName: "tree"
        anchors { top: tools.bottom; bottom: info.top; left: parent.left; right: parent.right }
        isSelectable: true
        dirsFirst: true
        onAbsoluteFilePathChanged: screen.touchedPath = absoluteFilePath
    }

    Column {
        id: info
        anchors { bottom: footer.top; bottomMargin: 4 }
        x: 12
        width: parent.width - 24

        Label {
            objectName: "currentFolder"
            width: parent.width
            text: "Folder " + Style.oneLine(tree.currentFilepath)
                + (tree.currentFilename === "" ? "" : ", file " + Style.oneLine(tree.currentFilename))
            elide: Text.ElideMiddle
            font.pixelSize: Style.smallFontPixels
        }

        Label {
            objectName: "touchedPath"
            width: parent.width
            text: screen.touchedPath === "" ? "Touch a row to select it" : Style.oneLine(screen.touchedPath)
            color: Style.faintText
            elide: Text.ElideMiddle
            font.pixelSize: Style.smallFontPixels
        }
    }

    MarkedBar {
        id: footer
        anchors.bottom: parent.bottom
        width: parent.width
        height: 60
        summary: "Checked: " + Style.size(tree.checkedFilesKB) // bytes, whatever its name says
        onAllChosen: tree.selectAll()
        onNoneChosen: tree.clearAll()
    }

    Component.onCompleted: {
        tree.setColumnWidth(1, 88);
        show(0);
    }
}
