import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "copying.js" as Copy
import "names.js" as Names

// Copies entries in portions, with an object of its own for that. Between portions, of a quarter of a second
// or one file, the screen is drawn and listens. What can't be copied doesn't keep the rest from it.
Item {
    id: copier

    // Tells whether a stick is there still, and its space.
    property QtObject stickSlots

    property string destination
    property bool isRunning: false

    property int filesDone: 0
    property int filesTotal: 0
    property real bytesDone: 0
    property real bytesTotal: 0

    // How much of the work is done, from 0 to 1: files that fail are done too.
    property real share: 0

    // Below 0 while it can't be told.
    property real secondsLeft: -1

    // As long as a finger on "Cancel" may wait, if no single file takes longer. A shorter time means more
    // pauses for the drawing.
    property int portionMs: 250

    // Name of the file that is copied next.
    property string inHand

    // Why not everything was tried: "stopped", a reason that concerns the whole stick, or what the account
    // check says.
    property string end

    signal finished

    // Takes entries as Listing.markedEntries() gives them.
    function start(entries, path) {
        var files = entries.filter(function (entry) { return !entry.isFolder; });
        Copy.begin(files);
        entries.forEach(function (entry) {
            if (entry.isFolder)
                Copy.fail(entry, "folder");
        });
        destination = path;
        filesDone = 0;
        filesTotal = files.length;
        bytesDone = 0;
        bytesTotal = bytesOf(files);
        end = "";
        isRunning = true;
        pause();
    }

    function stop() {
        finish("stopped");
    }

    // Names and reasons of what was tried and not copied.
    function failures() {
        return Copy.failures;
    }

    // The entries that were not copied.
    function rest() {
        return Copy.rest();
    }

    // What the files need on a stick, when those that are there already are left out.
    function bytesNeeded(entries, path) {
        return bytesOf(entries.filter(function (entry) {
            return !entry.isFolder && !worker.exists(path + "/" + entry.name);
        }));
    }

    // Why an entry was not copied; for the words see reason() in words.js.
    function why(entry, path) {
        var free = stickSlots.freeBytes(path);
        if (entry.isFolder)
            return "folder";
        if (free < 0)
            return "gone";
        if (worker.exists(path + "/" + entry.name))
            return "there";
        if (disks.isWriteProtected(path))
            return "protected";
        if (free < entry.bytes + largestCluster)
            return "full";
        return entry.folder !== "" && !worker.exists(entry.folder + "/" + entry.name) ? "missing" : "unknown";
    }

    // A file takes whole clusters.
    property int largestCluster: 32768

    function bytesOf(entries) {
        return entries.reduce(function (sum, entry) { return sum + entry.bytes; }, 0);
    }

    // As long as drawing takes.
    function pause() {
        inHand = Copy.isDone() ? "" : Copy.waiting[Copy.next].name;
        share = Copy.share();
        secondsLeft = Copy.secondsLeft();
        afterDrawing.interval = 12;
        afterDrawing.start();
    }

    function goOn() {
        if (!isRunning)
            return;
        var problem = Copy.isDone() ? "" : obstacle();
        if (problem === "" && !Copy.isDone())
            problem = copyPortion();
        if (problem !== "" || Copy.isDone())
            finish(problem);
        else
            pause();
    }

    function finish(newEnd) {
        if (!isRunning)
            return;
        end = newEnd;
        isRunning = false;
        finished();
    }

    // What keeps everything from being copied.
    function obstacle() {
        if (stickSlots.freeBytes(destination) < 0)
            return "gone";
        if (disks.isWriteProtected(destination))
            return "protected";
        return account.refusal();
    }

    function copyPortion() {
        var piece = Copy.take();
        open(piece.entries[0].folder);
        var begun = Copy.now();
        var tried = mark(piece.entries);
        var failed = tried.length === 0 ? "" : worker.copySelectedTo(destination);
        // Not only 200 ms later, as the call does by itself: the next portion may be marked by then.
        worker.clearSelectedFiles();
        if (failed !== "") {
            var problem = obstacle();
            if (problem !== "") {
                Copy.putBack(piece.entries);
                return problem;
            }
            tried = sortOut(tried, failed);
        }
        filesDone += tried.length;
        bytesDone += bytesOf(tried);
        Copy.taken(piece, Copy.now() - begun, portionMs);
        return "";
    }

    // Lists a folder once, however many portions come from it.
    function open(folder) {
        if (folder === Copy.folder)
            return;
        if (worker.currentPath === folder)
            worker.refresh();
        else
            worker.currentPath = folder; // which lists it
        Copy.open(folder, worker.placesByName());
    }

    // Marks what is in the open folder still, and returns it.
    function mark(entries) {
        var places = Copy.places;
        var found = [];
        for (var i = 0; i < entries.length; ++i) {
            var place = places[entries[i].name];
            if (place === undefined) {
                Copy.fail(entries[i], "missing");
            } else {
                worker.setIsSelectedAt(place, true);
                found.push(entries[i]);
            }
        }
        return found;
    }

    // Puts down what failed of a portion, and returns the rest of it.
    function sortOut(tried, failed) {
        var isName = {};
        tried.forEach(function (entry) { isName[entry.name] = true; });
        var isFailed = {};
        Names.parted(failed, function (name) { return isName[name]; })
             .forEach(function (name) { isFailed[name] = true; });
        return tried.filter(function (entry) {
            if (isFailed[entry.name])
                Copy.fail(entry, why(entry, destination));
            return !isFailed[entry.name];
        });
    }

    Listing {
        id: worker
    }

    // The user-interface process's own QTimer, for the reason that Busy.qml tells.
    Component.onCompleted: afterDrawing.timeout.connect(goOn)
}
