import QtQuick 1.1
import "style.js" as Style
import "names.js" as Names
import "words.js" as Words

// One of the two slots for USB sticks. An empty one takes no more than a line.
Rectangle {
    id: card

    property string slot
    property bool isPresent: false
    property string path
    property real freeBytes: 0

    // What became of an eject; empty when nothing is to be told.
    property string news

    // No new work while a stick is being let go.
    property bool isLocked: false

    signal copyChosen
    signal ejectChosen

    objectName: "stick:" + slot
    height: isPresent ? buttons.y + buttons.height + 8 : 40
    radius: 4
    color: "white"
    border.color: Style.frame
    border.width: 1

    Label {
        id: stickName
        objectName: "stickName"
        anchors { left: parent.left; leftMargin: 8 }
        y: card.isPresent ? 6 : 9
        width: card.isPresent ? parent.width - 16 : Math.min(parent.width, paintedWidth + 1)
        text: card.isPresent ? Names.oneLine(Names.lastPart(card.path)) : qsTr("Slot %1").arg(card.slot)
        elide: card.isPresent ? Text.ElideMiddle : Text.ElideNone
        font.bold: true
        color: card.isPresent ? Style.blue : Style.faintText
    }

    Label {
        objectName: "stickState"
        anchors { left: card.isPresent ? parent.left : stickName.right; leftMargin: 8 }
        anchors { right: parent.right; rightMargin: 8 }
        y: card.isPresent ? 29 : 9
        text: card.news !== "" ? card.news
            : card.isPresent ? qsTr("%1 free").arg(Words.size(card.freeBytes)) : qsTr("No USB stick")
        color: card.news !== "" ? Style.text : Style.faintText
        font.bold: card.news !== ""
    }

    Row {
        id: buttons
        anchors.horizontalCenter: parent.horizontalCenter
        y: 56
        spacing: Style.safeMargin
        visible: card.isPresent

        Button {
            objectName: "copy:" + card.slot
            width: (card.width - 16 - Style.safeMargin) / 2
            text: qsTr("Copy here")
            kind: "main"
            enabled: !card.isLocked
            onClicked: card.copyChosen()
        }

        Button {
            objectName: "eject:" + card.slot
            width: (card.width - 16 - Style.safeMargin) / 2
            text: qsTr("Eject")
            enabled: !card.isLocked
            onClicked: card.ejectChosen()
        }
    }
}
