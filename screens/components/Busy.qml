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
        afterDrawing.interval = 100;
        afterDrawing.start();
    }

    Rectangle {
        anchors.centerIn: parent
        width: 480
        height: 96
        radius: 4
        color: "white"

        Label {
            objectName: "busyText"
            anchors { fill: parent; margins: 20 }
            horizontalAlignment: Text.AlignHCenter
            text: busy.text
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            maximumLineCount: 4
        }
    }

    function finish() {
        if (!isOpen)
            return;
        ready();
        isOpen = false;
    }

    // The user-interface process's own QTimer. On Qt 4.8 a Timer also fires inside a signal whose handlers
    // start an animation, and a Directory is locked while it lists: a copy begun there would wait for ever.
    // "afterDrawing" is the viewer's; without one a Timer of 100 ms does on Qt 5 and 6, where it fires in its turn.
    Component.onCompleted: afterDrawing.timeout.connect(finish)
}
