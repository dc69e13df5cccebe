import QtQuick 1.1
import "style.js" as Style

// Shows how far a list is scrolled. Only looked at: lists are scrolled by the finger.
Item {
    id: mark

    property Flickable list

    anchors { top: list.top; bottom: list.bottom; right: list.right }
    width: 8
    visible: list.visibleArea.heightRatio < 1

    Rectangle {
        x: 1
        y: Math.max(0, Math.min(mark.height - height, mark.list.visibleArea.yPosition * mark.height))
        width: 6
        height: Math.max(24, mark.list.visibleArea.heightRatio * mark.height)
        radius: 3
        color: Style.frame
    }
}
