import QtQuick 1.1
import "style.js" as Style

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
        width: label.width + 36
        height: breadcrumb.height

        Rectangle {
            anchors { fill: parent; rightMargin: 12 }
            color: area.pressed ? Style.pressed : "transparent"
        }

        Label {
            id: measure
            visible: false
            text: label.text
            elide: Text.ElideNone
        }

        Label {
            id: label
            x: 12
            width: Math.min(measure.width, 240)
            height: parent.height
            text: Style.oneLine(modelData.name)
            color: Style.blue
            elide: Text.ElideMiddle
        }

        Label {
            x: label.x + label.width + 10
            height: parent.height
            text: "/"
            color: Style.frame
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
