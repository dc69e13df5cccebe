import QtQuick 1.1
import "style.js" as Style
import "names.js" as Names

// The way from the root folder to the current one. Its end stays in sight.
ListView {
    id: breadcrumb

    property QtObject listing

    clip: true
    orientation: ListView.Horizontal
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth > width
    model: listing.paths
    onModelChanged: toEnd.restart()

    delegate: Item {
        objectName: "crumb:" + modelData.name
        width: Math.max(Style.touch, label.width + 36)
        height: breadcrumb.height

        Rectangle {
            anchors { fill: parent; rightMargin: 12 }
            color: area.pressed ? Style.blue : "white"
        }

        Label {
            id: measure
            visible: false
            text: label.text
            elide: Text.ElideNone
        }

        Label {
            id: label
            anchors { left: parent.left; leftMargin: 12 }
            width: Math.min(measure.width, 240)
            height: parent.height
            text: Names.oneLine(modelData.name)
            color: area.pressed ? "white" : Style.blue
            elide: Text.ElideMiddle
        }

        Label {
            anchors { left: label.right; leftMargin: 12 }
            height: parent.height
            text: "/"
            color: Style.faintText
        }

        MouseArea {
            id: area
            anchors.fill: parent
            onClicked: breadcrumb.listing.open(modelData.fullpath)
        }
    }

    Timer {
        id: toEnd
        interval: 1
        onTriggered: breadcrumb.positionViewAtEnd()
    }
}
