// The marked entries of one Listing, each import has its own. The object itself tells their names only
// in one text, parted by blanks that names may have too, and their sizes only as a sum.
var byPath = {};
var files = 0;
var folders = 0;
var bytes = 0;

function add(folder, name, isFolder, size) {
    byPath[folder + "/" + name] = { folder: folder, name: name, isFolder: isFolder, bytes: size };
    count(1, isFolder, size);
}

function remove(path) {
    var entry = byPath[path];
    if (!entry)
        return;
    delete byPath[path];
    count(-1, entry.isFolder, entry.bytes);
}

function clear() {
    byPath = {};
    files = folders = bytes = 0;
}

function count(step, isFolder, size) {
    if (isFolder)
        folders += step;
    else
        files += step;
    bytes += step * size;
}

// Folder by folder.
function entries() {
    var folders = [];
    var inFolder = {};
    for (var path in byPath) {
        var entry = byPath[path];
        if (!inFolder[entry.folder]) {
            inFolder[entry.folder] = [];
            folders.push(inFolder[entry.folder]);
        }
        inFolder[entry.folder].push(entry);
    }
    return Array.prototype.concat.apply([], folders);
}

// As many names as can be read at a glance.
function someNames() {
    var names = [];
    for (var path in byPath) {
        names.push(byPath[path].name);
        if (names.length === 8)
            break;
    }
    return names;
}
