import QtQuick 1.1
import "style.js" as Style

// What is marked, in two lines, and the buttons for all and none.
Rectangle {
    id: bar

    property string summary
    property string detail

    signal allChosen
    signal noneChosen

    height: Style.touch + 2 * 4
    color: Style.surface

    Rectangle {
        width: parent.width
        height: 1
        color: Style.line
    }

    Column {
        anchors { left: parent.left; leftMargin: 12; right: all.left; rightMargin: 12 }
        anchors.verticalCenter: parent.verticalCenter

        Label {
            objectName: "summary"
            width: parent.width
            text: bar.summary
            font.bold: true
        }

        Label {
            objectName: "detail"
            width: parent.width
            visible: text !== ""
            text: bar.detail
            color: Style.faintText
        }
    }

    Button {
        id: all
        objectName: "button:Select all"
        anchors { right: none.left; rightMargin: Style.margin; verticalCenter: parent.verticalCenter }
        text: qsTr("Select all")
        onClicked: bar.allChosen()
    }

    Button {
        id: none
        objectName: "button:Clear"
        anchors { right: parent.right; rightMargin: Style.margin; verticalCenter: parent.verticalCenter }
        text: qsTr("Clear")
        onClicked: bar.noneChosen()
    }
}
