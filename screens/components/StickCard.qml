import QtQuick 1.1
import "style.js" as Style

// One of the two slots for USB sticks.
Rectangle {
    id: card

    property string slot
    property bool isPresent: false
    property string path
    property string freeSpace

    // What became of an eject; empty when nothing is to be told.
    property string news

    // No new work while a stick is being let go.
    property bool isLocked: false

    signal copyChosen
    signal ejectChosen

    objectName: "stick:" + slot
    height: 128
    radius: 4
    color: "white"
    border.color: Style.frame
    border.width: 1

    Label {
        objectName: "stickName"
        x: 10
        y: 8
        width: parent.width - 20
        text: card.isPresent ? Style.oneLine(Style.lastPart(card.path)) : "Slot " + card.slot
        font.bold: true
        color: card.isPresent ? Style.blue : Style.faintText
    }

    Label {
        objectName: "stickState"
        x: 10
        y: 32
        width: parent.width - 20
        height: card.isPresent ? 24 : 80
        wrapMode: Text.WordWrap
        verticalAlignment: card.isPresent ? Text.AlignVCenter : Text.AlignTop
        text: card.news !== "" ? card.news : card.isPresent ? card.freeSpace + " free" : "No USB stick"
        color: card.news !== "" ? Style.text : Style.faintText
        font.pixelSize: Style.smallFontPixels
        font.bold: card.news !== ""
    }

    Row {
        x: 8
        y: card.height - height - 8
        spacing: 8
        visible: card.isPresent

        Button {
            objectName: "copy:" + card.slot
            width: (card.width - 24) * 0.56
            text: "Copy here"
            kind: "main"
            enabled: !card.isLocked
            onClicked: card.copyChosen()
        }

        Button {
            objectName: "eject:" + card.slot
            width: (card.width - 24) * 0.44
            text: "Eject"
            enabled: !card.isLocked
            onClicked: card.ejectChosen()
        }
    }
}
