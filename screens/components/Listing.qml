import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "style.js" as Style

// A Directory with what a screen needs beside it: a count of the marked entries, and marks that are up
// to date where they matter. By itself a new list gets its marks 200 ms late.
Fb.Directory {
    id: listing

    // Marked entries in all folders. The names in selectedFiles can't be counted: they may have blanks.
    property int markedCount: 0

    // selectedFilesKB has a signal of its own that marking does not send.
    property int markedKB: 0

    onSelectedFilesChanged: {
        markedKB = selectedFilesKB;
        if (selectedFiles === "")
            markedCount = 0;
    }

    function open(path) {
        selectPath(path);
        updateSelectedFiles();
    }

    // Marking an entry twice would count its size twice.
    function mark(index, on) {
        updateSelectedFiles();
        if (files[index].isSelected === on)
            return;
        markedCount += on ? 1 : -1;
        setIsSelectedAt(index, on);
    }

    function markAll() {
        updateSelectedFiles();
        var shown = files;
        for (var i = 0; i < shown.length; ++i) {
            if (!shown[i].isDir && !shown[i].isSelected)
                ++markedCount;
        }
        selectAll();
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

    // An entry that got another name or is gone must not stay in the selection.
    function forget(name) {
        var index = getIndex(name);
        if (index >= 0)
            mark(index, false);
    }

    function pathOf(name) {
        return currentPath + "/" + name;
    }
}
