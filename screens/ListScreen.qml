import QtQuick 1.1
import "components"
import "components/style.js" as Style
import "components/names.js" as Names
import "components/words.js" as Words

// The data folders as flat lists.
Item {
    id: screen

    property variant tabs: ["Logs", "Soil", "Graphs", "Configs", "Programs"]
    property variant tabTexts: [qsTr("Logs"), qsTr("Soil"), qsTr("Graphs"), qsTr("Configs"), qsTr("Programs")]
    property int tab: 0
    property QtObject listing: tab === 4 ? programs : folders

    property bool canRename: listing.markedCount === 1
    property bool canDelete: listing.markedCount > 0
    property bool canCopy: listing.markedCount > 0

    // Touching the tab that is shown already leads back to its top.
    function show(index) {
        tab = index;
        if (index === 0)
            folders.viewLogDirectory();
        else if (index === 1)
            folders.viewSoilFluxDirectory();
        else if (index === 2)
            folders.viewGraphDefinitionDirectory();
        else if (index === 3)
            folders.viewConfigsDirectory();
        else
            programs.viewScriptDirectory();
        listing.currentPath = listing.root;
        listing.refresh();
        listing.updateSelectedFiles();
    }

    // Each of the following returns what went wrong, or nothing.

    function newFile(name) {
        if (listing.exists(name))
            return Words.taken(Names.oneLine(name));
        return listing.newFile(listing.pathOf(name)) ? "" : Words.notMade(Names.oneLine(name));
    }

    function newFolder(name) {
        if (listing.exists(name))
            return Words.taken(Names.oneLine(name));
        return listing.newDirectory(name) ? "" : Words.notMade(Names.oneLine(name));
    }

    function nameToRename() {
        var names = listing.markedNames();
        return names.length === 1 ? names[0] : "";
    }

    function rename(name) {
        var oldName = nameToRename();
        if (name === oldName)
            return "";
        if (listing.exists(name))
            return Words.taken(Names.oneLine(name));
        var directory = unfiltered();
        if (!directory.renameFile(directory.getIndex(oldName), name))
            return Words.notRenamed(Names.oneLine(oldName));
        listing.forget([oldName]);
        return "";
    }

    function namesToDelete() {
        return listing.markedNames();
    }

    // Returns the entries that are there still, each with name and isFolder.
    function deleteMarked() {
        var names = listing.markedNames();
        var directory = unfiltered();
        var gone = [];
        var kept = [];
        for (var i = 0; i < names.length; ++i) {
            if (directory.deleteFile(directory.getIndex(names[i])))
                gone.push(names[i]);
            else
                kept.push({ name: names[i], isFolder: listing.isFolder(names[i]) });
        }
        listing.forget(gone);
        return kept;
    }

    // Rename and delete count the entries of the folder, the list those that pass the filter. Where a
    // filter is set, an object without one finds the right index.
    function unfiltered() {
        if (listing !== programs)
            return listing;
        everything.currentPath = programs.currentPath;
        everything.refresh();
        return everything;
    }

    function summary() {
        var files = listing.markedFiles;
        var folders = listing.markedFolders;
        if (files > 0 && folders > 0)
            return qsTr("%1 and %2, %3").arg(Words.files(files)).arg(Words.folders(folders))
                                        .arg(Words.size(listing.markedBytes));
        if (files > 0)
            return qsTr("%Ln file(s) selected, %1", "", files).arg(Words.size(listing.markedBytes));
        return folders > 0 ? qsTr("%Ln folder(s) selected", "", folders) : qsTr("Nothing selected");
    }

    Listing {
        id: folders
    }

    // The filter for programs would stay when another folder is shown: an object of their own.
    Listing {
        id: programs
    }

    Listing {
        id: everything
        onUpdateDirectory: programs.refresh()
    }

    // The tab names the top folder already.
    Breadcrumb {
        id: breadcrumb
        width: parent.width
        height: visible ? Style.touch : 0
        visible: screen.listing.pathsCount > 1
        listing: screen.listing
    }

    SortBar {
        id: headings
        anchors.top: breadcrumb.bottom
        width: parent.width
        listing: screen.listing
    }

    FileList {
        anchors { top: headings.bottom; bottom: footer.top }
        width: parent.width
        listing: screen.listing
    }

    MarkedBar {
        id: footer
        anchors.bottom: parent.bottom
        width: parent.width
        summary: screen.summary()
        detail: screen.listing.markedText
        onAllChosen: screen.listing.markAll()
        onNoneChosen: screen.listing.unmarkAll()
    }

    Component.onCompleted: show(0)
}
