import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "components"
import "components/style.js" as Style
import "components/names.js" as Names
import "components/words.js" as Words

// The data folders as trees.
Item {
    id: screen

    property variant tabs: ["Logs", "Soil", "Configs"]
    property variant tabTexts: [qsTr("Logs"), qsTr("Soil"), qsTr("Configs")]
    property int tab: 0
    property bool canRename: touchedPath !== ""
    property bool canDelete: touchedPath !== ""

    // Of checked files the tree tells the bytes alone: none may be empty files too.
    property bool canCopy: true

    // Bytes, whatever the name says. How many files they are the tree does not tell.
    property real bytesToCopy: tree.checkedFilesKB

    // The tree announces a path when a row is touched, not when it forgets it.
    property string touchedPath

    // Whether the folder that the tree begins with was empty when it was looked at last.
    property bool isEmpty: false

    signal wordsWanted

    property string words: tree.nameFilters

    function show(index) {
        tab = index;
        if (index === 0)
            tree.viewLogDirectory();
        else if (index === 1)
            tree.viewSoilFluxDirectory();
        else
            tree.viewConfigsDirectory();
        tree.clearSelection();
        look();
    }

    function look() {
        touchedPath = tree.absoluteFilePath;
        isEmpty = disks.isEmpty(tree.root);
    }

    function setFilter(words) {
        tree.clearSelection();
        tree.nameFilters = words;
        tree.nameFilterOn = words !== "";
        look();
        return "";
    }

    // Each of the following returns what went wrong, or nothing.

    // The tree's own exists() knows folders only, and createNewFile() would empty a file that is there.
    function newFile(name) {
        if (disk.exists(tree.currentFilepath + "/" + name))
            return Words.taken(Names.oneLine(name));
        var made = tree.createNewFile(name);
        look();
        return made ? "" : Words.notMade(Names.oneLine(name));
    }

    // createNewFolder() can't tell a folder that was refused: look for it.
    function newFolder(name) {
        var path = tree.currentFilepath + "/" + name;
        if (disk.exists(path))
            return Words.taken(Names.oneLine(name));
        tree.createNewFolder(name);
        look();
        return disk.exists(path) ? "" : Words.notMade(Names.oneLine(name));
    }

    function nameToRename() {
        return tree.getCurrentItemName();
    }

    function rename(name) {
        var oldName = nameToRename();
        if (name === oldName)
            return "";
        if (disk.exists(Names.folderOf(tree.absoluteFilePath) + "/" + name))
            return Words.taken(Names.oneLine(name));
        var oldPath = tree.absoluteFilePath;
        if (!tree.renameFile(name))
            return Words.notRenamed(Names.oneLine(oldName));
        leave(oldPath);
        return "";
    }

    function namesToDelete() {
        var name = tree.getCurrentItemName();
        return name === "" ? [] : [name];
    }

    // Returns the entries that are there still, each with name and isFolder.
    function deleteMarked() {
        var name = tree.getCurrentItemName();
        var path = tree.absoluteFilePath;
        var isFolder = tree.isDirSelected();
        if (!(isFolder ? tree.deleteSelectedDir() : tree.deleteSelectedFile()))
            return [{ name: name, isFolder: isFolder }];
        leave(path);
        return [];
    }

    // The view would select a neighbour of an entry that is gone, and the next touch of a button mean
    // that one.
    function leave(path) {
        tree.clearSelection();
        if (tree.currentFilepath === path)
            tree.currentFilepath = Names.folderOf(path);
        look();
    }

    // Returns how many files were copied, and the names that failed with what is known of them. The tree
    // tells the one not at all and the other in one text; blanks alone stand for entries that are gone.
    function copyTo(path) {
        var before = list(path).length;
        var failed = tree.copyCheckedFilesTo(path);
        return { copied: list(path).length - before, failed: /^ *$/.test(failed) ? [] : named(failed) };
    }

    function named(text) {
        var known = {};
        collect(tree.root, known, 0);
        return Names.parted(text, known).map(function (name) {
            return known["/" + name] || { folder: "", name: name, bytes: 0 };
        });
    }

    // Puts what lies below a folder into "known", by name. Links may lead round in circles.
    function collect(folder, known, depth) {
        var subfolders = [];
        list(folder).forEach(function (entry) {
            known["/" + entry.name] = entry; // the name alone may be one that every object knows
            if (entry.isFolder)
                subfolders.push(folder + "/" + entry.name);
        });
        for (var i = 0; depth < 8 && i < subfolders.length; ++i)
            collect(subfolders[i], known, depth + 1);
    }

    function list(folder) {
        if (disk.currentPath === folder)
            disk.refresh();
        else
            disk.currentPath = folder; // which lists it
        var shown = disk.files;
        var entries = [];
        for (var i = 0; i < shown.length; ++i)
            entries.push({ folder: folder, name: shown[i].name, isFolder: shown[i].isDir,
                           bytes: Names.bytesOf(shown[i].size) });
        return entries;
    }

    // Names get what the others don't need: not before 640 px there is room for sizes too. The last column,
    // the date, takes what the others leave.
    function fitColumns() {
        var sizeWidth = tree.width < 640 ? 0 : 100;
        tree.setColumnHidden(1, sizeWidth === 0);
        tree.setColumnWidth(1, sizeWidth);
        tree.setColumnWidth(0, tree.width - 44 - sizeWidth - dateSample.paintedWidth - 16);
    }

    // Looks into folders, and answers whether there is a file or folder at a path.
    Fb.Directory {
        id: disk
    }

    // Files come and go by themselves. The tree shows that; whether it shows nothing it does not tell.
    Timer {
        interval: 1000
        repeat: true
        running: screen.visible
        onTriggered: screen.isEmpty = disks.isEmpty(tree.root)
    }

    // A date as the tree writes it, in its font.
    Text {
        id: dateSample
        visible: false
        text: Qt.formatDateTime(new Date(2000, 11, 28, 22, 58, 58), Qt.SystemLocaleShortDate)
        font.family: "OpenSans"
        font.pointSize: 12
    }

    Label {
        objectName: "touchedPath"
        anchors { left: parent.left; leftMargin: 12; right: search.left; rightMargin: 12 }
        height: search.y + search.height + 4
        text: Names.oneLine(screen.touchedPath === "" ? tree.currentFilepath : screen.touchedPath)
        color: Style.faintText
        elide: Text.ElideMiddle
    }

    Button {
        id: search
        objectName: "button:Search"
        anchors { right: parent.right; rightMargin: Style.margin }
        y: 4
        width: 160
        text: tree.nameFilterOn ? qsTr("Only: %1").arg(Names.oneLine(tree.nameFilters)) : qsTr("Search ...")
        kind: tree.nameFilterOn ? "main" : "plain"
        onClicked: screen.wordsWanted()
    }

    // What a technician need not choose stands here: whether rows have boxes, whether folders come before
    // files, whether a touch on a folder goes into it instead of opening it in place, and whether folders of
    // the first level can be opened.
    Fb.FileTreeViewerItem {
        id: tree
        objectName: "tree"
        anchors { top: search.bottom; topMargin: 4; bottom: footer.top; left: parent.left; right: parent.right }
        isSelectable: true
        dirsFirst: true
        openDirs: false
        showRoot: true
        onAbsoluteFilePathChanged: screen.touchedPath = absoluteFilePath
        onWidthChanged: screen.fitColumns()
    }

    Label {
        objectName: "treeEmptyText"
        anchors.centerIn: tree
        visible: screen.isEmpty
        text: qsTr("This folder is empty")
        color: Style.faintText
    }

    MarkedBar {
        id: footer
        anchors.bottom: parent.bottom
        width: parent.width
        summary: qsTr("Checked: %1").arg(Words.size(screen.bytesToCopy))
        onAllChosen: tree.selectAll()
        onNoneChosen: tree.clearAll()
    }

    // Reads nothing before it is looked at: with boxes, the tree reads all below its rows, and a touch on
    // the list would wait for that.
    onVisibleChanged: {
        if (visible && tree.root === "")
            show(tab);
    }

    Component.onCompleted: fitColumns()
}
