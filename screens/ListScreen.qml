import QtQuick 1.1
import "components"
import "components/style.js" as Style

// The data folders as flat lists.
Item {
    id: screen

    property variant tabs: ["Logs", "Soil", "Graphs", "Configs", "Programs"]
    property int tab: 0
    property QtObject listing: tab === 4 ? programs : folders

    property int markedCount: listing.markedCount
    property bool canRename: markedCount === 1
    property bool canDelete: markedCount > 0

    property bool canCopy: markedCount > 0
    property string marked: markedCount + (markedCount === 1 ? " entry" : " entries")

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
            return taken(name);
        return listing.newFile(listing.pathOf(name)) ? "" : refused(name, "made");
    }

    function newFolder(name) {
        if (listing.exists(name))
            return taken(name);
        return listing.newDirectory(name) ? "" : refused(name, "made");
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
            return taken(name);
        var directory = unfiltered();
        if (!directory.renameFile(directory.getIndex(oldName), name))
            return refused(oldName, "renamed");
        listing.forget(oldName);
        return "";
    }

    function namesToDelete() {
        return listing.markedNames();
    }

    function deleteMarked() {
        var names = listing.markedNames();
        var directory = unfiltered();
        var kept = [];
        for (var i = 0; i < names.length; ++i) {
            if (directory.deleteFile(directory.getIndex(names[i])))
                listing.forget(names[i]);
            else
                kept.push(Style.oneLine(names[i]));
        }
        return kept.length === 0 ? "" : "Not deleted: " + kept.join(", ");
    }

    function copyTo(path) {
        return listing.copySelectedTo(path);
    }

    function taken(name) {
        return "\"" + Style.oneLine(name) + "\" exists already.";
    }

    function refused(name, what) {
        return "\"" + Style.oneLine(name) + "\" could not be " + what + ".";
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

    Breadcrumb {
        id: breadcrumb
        width: parent.width
        height: 44
        listing: screen.listing
    }

    SortBar {
        id: headings
        anchors.top: breadcrumb.bottom
        width: parent.width
        height: 44
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
        height: 60
        summary: screen.markedCount === 0
            ? "Nothing selected"
            : screen.markedCount + " selected, " + Style.size(screen.listing.markedKB * 1024)
        detail: Style.oneLine(screen.listing.selectedFiles)
        onAllChosen: screen.listing.markAll()
        onNoneChosen: screen.listing.clearAll()
    }

    Component.onCompleted: show(0)
}
