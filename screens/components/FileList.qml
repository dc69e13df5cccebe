import QtQuick 1.1
import "style.js" as Style

// The entries of a Listing, scrolled by the finger.
Item {
    id: fileList

    property QtObject listing

    ListView {
        id: view

        // Where the finger left the list of which folder: a new listing of it begins there again.
        property string path
        property real place: 0

        objectName: "list"
        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: fileList.listing.files
        onModelChanged: listed.restart()
        onMovementEnded: place = contentY
        delegate: FileRow {
            width: view.width
            file: modelData
            onOpened: fileList.listing.open(fileList.listing.pathOf(name))
            onMarked: fileList.listing.mark(index, !isMarked)
        }

        Timer {
            id: listed
            interval: 1
            onTriggered: {
                if (view.path !== fileList.listing.currentPath) {
                    view.path = fileList.listing.currentPath;
                    view.place = 0;
                }
                view.contentY = Math.max(0, Math.min(view.place, view.contentHeight - view.height));
            }
        }
    }

    ScrollMark {
        list: view
        onMoved: view.place = view.contentY
    }

    Label {
        objectName: "emptyText"
        anchors.centerIn: parent
        visible: view.count === 0
        text: qsTr("This folder is empty")
        color: Style.faintText
    }
}
