import QtQuick 1.1
import "components"
import "components/style.js" as Style

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
            var problem = Style.nameProblem(name);
            if (problem !== "")
                return problem;
            if (task === "file")
                return browser.screen.newFile(name);
            if (task === "folder")
                return browser.screen.newFolder(name);
            return browser.screen.rename(name);
        });
    }

    function askWhetherToDelete() {
        var names = screen.namesToDelete();
        if (names.length === 0) {
            notice.complain("Select an entry of this folder first.", "");
            return;
        }
        var text = names.length === 1 ? "Delete \"" + Style.oneLine(names[0]) + "\"?"
                                      : "Delete these " + names.length + " entries?";
        question.ask(text, names.length === 1 ? "" : Style.oneLine(names.join(", ")), "Delete");
    }

    function askForNewName() {
        var name = screen.nameToRename();
        if (name === "")
            notice.complain("Select an entry of this folder first.", "");
        else
            nameDialog.ask("rename", "New name of \"" + Style.oneLine(name) + "\"", name);
    }

    function copyTo(path) {
        var stick = Style.oneLine(Style.lastPart(path));
        var marked = screen.marked;
        var failed = screen.copyTo(path);
        sticks.look();
        if (failed === "")
            notice.tell(marked + " copied to " + stick, "");
        else
            notice.complain("Not copied to " + stick + ": " + Style.oneLine(failed),
                            "Folders are not copied, and files that are there already are kept.");
    }

    Rectangle {
        id: bar
        width: parent.width
        height: 52
        color: Style.blue

        Tabs {
            height: parent.height
            names: browser.screen.tabs
            current: browser.screen.tab
            onChosen: browser.attempt(function () { browser.screen.show(index); return ""; })
        }

        Tabs {
            anchors.right: parent.right
            height: parent.height
            names: ["List", "Tree"]
            current: browser.screen === list ? 0 : 1
            onChosen: browser.screen = index === 0 ? list : tree
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
        onWordsWanted: nameDialog.ask("filter", "Show only names with these words, parted by commas", words)
    }

    Rectangle {
        id: rail
        anchors { top: bar.bottom; bottom: parent.bottom; right: parent.right }
        width: 212
        color: Style.surface

        Rectangle {
            width: 1
            height: parent.height
            color: Style.line
        }

        Sticks {
            id: sticks
            x: 8
            y: 8
            width: parent.width - 16
            onCopyChosen: {
                if (!browser.screen.canCopy)
                    notice.complain("Nothing is selected.", "Mark what is to be copied first.");
                else
                    copying.begin(path);
            }
        }

        Grid {
            anchors { bottom: parent.bottom; bottomMargin: 8 }
            x: 8
            columns: 2
            spacing: 8

            Button {
                text: "New file"
                onClicked: nameDialog.ask("file", "Name of the new file", "")
            }

            Button {
                text: "New folder"
                onClicked: nameDialog.ask("folder", "Name of the new folder", "")
            }

            Button {
                text: "Rename"
                enabled: browser.screen.canRename
                onClicked: browser.askForNewName()
            }

            Button {
                text: "Delete"
                kind: "danger"
                enabled: browser.screen.canDelete
                onClicked: browser.askWhetherToDelete()
            }
        }
    }

    Notice {
        id: notice
        anchors { bottom: parent.bottom; left: parent.left; right: rail.left }
    }

    Question {
        id: question
        onConfirmed: browser.attempt(function () { return browser.screen.deleteMarked(); })
    }

    NameDialog {
        id: nameDialog
        onAccepted: browser.perform(task, name)
    }

    Busy {
        id: copying

        property string path

        function begin(newPath) {
            path = newPath;
            start("Copying to " + Style.oneLine(Style.lastPart(newPath)) + " ...");
        }

        onReady: browser.attempt(function () { browser.copyTo(copying.path); return ""; })
    }
}
