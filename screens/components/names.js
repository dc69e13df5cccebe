.pragma library

// Names and paths of files.

// A name may hold any character but "/" and the end of a string. Shown on one line, and in the
// direction of its own letters: the other characters only steer.
function oneLine(name) {
    return name.replace(/[\n\r\u0085\u2028\u2029]/g, "\u00b6")
               .replace(/[\x00-\x1f\x7f\u200e\u200f\u202a-\u202e\u2066-\u2069]/g, "\u00b7");
}

function lastPart(path) {
    return path.substring(path.lastIndexOf("/") + 1);
}

function folderOf(path) {
    return path.substring(0, path.lastIndexOf("/"));
}

// The names in a text that has a blank between them, though names may have blanks too: at each place
// the longest one that is known, else the next word. "known" has the names with "/" in front as keys.
function parted(text, known) {
    var mostWords = 1;
    for (var key in known)
        mostWords = Math.max(mostWords, key.split(" ").length);
    var words = text.split(" ");
    var names = [];
    var last = 0;
    for (var first = 0; first < words.length; first = last) {
        last = Math.min(words.length, first + mostWords);
        while (last > first + 1 && !known["/" + words.slice(first, last).join(" ")])
            --last;
        names.push(words.slice(first, last).join(" "));
    }
    return names;
}

// The places of the entries in a list, each by "/" and its name: the name alone may be one that every object
// knows.
function placesIn(list) {
    var places = {};
    for (var i = 0; i < list.length; ++i)
        places["/" + list[i].name] = i;
    return places;
}

// The bytes that a size as the module writes it stands for, as in "33 KB".
function bytesOf(size) {
    var units = ["bytes", "KB", "MB", "GB", "TB"];
    var words = size.split(" ");
    return Number(words[0]) * Math.pow(1024, Math.max(0, units.indexOf(words[1])));
}
