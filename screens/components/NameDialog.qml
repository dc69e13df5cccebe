import QtQuick 1.1
import "style.js" as Style

// Asks for a name.
Overlay {
    id: dialog

    property string task
    property string title
    property alias name: input.text

    signal accepted

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
        accepted();
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
            anchors { left: parent.left; right: parent.right; leftMargin: 16; rightMargin: 16 }
            y: 4
            height: 32
            text: dialog.title
            color: Style.blue
            font.bold: true
        }

        Rectangle {
            anchors { left: parent.left; leftMargin: 16; right: cancel.left; rightMargin: 12 }
            y: 40
            height: Style.touch
            radius: 4
            border.color: Style.blue
            border.width: 1
            clip: true

            TextInput {
                id: input
                objectName: "nameInput"
                anchors { left: parent.left; right: parent.right; leftMargin: 10; rightMargin: 10 }
                anchors.verticalCenter: parent.verticalCenter
                color: Style.text
                selectionColor: Style.blue
                selectedTextColor: "white"
                font.family: "OpenSans"
                font.pixelSize: Style.titlePixels
                onAccepted: dialog.accept()
            }
        }

        Button {
            id: cancel
            objectName: "nameCancel"
            anchors { right: ok.left; rightMargin: 12 }
            y: 40
            width: 110
            text: qsTr("Cancel")
            onClicked: dialog.isOpen = false
        }

        Button {
            id: ok
            objectName: "nameOk"
            anchors { right: parent.right; rightMargin: 16 }
            y: 40
            width: 110
            text: qsTr("OK")
            kind: "main"
            enabled: input.text !== "" || dialog.task === "filter"
            onClicked: dialog.accept()
        }

        Keyboard {
            id: keyboard
            y: 104
            width: parent.width
            onTyped: dialog.type(character)
            onErased: dialog.erase()
        }
    }
}
