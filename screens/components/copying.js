// The copy in hand of one Copier, each import has its own: what waits, how much of it is copied at a time,
// and what was not copied. For many thousands of files: each is looked at once.

// What a file costs beside its bytes, in bytes; and the first portion, small whatever the stick.
var fileCost = 65536;
var firstPortion = 64 * fileCost;

// However fast it went so far: a stick takes the first megabytes into memory, and then all at once no more.
var largestGrowth = 64;
var mostBytes = 32 * 1024 * 1024;

var waiting;
var next;
var failures;
var portion;
var begun;
var workDone;
var workWaiting;

// The folder that is listed, where in its list the next entry is most likely, and, once one was not there,
// the places of all.
var folder;
var likely;
var places;

// What is copied next: from which entry on, up to "next", the places in the list, and the sums of bytes and
// work.
var piece;

function begin(entries, bytes, hasFolders) {
    waiting = entries;
    next = 0;
    failures = [];
    if (hasFolders) {
        waiting = entries.filter(function (entry) { return !entry.isFolder; });
        entries.forEach(function (entry) {
            if (entry.isFolder)
                fail(entry, "folder");
        });
    }
    portion = firstPortion;
    begun = now();
    workDone = 0;
    workWaiting = bytes + waiting.length * fileCost;
    folder = "";
    piece = null;
}

function now() {
    return new Date().getTime();
}

// A new folder is listed.
function open(newFolder) {
    folder = newFolder;
    likely = 0;
    places = null;
}

// Takes the next entries of the folder, one at least if there is any that its list has still.
// "placesIn" is that of names.js, which this file can't import on Qt 4.8.
function take(list, placesIn) {
    piece = { first: next, places: [], bytes: 0, work: 0 };
    while (next < waiting.length && waiting[next].folder === folder) {
        var entry = waiting[next];
        var bytes = piece.bytes + entry.bytes;
        var work = piece.work + entry.bytes + fileCost;
        if (piece.work > 0 && (work > portion || bytes > mostBytes))
            return;
        var place = placeOf(entry.name, list, placesIn);
        if (place === undefined) {
            fail(entry, "missing");
            waiting.splice(next, 1);
            continue;
        }
        likely = place + 1;
        piece.places.push(place);
        piece.bytes = bytes;
        piece.work = work;
        ++next;
    }
}

// Most entries wait in the order of the list.
function placeOf(name, list, placesIn) {
    var file = list[likely];
    if (file && file.name === name)
        return likely;
    if (places === null)
        places = placesIn(list);
    return places["/" + name];
}

// The entries of the piece.
function inHand() {
    return waiting.slice(piece.first, next);
}

function isDone() {
    return piece !== null && piece.work === 0;
}

// The next portion is as much more or less than this one as that took less or more time than it should.
function finishPiece(ms, portionMs) {
    portion = Math.max(fileCost, piece.work * Math.min(largestGrowth, portionMs / Math.max(1, ms)));
    workDone += piece.work;
    workWaiting -= piece.work;
    piece = null;
}

function share() {
    return workDone / Math.max(1, workDone + workWaiting);
}

// A guess from what was done so far; -1 while that is too little to tell.
function secondsLeft() {
    var seconds = (now() - begun) / 1000;
    return seconds < 0.5 ? -1 : workWaiting * seconds / workDone;
}

function fail(entry, reason) {
    failures.push({ folder: entry.folder, name: entry.name, isFolder: entry.isFolder, bytes: entry.bytes,
                    reason: reason });
}

// What was not copied, whyever, folder by folder.
function rest() {
    var byFolder = {};
    failures.concat(waiting.slice(piece ? piece.first : next)).forEach(function (entry) {
        if (!byFolder[entry.folder])
            byFolder[entry.folder] = [];
        byFolder[entry.folder].push(entry);
    });
    var all = [];
    for (var folder in byFolder)
        all = all.concat(byFolder[folder]);
    return all;
}
