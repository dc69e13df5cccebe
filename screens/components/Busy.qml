import QtQuick 1.1
import "style.js" as Style

// Says that something takes its time, and starts it when that has been drawn: the module works on the
// user-interface thread, so nothing is drawn meanwhile.
Overlay {
    id: busy

    property string text

    signal ready

    function start(announcement) {
        text = announcement;
        isOpen = true;
        afterDrawing.restart();
    }

    Rectangle {
        anchors.centerIn: parent
        width: 420
        height: 96
        radius: 4
        color: "white"

        Label {
            objectName: "busyText"
            anchors { fill: parent; margins: 20 }
            horizontalAlignment: Text.AlignHCenter
            text: busy.text
        }
    }

    Timer {
        id: afterDrawing
        interval: 100
        onTriggered: {
            busy.ready();
            busy.isOpen = false;
        }
    }
}
