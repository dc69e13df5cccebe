import QtQuick 1.1
import "style.js" as Style
import "names.js" as Names
import "words.js" as Words

// How far a Copier is, and the way to stop it.
Overlay {
    id: progress

    property Item work

    isOpen: work.isRunning

    Rectangle {
        anchors.centerIn: parent
        width: 560
        height: column.height + 40
        radius: 4
        color: "white"

        Column {
            id: column
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 20 }
            spacing: 12

            Label {
                objectName: "progressTitle"
                width: parent.width
                text: qsTr("Copying to %1").arg(Names.oneLine(Names.lastPart(progress.work.destination)))
                color: Style.blue
                font.bold: true
            }

            Rectangle {
                width: parent.width
                height: 20
                radius: 4
                color: Style.pressed

                Rectangle {
                    objectName: "progressBar"
                    anchors.left: parent.left
                    width: parent.width * progress.work.share
                    height: parent.height
                    radius: 4
                    color: Style.blue

                    // For who waits until there is something to see, be the machine slow.
                    Item {
                        objectName: "progressIsSeen"
                        visible: progress.work.share > 0.1
                    }
                }
            }

            Label {
                objectName: "progressText"
                width: parent.width
                text: qsTr("%1 of %Ln file(s), %2", "", progress.work.filesTotal)
                      .arg(Words.whole(progress.work.filesDone))
                      .arg(Words.sizeOf(progress.work.bytesDone, progress.work.bytesTotal))
                font.bold: true
            }

            Label {
                objectName: "progressFile"
                width: parent.width
                text: Names.oneLine(progress.work.inHand)
                elide: Text.ElideMiddle
            }

            Item {
                width: parent.width
                height: Style.touch

                Label {
                    objectName: "progressTime"
                    anchors { left: parent.left; right: cancel.left; rightMargin: 16 }
                    height: parent.height
                    text: progress.work.secondsLeft < 0 ? "" : Words.timeLeft(progress.work.secondsLeft)
                    color: Style.faintText
                }

                Button {
                    id: cancel
                    objectName: "progressCancel"
                    anchors.right: parent.right
                    width: 130
                    text: qsTr("Cancel")
                    onClicked: progress.work.stop()
                }
            }
        }
    }
}
