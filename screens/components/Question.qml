import QtQuick 1.1
import "style.js" as Style

// Asks before something is done that is not what was expected, or can't be undone. The harmless answer comes
// first.
Overlay {
    id: question

    property string text
    property string detail
    property string action
    property string task

    signal confirmed

    function ask(newTask, newText, newDetail, newAction) {
        task = newTask;
        text = newText;
        detail = newDetail;
        action = newAction;
        names.show([]);
        isOpen = true;
    }

    // Shows names below the question, one below the other.
    function list(newNames) {
        names.show(newNames.map(function (name) { return { name: name, remark: "" }; }));
    }

    Rectangle {
        anchors.centerIn: parent
        width: 520
        height: head.height + (names.visible ? names.height + 12 : 0) + answers.height + 52
        radius: 4
        color: "white"

        Column {
            id: head
            anchors { top: parent.top; left: parent.left; right: parent.right; margins: 20 }
            spacing: 4

            Label {
                objectName: "question"
                width: parent.width
                text: question.text
                font.bold: true
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
            }

            Label {
                objectName: "questionDetail"
                width: parent.width
                visible: text !== ""
                text: question.detail
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                maximumLineCount: 4
            }
        }

        NameList {
            id: names
            anchors { top: head.bottom; topMargin: 12; left: parent.left; right: parent.right }
            anchors { leftMargin: 20; rightMargin: 20 }
            height: Math.min(fullHeight + 2, question.height - head.height - answers.height - 104)
            visible: count > 0
        }

        Row {
            id: answers
            anchors { right: parent.right; bottom: parent.bottom; margins: 20 }
            spacing: Style.safeMargin

            Button {
                objectName: "answer:no"
                width: 140
                text: qsTr("Cancel")
                onClicked: question.isOpen = false
            }

            Button {
                objectName: "answer:yes"
                width: 140
                text: question.action
                kind: question.task === "delete" ? "danger" : "plain"
                onClicked: {
                    question.isOpen = false;
                    question.confirmed();
                }
            }
        }
    }
}
