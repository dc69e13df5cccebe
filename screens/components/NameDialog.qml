import QtQuick 1.1
import "style.js" as Style

// Asks for a name.
Overlay {
    id: dialog

    property string task
    property string title
    property alias name: input.text

    signal accepted(string task, string name)

    function ask(newTask, newTitle, proposal) {
        task = newTask;
        title = newTitle;
        input.text = proposal;
        input.cursorPosition = proposal.length;
        keyboard.reset();
        isOpen = true;
        input.forceActiveFocus();
    }

    function accept() {
        isOpen = false;
        accepted(task, name);
    }

    function type(character) {
        var at = input.cursorPosition;
        input.text = input.text.substring(0, at) + character + input.text.substring(at);
        input.cursorPosition = at + 1;
        keyboard.isShifted = false;
    }

    function erase() {
        var at = input.cursorPosition;
        if (at === 0)
            return;
        input.text = input.text.substring(0, at - 1) + input.text.substring(at);
        input.cursorPosition = at - 1;
    }

    Rectangle {
        width: parent.width
        height: keyboard.y + keyboard.height
        anchors.bottom: parent.bottom
        color: "white"

        Label {
            objectName: "nameTitle"
            x: 16
            y: 8
            width: parent.width - 32
            height: 32
            text: dialog.title
            color: Style.blue
            font.bold: true
        }

        Rectangle {
            x: 16
            y: 44
            width: cancel.x - 32
            height: Style.buttonHeight
            radius: 4
            border.color: Style.blue
            border.width: 1
            clip: true

            TextInput {
                id: input
                objectName: "nameInput"
                anchors { fill: parent; leftMargin: 10; rightMargin: 10; topMargin: 11 }
                color: Style.text
                selectionColor: Style.lightBlue
                font.family: "OpenSans"
                font.pixelSize: 18
                onAccepted: dialog.accept()
            }
        }

        Button {
            id: cancel
            objectName: "nameCancel"
            anchors { right: ok.left; rightMargin: 12 }
            y: 44
            width: 110
            text: "Cancel"
            onClicked: dialog.isOpen = false
        }

        Button {
            id: ok
            objectName: "nameOk"
            anchors { right: parent.right; rightMargin: 16 }
            y: 44
            width: 110
            text: "OK"
            kind: "main"
            enabled: input.text !== "" || dialog.task === "filter"
            onClicked: dialog.accept()
        }

        Keyboard {
            id: keyboard
            y: 102
            width: parent.width
            onTyped: dialog.type(character)
            onErased: dialog.erase()
        }
    }
}
