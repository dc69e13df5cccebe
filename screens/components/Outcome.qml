import QtQuick 1.1
import "style.js" as Style

// How something went that did not go well for every entry: what was done, and the names of the rest with the
// reason of each. Stays until it has been read.
Overlay {
    id: outcome

    property string text
    property string detail

    // Takes objects with name and remark.
    function show(newText, newDetail, entries) {
        text = newText;
        detail = newDetail;
        names.show(entries);
        isOpen = true;
    }

    Rectangle {
        id: box
        anchors.centerIn: parent
        width: 600
        height: head.height + (names.visible ? names.height + 12 : 0) + ok.height + 52
        radius: 4
        color: "white"

        Column {
            id: head
            anchors { top: parent.top; left: parent.left; right: parent.right; margins: 20 }
            spacing: 4

            Label {
                objectName: "outcomeText"
                width: parent.width
                text: outcome.text
                color: Style.warning
                font.bold: true
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
            }

            Label {
                objectName: "outcomeDetail"
                width: parent.width
                visible: text !== ""
                text: outcome.detail
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
            }
        }

        NameList {
            id: names
            anchors { top: head.bottom; topMargin: 12; left: parent.left; right: parent.right }
            anchors { leftMargin: 20; rightMargin: 20 }
            height: Math.min(fullHeight + 2, outcome.height - head.height - ok.height - 104)
            visible: count > 0
        }

        Button {
            id: ok
            objectName: "outcomeOk"
            anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
            width: 130
            text: qsTr("OK")
            kind: "main"
            onClicked: outcome.isOpen = false
        }
    }
}
