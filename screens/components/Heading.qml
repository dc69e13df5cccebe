import QtQuick 1.1
import "style.js" as Style

// One heading of a list that sorts when it is touched. As in the tree, the arrow
// points up when the smallest value is on top.
Rectangle {
    id: heading

    property string text
    property bool isSorted: false
    property bool isSmallOnTop: true

    signal clicked

    color: area.pressed ? Style.darkBlue : Style.blue

    Label {
        id: label
        anchors { left: parent.left; leftMargin: 8 }
        height: parent.height
        text: heading.text
        elide: Text.ElideNone
        color: "white"
        font.bold: true
    }

    Image {
        objectName: "arrow"
        anchors { left: label.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
        visible: heading.isSorted
        source: heading.isSmallOnTop ? "qrc:/images/white-triangle-up.png"
                                     : "qrc:/images/white-triangle-down.png"
    }

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: "white"
        opacity: 0.4
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: heading.clicked()
    }
}
