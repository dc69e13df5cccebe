import QtQuick 1.1
import "style.js" as Style
import "names.js" as Names

// One entry of a list. The mark has a finger's room of its own; the rest of the row opens a folder and
// marks a file.
Rectangle {
    id: row

    property QtObject file
    property string name: file ? file.name : ""
    property bool isMarked: file ? file.isSelected : false
    property bool isFolder: file ? file.isDir : false

    signal opened

    // Asks for the other mark.
    signal marked

    objectName: "row:" + name
    height: Style.touch
    color: rowArea.pressed || markArea.pressed ? Style.pressed : isMarked ? Style.marked : "white"

    Image {
        anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }
        source: row.isMarked ? "qrc:/images/checkbox_full.png" : "qrc:/images/checkbox_empty.png"
    }

    Image {
        anchors { left: parent.left; leftMargin: 50; verticalCenter: parent.verticalCenter }
        visible: row.isFolder
        source: "qrc:/images/blue-folder.png"
    }

    Label {
        objectName: "name"
        anchors { left: parent.left; leftMargin: Style.kindColumn; right: date.left; rightMargin: 8 }
        height: parent.height
        text: Names.oneLine(row.name)
        elide: Text.ElideMiddle
    }

    Label {
        id: date
        objectName: "date"
        anchors { right: size.left; rightMargin: 8 }
        width: Style.dateColumn - 8
        height: parent.height
        text: row.file ? row.file.date : ""
        color: Style.faintText
    }

    Label {
        id: size
        objectName: "size"
        anchors { right: parent.right; rightMargin: Style.scrollColumn }
        width: Style.sizeColumn - Style.scrollColumn - 8
        height: parent.height
        horizontalAlignment: Text.AlignRight
        text: row.file && !row.isFolder ? row.file.size : ""
        color: Style.faintText
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
        onClicked: row.isFolder ? row.opened() : row.marked()
    }

    MouseArea {
        id: markArea
        objectName: "mark:" + row.name
        anchors.left: parent.left
        width: Style.touch
        height: parent.height
        onClicked: row.marked()
    }
}
