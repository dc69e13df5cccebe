import QtQuick 1.1
import "style.js" as Style

// Dims the screen and keeps touches from it.
Item {
    id: overlay

    property bool isOpen: false

    anchors.fill: parent
    visible: isOpen

    Rectangle {
        objectName: "scrim"
        anchors.fill: parent
        color: Style.text
        opacity: 0.5
    }

    MouseArea {
        anchors.fill: parent
    }
}
