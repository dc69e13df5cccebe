import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "marks.js" as Marks
import "names.js" as Names

// A Directory with what a screen needs beside it: what is marked, in all folders, and marks that are up
// to date where they matter. By itself a new list gets its marks 200 ms late.
Fb.Directory {
    id: listing

    property int markedFiles: 0
    property int markedFolders: 0
    property int markedCount: markedFiles + markedFolders

    // Of the files. Small ones count in bytes, the others in whole KB as the module sums them up.
    property real markedBytes: 0

    // The first of the marked names.
    property string markedText

    function open(path) {
        selectPath(path);
        updateSelectedFiles();
    }

    function mark(index, on) {
        updateSelectedFiles();
        setMark(files, index, on);
        tellMarks();
    }

    function markAll() {
        updateSelectedFiles();
        var shown = files;
        for (var i = 0; i < shown.length; ++i) {
            if (!shown[i].isDir)
                setMark(shown, i, true);
        }
        tellMarks();
    }

    function unmarkAll() {
        clearAll();
        Marks.clear();
        tellMarks();
    }

    // Marks these entries and no others. Their folders are listed for that, and then the present one again.
    function markOnly(entries) {
        unmarkAll();
        if (entries.length === 0)
            return;
        var shownPath = currentPath;
        var shown;
        var places;
        for (var i = 0; i < entries.length; ++i) {
            if (i === 0 || entries[i].folder !== entries[i - 1].folder) {
                currentPath = entries[i].folder;
                shown = files;
                places = Names.placesIn(shown);
            }
            var place = places["/" + entries[i].name];
            if (place !== undefined)
                setMark(shown, place, true);
        }
        currentPath = shownPath;
        updateSelectedFiles();
        tellMarks();
    }

    // Marking an entry twice would count its size twice.
    function setMark(shown, index, on) {
        var file = shown[index];
        if (file.isSelected === on)
            return;
        var before = selectedFilesKB;
        setIsSelectedAt(index, on);
        if (!on)
            Marks.remove(currentPath, file.name);
        else if (file.isDir)
            Marks.add(currentPath, file.name, true, 0);
        else
            Marks.add(currentPath, file.name, false, selectedFilesKB > before
                      ? (selectedFilesKB - before) * 1024 : Names.bytesOf(file.size));
    }

    function tellMarks() {
        markedFiles = Marks.files;
        markedFolders = Marks.folders;
        markedBytes = Marks.bytes;
        markedText = Marks.someNames().map(Names.oneLine).join(", ");
    }

    // The marked entries, each with folder, name, isFolder and bytes, folder by folder.
    function markedEntries() {
        return Marks.entries();
    }

    // Names of the marked entries that are shown.
    function markedNames() {
        updateSelectedFiles();
        var shown = files;
        var names = [];
        for (var i = 0; i < shown.length; ++i) {
            if (shown[i].isSelected)
                names.push(shown[i].name);
        }
        return names;
    }

    // Entries that got other names or are gone must not stay in the selection.
    function forget(names) {
        updateSelectedFiles();
        var shown = files;
        for (var i = 0; i < names.length; ++i) {
            var index = getIndex(names[i]);
            if (index >= 0)
                setMark(shown, index, false);
        }
        tellMarks();
    }

    function isFolder(name) {
        var index = getIndex(name);
        return index >= 0 && files[index].isDir;
    }

    function pathOf(name) {
        return currentPath + "/" + name;
    }
}
