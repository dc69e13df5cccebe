import QtQuick 1.1
import "style.js" as Style

// What is marked, in two lines, and the buttons for all and none.
Rectangle {
    id: bar

    property string summary
    property string detail

    signal allChosen
    signal noneChosen

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
            font.pixelSize: Style.smallFontPixels
        }

        Label {
            objectName: "detail"
            width: parent.width
            visible: text !== ""
            text: bar.detail
            color: Style.faintText
            font.pixelSize: Style.smallFontPixels
        }
    }

    Button {
        id: all
        anchors { right: none.left; rightMargin: Style.margin; verticalCenter: parent.verticalCenter }
        text: "Select all"
        onClicked: bar.allChosen()
    }

    Button {
        id: none
        anchors { right: parent.right; rightMargin: Style.margin; verticalCenter: parent.verticalCenter }
        text: "Clear"
        onClicked: bar.noneChosen()
    }
}
