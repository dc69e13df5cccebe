import QtQuick 1.1
import "style.js" as Style

// Asks before something is destroyed. The harmless answer comes first.
Overlay {
    id: question

    property string text
    property string detail
    property string action

    signal confirmed

    function ask(newText, newDetail, newAction) {
        text = newText;
        detail = newDetail;
        action = newAction;
        isOpen = true;
    }

    Rectangle {
        anchors.centerIn: parent
        width: 480
        height: column.height + 40
        radius: 4
        color: "white"

        Column {
            id: column
            x: 20
            y: 20
            width: parent.width - 40
            spacing: 12

            Label {
                objectName: "question"
                width: parent.width
                text: question.text
                font.bold: true
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 3
            }

            Label {
                objectName: "questionDetail"
                width: parent.width
                visible: text !== ""
                text: question.detail
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
                color: Style.faintText
            }

            Row {
                anchors.right: parent.right
                spacing: 16

                Button {
                    objectName: "answer:no"
                    width: 130
                    text: "Cancel"
                    onClicked: question.isOpen = false
                }

                Button {
                    objectName: "answer:yes"
                    width: 130
                    text: question.action
                    kind: "danger"
                    onClicked: {
                        question.isOpen = false;
                        question.confirmed();
                    }
                }
            }
        }
    }
}
