// The marked entries of one Listing, each import has its own, folder by folder. The object itself tells their
// names only in one text, parted by blanks that names may have too, and their sizes only as a sum.
var byFolder = {};
var files = 0;
var folders = 0;
var bytes = 0;

function add(folder, name, isFolder, size) {
    if (!byFolder[folder])
        byFolder[folder] = [];
    var marks = byFolder[folder];
    // One text for all: there may be many thousands.
    marks.push({ folder: marks.length > 0 ? marks[0].folder : folder, name: name, isFolder: isFolder, bytes: size });
    count(1, isFolder, size);
}

function remove(folder, name) {
    var marks = byFolder[folder] || [];
    for (var i = 0; i < marks.length; ++i) {
        if (marks[i].name === name) {
            count(-1, marks[i].isFolder, marks[i].bytes);
            marks.splice(i, 1);
            return;
        }
    }
}

function clear() {
    byFolder = {};
    files = folders = bytes = 0;
}

function count(step, isFolder, size) {
    if (isFolder)
        folders += step;
    else
        files += step;
    bytes += step * size;
}

function entries() {
    var all = [];
    for (var folder in byFolder)
        all = all.concat(byFolder[folder]);
    return all;
}

// As many names as can be read at a glance.
function someNames() {
    return entries().slice(0, 8).map(function (entry) { return entry.name; });
}
