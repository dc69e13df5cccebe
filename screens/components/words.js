// What the screens write, each kind of thing in one way. No library: "numbers" belongs to the context of
// whoever imports this, see the viewer's LocaleNumbers.

function whole(number) {
    return numbers.text(number, 0);
}

// The largest unit in which the number is at least 1.
function unitOf(bytes) {
    var unit = 0;
    for (; Math.round(bytes) >= 1024 && unit < 4; ++unit)
        bytes /= 1024;
    return unit;
}

// One decimal where it tells something: from MB on and below 10.
function inUnit(bytes, unit) {
    var number = bytes / Math.pow(1024, unit);
    var tenths = Math.round(number * 10);
    return unit > 1 && tenths < 100 && tenths % 10 !== 0 ? numbers.text(tenths / 10, 1) : whole(number);
}

function size(bytes) {
    var unit = unitOf(bytes);
    if (unit === 0)
        return qsTr("%Ln byte(s)", "", Math.round(bytes));
    return inUnit(bytes, unit) + " " + [qsTr("KB"), qsTr("MB"), qsTr("GB"), qsTr("TB")][unit - 1];
}

// As in "20 of 42 MB".
function sizeOf(part, all) {
    return qsTr("%1 of %2").arg(inUnit(part, unitOf(all))).arg(size(all));
}

function files(count) {
    return qsTr("%Ln file(s)", "", count);
}

function folders(count) {
    return qsTr("%Ln folder(s)", "", count);
}

// What is still to be waited for, in steps that don't flicker.
function timeLeft(seconds) {
    if (seconds < 60)
        return qsTr("About %Ln second(s) left", "", seconds < 10 ? Math.max(1, Math.round(seconds))
                                                                 : Math.round(seconds / 5) * 5);
    if (seconds < 3600)
        return qsTr("About %Ln minute(s) left", "", Math.round(seconds / 60));
    return qsTr("About %Ln hour(s) left", "", Math.round(seconds / 3600));
}

// Why an entry was not copied: see Copier.why().
function reason(code) {
    switch (code) {
    case "folder":
        return qsTr("A folder: only files are copied");
    case "there":
        return qsTr("There already, left as it was");
    case "full":
        return qsTr("The stick is full");
    case "protected":
        return qsTr("The stick is write-protected");
    case "gone":
        return qsTr("The stick is gone");
    case "missing":
        return qsTr("No longer in its folder");
    default:
        return qsTr("Could not be written");
    }
}

// Why an entry can't have this name; empty when it can.
function nameProblem(name) {
    if (name === "")
        return qsTr("A name needs at least one character.");
    if (name === "." || name === "..")
        return qsTr("\"%1\" is no name for a file or folder.").arg(name);
    if (name.indexOf("/") !== -1)
        return qsTr("A name can't contain \"/\".");
    return "";
}

function taken(name) {
    return qsTr("\"%1\" exists already.").arg(name);
}

function notMade(name) {
    return qsTr("\"%1\" could not be made.").arg(name);
}

function notRenamed(name) {
    return qsTr("\"%1\" could not be renamed.").arg(name);
}
