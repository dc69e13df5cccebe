import QtQuick 1.1
import "style.js" as Style

// One entry of a list. The mark has a finger's room of its own; the rest of the row opens a folder and
// marks a file.
Rectangle {
    id: row

    property QtObject file
    property string name: file ? file.name : ""
    property bool isMarked: file ? file.isSelected : false
    property bool isFolder: file ? file.isDir : false

    signal opened
    signal marked(bool on)

    objectName: "row:" + name
    height: Style.rowHeight
    color: rowArea.pressed || markArea.pressed ? Style.pressed : isMarked ? "#e6f6fd" : "white"

    Image {
        x: 8
        anchors.verticalCenter: parent.verticalCenter
        source: row.isMarked ? "qrc:/images/checkbox_full.png" : "qrc:/images/checkbox_empty.png"
    }

    Image {
        x: 54
        anchors.verticalCenter: parent.verticalCenter
        visible: row.isFolder
        source: "qrc:/images/blue-folder.png"
    }

    Label {
        objectName: "name"
        anchors { left: parent.left; leftMargin: 88; right: date.left; rightMargin: 8 }
        height: parent.height
        text: Style.oneLine(row.name)
        elide: Text.ElideMiddle
    }

    Label {
        id: date
        objectName: "date"
        anchors { right: size.left; rightMargin: 8 }
        width: 100
        height: parent.height
        text: row.file ? row.file.date : ""
        color: Style.faintText
        font.pixelSize: Style.smallFontPixels
    }

    Label {
        id: size
        objectName: "size"
        anchors { right: parent.right; rightMargin: 14 }
        width: 84
        height: parent.height
        horizontalAlignment: Text.AlignRight
        text: row.file && !row.isFolder ? row.file.size : ""
        color: Style.faintText
        font.pixelSize: Style.smallFontPixels
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Style.softLine
    }

    MouseArea {
        id: rowArea
        anchors.fill: parent
        onClicked: row.isFolder ? row.opened() : row.marked(!row.isMarked)
    }

    MouseArea {
        id: markArea
        objectName: "mark:" + row.name
        width: 48
        height: parent.height
        onClicked: row.marked(!row.isMarked)
    }
}
