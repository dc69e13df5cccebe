import QtQuick 1.1
import "style.js" as Style

// The entries of a Listing, scrolled by the finger.
Item {
    id: fileList

    property QtObject listing

    ListView {
        id: view
        objectName: "list"

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: fileList.listing.files
        delegate: FileRow {
            width: view.width
            file: modelData
            onOpened: fileList.listing.selectPath(fileList.listing.pathOf(name))
            onMarked: fileList.listing.mark(index, on)
        }
    }

    ScrollMark {
        list: view
    }

    Label {
        objectName: "emptyText"
        anchors.centerIn: parent
        visible: view.count === 0
        text: "This folder is empty"
        color: Style.faintText
    }
}
