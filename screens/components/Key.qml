import QtQuick 1.1
import "style.js" as Style

// A key of the keyboard.
Rectangle {
    id: key

    property string text
    property bool isHeld: false

    signal clicked

    objectName: "key:" + text
    width: 72
    height: Style.touch
    radius: 4
    color: area.pressed ? Style.blue : isHeld ? Style.pale : "white"
    border.color: Style.frame
    border.width: 1

    Label {
        anchors.fill: parent
        horizontalAlignment: Text.AlignHCenter
        text: key.text
        color: area.pressed ? "white" : Style.text
        font.pixelSize: Style.titlePixels
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.clicked()
    }
}
