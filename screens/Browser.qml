import QtQuick 1.1
import "components"
import "components/style.js" as Style
import "components/names.js" as Names
import "components/words.js" as Words

// The screens with what they share: tabs, sticks, actions and dialogs.
Item {
    id: browser

    property Item screen: list

    // Every call that changes files asks for the account first: see the viewer's AccountCheck.
    function attempt(action) {
        var problem = account.refusal();
        if (problem === "")
            problem = action();
        if (problem !== "")
            notice.complain(problem, "");
    }

    function perform(task, name) {
        attempt(function () {
            if (task === "filter")
                return tree.setFilter(name);
            var problem = Words.nameProblem(name);
            if (problem !== "")
                return problem;
            if (task === "file")
                return browser.screen.newFile(name);
            if (task === "folder")
                return browser.screen.newFolder(name);
            return browser.screen.rename(name);
        });
    }

    function askForNewName() {
        var name = screen.nameToRename();
        if (name === "")
            notice.complain(qsTr("Select an entry of this folder first."), "");
        else
            nameDialog.ask("rename", qsTr("New name of \"%1\"").arg(Names.oneLine(name)), name);
    }

    function askWhetherToDelete() {
        var names = screen.namesToDelete().map(Names.oneLine);
        if (names.length === 0) {
            notice.complain(qsTr("Select an entry of this folder first."), "");
        } else if (names.length === 1) {
            question.ask("delete", qsTr("Delete \"%1\"?").arg(names[0]), "", qsTr("Delete"));
        } else {
            question.ask("delete", qsTr("Delete these %Ln entry(s)?", "", names.length), "", qsTr("Delete"));
            question.list(names);
        }
    }

    function deleteMarked() {
        var count = screen.namesToDelete().length;
        var kept = screen.deleteMarked();
        if (kept.length > 0)
            outcome.show(qsTr("%1 of %Ln entry(s) deleted", "", count).arg(Words.whole(count - kept.length)), "",
                         kept.map(function (entry) {
                             return { name: Names.oneLine(entry.name),
                                      remark: entry.isFolder ? qsTr("Only empty folders can be deleted.")
                                                             : qsTr("Could not be deleted.") };
                         }));
        return "";
    }

    function stickName(path) {
        return Names.oneLine(Names.lastPart(path));
    }

    function askForMarks() {
        notice.complain(qsTr("Nothing is selected."), qsTr("Mark what is to be copied first."));
    }

    // Says before the copy what would come out of it, where that is known.
    function askWhetherToCopy(path) {
        var free = sticks.freeBytes(path);
        var needed = bytesNeeded(path, free);
        if (!screen.canCopy)
            askForMarks();
        else if (free < 0)
            notice.complain(qsTr("Nothing was copied to %1.").arg(stickName(path)), Words.reason("gone"));
        else if (disks.isWriteProtected(path))
            notice.complain(qsTr("Nothing was copied to %1.").arg(stickName(path)), Words.reason("protected"));
        else if (needed > free)
            question.ask("copy", qsTr("Needs %1, %2 are free on %3.").arg(Words.size(needed)).arg(Words.size(free))
                                                                    .arg(stickName(path)),
                         qsTr("What does not fit is left out."), qsTr("Copy"));
        else
            copyTo(path);
    }

    // Files that are there already need nothing, but to look for them takes a while.
    function bytesNeeded(path, free) {
        if (screen === tree)
            return tree.bytesToCopy;
        var needed = list.listing.markedBytes;
        return needed <= free ? needed : copier.bytesNeeded(list.listing.markedEntries(), path);
    }

    function copyTo(path) {
        if (screen === list)
            copier.start(list.listing, path);
        else
            copyingAtOnce.start(qsTr("Copying %1 to %2 ...").arg(Words.size(tree.bytesToCopy)).arg(stickName(path)));
    }

    function copyTreeTo(path) {
        var result = tree.copyTo(path);
        var files = result.failed.filter(function (entry) { return !entry.isFolder; });
        if (result.copied + result.failed.length === 0)
            askForMarks();
        else
            tellCopied(path, result.copied, result.copied + files.length, "",
                       result.failed.map(function (entry) {
                           return { name: entry.name, reason: copier.why(entry, path) };
                       }));
    }

    function tellEndOfCopy() {
        var rest = copier.rest();
        list.listing.markOnly(rest);
        var waiting = rest.length - copier.failures().length;
        var detail = copier.end === "" ? ""
            : [copier.end === "stopped" ? qsTr("Stopped.")
                   : copier.end === "gone" || copier.end === "protected" ? Words.reason(copier.end) + "." : copier.end,
               qsTr("%Ln file(s) were not tried and stay marked.", "", waiting)].join(" ");
        tellCopied(copier.destination, copier.filesDone, copier.filesTotal, detail, copier.failures());
    }

    // A count of all, and whatever did not become a copy by name.
    function tellCopied(path, copied, all, detail, failures) {
        sticks.look();
        if (failures.length === 0 && detail === "")
            notice.tell(qsTr("%Ln file(s) copied to %1", "", copied).arg(stickName(path)),
                        qsTr("Eject the stick before you pull it."));
        else
            outcome.show(qsTr("%1 of %Ln file(s) copied to %2", "", all).arg(Words.whole(copied))
                                                                        .arg(stickName(path)), detail,
                         failures.map(function (entry) {
                             return { name: Names.oneLine(entry.name), remark: Words.reason(entry.reason) };
                         }));
    }

    Rectangle {
        id: bar
        width: parent.width
        height: Style.touch
        color: Style.blue

        Tabs {
            anchors.left: parent.left
            height: parent.height
            names: browser.screen.tabs
            texts: browser.screen.tabTexts
            current: browser.screen.tab
            onChosen: browser.attempt(function () { browser.screen.show(choice); return ""; })
        }

        Tabs {
            anchors.right: parent.right
            height: parent.height
            names: ["List", "Tree"]
            texts: [qsTr("List"), qsTr("Tree")]
            current: browser.screen === list ? 0 : 1
            onChosen: browser.screen = choice === 0 ? list : tree
        }
    }

    ListScreen {
        id: list
        anchors { top: bar.bottom; bottom: parent.bottom; left: parent.left; right: rail.left }
        visible: browser.screen === list
    }

    TreeScreen {
        id: tree
        anchors.fill: list
        visible: browser.screen === tree
        onWordsWanted: nameDialog.ask("filter", qsTr("Show only names with these words, parted by commas"), words)
    }

    Rectangle {
        id: rail
        anchors { top: bar.bottom; bottom: parent.bottom; right: parent.right }
        width: 256
        color: Style.surface

        Rectangle {
            anchors.left: parent.left
            width: 1
            height: parent.height
            color: Style.line
        }

        Sticks {
            id: sticks
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 8 }
            onCopyChosen: browser.askWhetherToCopy(choice)
        }

        Grid {
            anchors { bottom: parent.bottom; bottomMargin: 8; horizontalCenter: parent.horizontalCenter }
            columns: 2
            spacing: Style.safeMargin

            Button {
                objectName: "button:New file"
                text: qsTr("New file")
                onClicked: nameDialog.ask("file", qsTr("Name of the new file"), "")
            }

            Button {
                objectName: "button:New folder"
                text: qsTr("New folder")
                onClicked: nameDialog.ask("folder", qsTr("Name of the new folder"), "")
            }

            Button {
                objectName: "button:Rename"
                text: qsTr("Rename")
                enabled: browser.screen.canRename
                onClicked: browser.askForNewName()
            }

            Button {
                objectName: "button:Delete"
                text: qsTr("Delete")
                kind: "danger"
                enabled: browser.screen.canDelete
                onClicked: browser.askWhetherToDelete()
            }
        }
    }

    Copier {
        id: copier
        objectName: "copier"
        stickSlots: sticks
        onFinished: browser.tellEndOfCopy()
    }

    Notice {
        id: notice
        anchors { bottom: parent.bottom; left: parent.left; right: rail.left }
    }

    Question {
        id: question
        onConfirmed: browser.attempt(function () {
            if (task === "delete")
                return browser.deleteMarked();
            browser.copyTo(sticks.choice);
            return "";
        })
    }

    Outcome {
        id: outcome
    }

    NameDialog {
        id: nameDialog
        onAccepted: browser.perform(task, name)
    }

    Progress {
        work: copier
    }

    Busy {
        id: copyingAtOnce
        onReady: browser.attempt(function () { browser.copyTreeTo(sticks.choice); return ""; })
    }
}
