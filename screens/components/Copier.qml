import QtQuick 1.1
import FileBrowser 1.0 as Fb
import "copying.js" as Copy
import "names.js" as Names

// Copies entries in portions, with an object of its own for that. Between portions, of less than half a second
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
    property int portionMs: 400

    // Name of the file that is copied next.
    property string inHand

    // Why not everything was tried: "stopped", a reason that concerns the whole stick, or what the account
    // check says.
    property string end

    signal finished

    // Copies what is marked in a Listing.
    function start(listing, path) {
        Copy.begin(listing.markedEntries(), listing.markedBytes, listing.markedFolders > 0);
        destination = path;
        filesDone = 0;
        filesTotal = listing.markedFiles;
        bytesDone = 0;
        bytesTotal = listing.markedBytes;
        inHand = Copy.waiting.length > 0 ? Copy.waiting[0].name : "";
        share = 0;
        secondsLeft = -1;
        end = "";
        isRunning = true;
        letDraw();
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
        return entries.reduce(function (sum, entry) {
            return entry.isFolder || worker.exists(path + "/" + entry.name) ? sum : sum + entry.bytes;
        }, 0);
    }

    // Why an entry was not copied; for the words see reason() in words.js.
    function why(entry, path) {
        if (entry.isFolder)
            return "folder";
        if (worker.exists(path + "/" + entry.name))
            return "there";
        var free = stickSlots.freeBytes(path);
        if (free < 0)
            return "gone";
        if (disks.isWriteProtected(path))
            return "protected";
        if (free < entry.bytes + largestCluster)
            return "full";
        return entry.folder !== "" && !worker.exists(entry.folder + "/" + entry.name) ? "missing" : "unknown";
    }

    // A file takes whole clusters.
    property int largestCluster: 32768

    // As long as Qt Quick takes to begin with the drawing.
    function letDraw() {
        afterDrawing.interval = 6;
        afterDrawing.start();
    }

    function goOn() {
        if (!isRunning)
            return;
        if (Copy.piece === null)
            take();
        var problem = Copy.isDone() ? "" : obstacle();
        if (problem === "" && !Copy.isDone())
            problem = copyPiece();
        if (problem === "")
            pause();
        else
            finish(problem);
    }

    // What comes next is looked for while nothing else could be done anyway.
    function pause() {
        letDraw();
        take();
        if (Copy.isDone()) {
            finish("");
            return;
        }
        inHand = Copy.waiting[Copy.piece.first].name;
        share = Copy.share();
        secondsLeft = Copy.secondsLeft();
    }

    // Lists each folder once, however many portions come from it.
    function take() {
        Copy.take(worker.files, Names.placesIn);
        while (Copy.isDone() && Copy.next < Copy.waiting.length) {
            list(Copy.waiting[Copy.next].folder);
            Copy.take(worker.files, Names.placesIn);
        }
    }

    function list(folder) {
        if (worker.currentPath === folder)
            worker.refresh();
        else
            worker.currentPath = folder; // which does it
        Copy.open(folder);
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

    function copyPiece() {
        var piece = Copy.piece;
        var begun = Copy.now();
        for (var i = 0; i < piece.places.length; ++i)
            worker.setIsSelectedAt(piece.places[i], true);
        var failed = worker.copySelectedTo(destination);
        // Not only 200 ms later, as the call does by itself: the next portion may be marked by then.
        worker.clearSelectedFiles();
        var problem = failed === "" ? "" : obstacle();
        if (problem !== "")
            return problem;
        filesDone += piece.places.length;
        bytesDone += piece.bytes;
        if (failed !== "")
            sortOut(Copy.inHand(), failed);
        Copy.finishPiece(Copy.now() - begun, portionMs);
        return "";
    }

    // Puts down what failed of a portion.
    function sortOut(entries, failed) {
        var byName = {};
        entries.forEach(function (entry) { byName["/" + entry.name] = entry; });
        Names.parted(failed, byName).forEach(function (name) {
            var entry = byName["/" + name];
            if (!entry)
                return;
            Copy.fail(entry, why(entry, destination));
            filesDone -= 1;
            bytesDone -= entry.bytes;
        });
    }

    Fb.Directory {
        id: worker
    }

    // The user-interface process's own QTimer, for the reason that Busy.qml tells.
    Component.onCompleted: afterDrawing.timeout.connect(goOn)
}
