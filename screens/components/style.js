.pragma library

// The colours of the tree's style sheets and the sizes of a finger.
var blue = "#0076BC";
var lightBlue = "#00A7E0";
var pale = "#c5e4f5";
var pressed = "#D4DFEC";
var text = "#333333";
var faintText = "#6b6b6b";
var line = "#CCCCCC";
var softLine = "#e8e8e8";
var frame = "#9db7d3";
var surface = "#F7F7F7";
var warning = "#b3261e";

var rowHeight = 48;
var buttonHeight = 46;
var margin = 8;
var fontPixels = 16;
var smallFontPixels = 14;

// A name may hold any character but "/" and the end of a string: show it on one line.
function oneLine(name) {
    return name.replace(/[\x00-\x1f\x7f]/g, "?");
}

function lastPart(path) {
    return path.substring(path.lastIndexOf("/") + 1);
}

function folderOf(path) {
    return path.substring(0, path.lastIndexOf("/"));
}

// Bytes as text: whole numbers up to KB, then one decimal.
function size(bytes) {
    var units = ["bytes", "KB", "MB", "GB", "TB"];
    var unit = 0;
    while (bytes >= 1024 && unit < units.length - 1) {
        bytes /= 1024;
        ++unit;
    }
    return bytes.toFixed(unit < 2 ? 0 : 1) + " " + units[unit];
}

// Why an entry can't have this name; empty when it can.
function nameProblem(name) {
    if (name === "")
        return "A name needs at least one character.";
    if (name === "." || name === "..")
        return "\"" + name + "\" is no name for a file or folder.";
    if (name.indexOf("/") !== -1)
        return "A name can't contain \"/\".";
    return "";
}
