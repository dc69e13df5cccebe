import QtQuick 1.1
import "style.js" as Style

// A check box with its text. It shows "on" and asks to be switched; whoever holds the state does it.
Item {
    id: toggle

    property string text
    property bool on: false

    signal clicked

    objectName: "toggle:" + text
    width: label.x + label.width + 8
    height: Style.buttonHeight

    Rectangle {
        anchors.fill: parent
        radius: 4
        color: area.pressed ? Style.pressed : "transparent"
    }

    Image {
        id: box
        anchors.verticalCenter: parent.verticalCenter
        source: toggle.on ? "qrc:/images/checkbox_full.png" : "qrc:/images/checkbox_empty.png"
    }

    Label {
        id: label
        x: box.width + 4
        height: parent.height
        text: toggle.text
        elide: Text.ElideNone
        font.pixelSize: Style.smallFontPixels
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: toggle.clicked()
    }
}
