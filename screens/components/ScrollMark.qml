import QtQuick 1.1
import "style.js" as Style

// Shows how far a list is scrolled, and scrolls it when the finger drags it.
Item {
    id: mark

    property Flickable list
    property real way: Math.max(1, list.contentHeight - list.height)

    // The finger has moved the list.
    signal moved

    anchors { top: list.top; bottom: list.bottom; right: list.right }
    width: Style.touch
    visible: list.contentHeight > list.height

    function drag(top) {
        var share = Math.max(0, Math.min(1, top / (height - grip.height)));
        list.contentY = share * way;
        moved();
    }

    Item {
        id: grip
        objectName: "scrollMark"
        width: parent.width
        height: Math.max(Style.touch, mark.list.height / Math.max(1, mark.list.contentHeight) * mark.height)
        y: Math.max(0, Math.min(1, mark.list.contentY / mark.way)) * (mark.height - height)

        Rectangle {
            anchors { top: parent.top; bottom: parent.bottom; right: parent.right; margins: 3 }
            width: 12
            radius: 6
            color: area.pressed ? Style.blue : Style.frame
        }

        MouseArea {
            id: area

            property real hold: 0

            anchors.fill: parent
            onPressed: hold = mouseY
            onPositionChanged: mark.drag(grip.y + mouseY - hold)
        }
    }
}
