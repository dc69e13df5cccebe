// The copy in hand of one Copier, each import has its own: what waits, how much of it is copied at a time,
// and what was not copied.

// What a file costs beside its bytes, in bytes; and the first portion, small whatever the stick.
var fileCost = 65536;
var firstPortion = 64 * fileCost;

// However fast it went so far: a stick takes the first megabytes into memory, and then all at once no more.
var largestGrowth = 16;
var mostBytes = 32 * 1024 * 1024;

var waiting;
var next;
var failures;
var portion;
var begun;
var workDone;
var workWaiting;

// The folder that is listed, and the places of the names in that list.
var folder;
var places;

function begin(entries) {
    waiting = entries;
    next = 0;
    failures = [];
    portion = firstPortion;
    folder = "";
    begun = now();
    workDone = 0;
    workWaiting = 0;
    for (var i = 0; i < entries.length; ++i)
        workWaiting += work(entries[i]);
}

function isDone() {
    return next === waiting.length;
}

function work(entry) {
    return entry.bytes + fileCost;
}

function now() {
    return new Date().getTime();
}

// The next entries, of one folder, one at least.
function take() {
    var first = next;
    var sum = 0;
    var bytes = 0;
    do {
        sum += work(waiting[next]);
        bytes += waiting[next].bytes;
        ++next;
    } while (next < waiting.length && waiting[next].folder === waiting[first].folder
             && sum + work(waiting[next]) <= portion && bytes + waiting[next].bytes <= mostBytes);
    return { entries: waiting.slice(first, next), work: sum };
}

// The next portion is as much more or less than this one as that took less or more time than it should.
function taken(piece, ms, portionMs) {
    portion = Math.max(fileCost, piece.work * Math.min(largestGrowth, portionMs / Math.max(1, ms)));
    workDone += piece.work;
    workWaiting -= piece.work;
}

function share() {
    return workDone / Math.max(1, workDone + workWaiting);
}

function open(newFolder, newPlaces) {
    folder = newFolder;
    places = newPlaces;
}

// A guess from what was done so far; -1 while that is too little to tell.
function secondsLeft() {
    var seconds = (now() - begun) / 1000;
    return seconds < 0.5 ? -1 : workWaiting * seconds / workDone;
}

function putBack(entries) {
    next -= entries.length;
}

function fail(entry, reason) {
    failures.push({ folder: entry.folder, name: entry.name, isFolder: entry.isFolder, bytes: entry.bytes,
                    reason: reason });
}

// What was not copied, whyever, by path.
function rest() {
    function path(entry) {
        return entry.folder + "/" + entry.name;
    }
    return failures.concat(waiting.slice(next)).sort(function (a, b) {
        return path(a) < path(b) ? -1 : 1;
    });
}
